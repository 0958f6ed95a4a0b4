// Maps of the ground: the distances to tracks, trails (faint tracks at random places), roads and the river,
// and shadows. They are filled once. After that any number of threads may read them.
#pragma once

#include <cstdint>

#include "common/grid.h"

namespace tools {

// A segment of a polyline, such as a track or a river.
struct piece {
    point from, way;
    // The point at a share of the way, moved `left` metres to the left, seen along `way`.
    point at(float share, float left = 0) const
    {
        return from + way * share + point{-way.y, way.x} / length(way) * left;
    }
};

// A map with a byte for each cell of the ground in front of the gunner, initially 255. The value at a place
// is the byte times `unit`. Beyond the map the byte counts as 255.
class map_layer {
public:
    explicit map_layer(float unit);
    float at(point) const;   // bilinear
    // Stores the distance from a line, in metres, in the cells that have a larger value.
    void mark_distance(const std::vector<piece>&);
    // Darkens an ellipse, by `strength` in the middle and less outwards. Radii in metres, angle in radians.
    void darken(point middle, float along, float across, float angle, float strength);

private:
    // Calls change(cell, place) for each cell of the rectangle and `reach` metres around it.
    void change_around(point low, point high, float reach, auto change);

    grid<std::uint8_t> bytes_;
    float unit_;
};

inline constexpr float river_width = 27;   // metres

struct ground_map {
    map_layer tracks{.05f}, trails{.05f}, roads{.05f};   // distances up to 12 m
    map_layer river{.5f};                                // up to 127 m
    map_layer shade{1};                                  // 255 in full light

    // The distance to the bank of a river, up to 114 m; below 0 in the water.
    float bank(point p) const { return river.at(p) - river_width / 2; }
};

// A smooth line through the points with random bends: `wander` scales them. A piece is some metres long.
std::vector<piece> winding(const path& through, float wander = 1);

}   // namespace tools
