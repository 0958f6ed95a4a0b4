// What lies on the ground in plan, on a grid: how far it is to a track, a road, the river, and what shadows
// fall. Filled once, then only read, so that any number of threads may.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry.h"

namespace landscape {

// One byte for each cell of the country in front of the gunner.
class map_layer {
public:
    explicit map_layer(std::uint8_t start);
    // Between the cells; `outside` beyond the map.
    float at(float x, float y, float outside) const;
    // Marks the distance from a line, in bytes of `unit` metres, where it is less than what stands there.
    void mark_distance(const path&, float unit);
    // Darkens an ellipse by `strength` in its middle, fading outwards. Radii in metres, angle in radians.
    void darken(point middle, float along, float across, float angle, float strength);

private:
    struct cells {
        int left, right, top, bottom;
    };
    static cells around(point low, point high, float reach);

    std::vector<std::uint8_t> bytes_;
};

inline constexpr float track_unit = .05f;   // reaches 12 m
inline constexpr float river_unit = .5f;    // reaches 127 m

struct ground_map {
    map_layer shade{255};   // 255 in full light
    map_layer tracks{255}, trails{255}, roads{255};
    map_layer river{255};

    float to_track(float x, float y) const { return tracks.at(x, y, 255) * track_unit; }
    float to_trail(float x, float y) const { return trails.at(x, y, 255) * track_unit; }
    float to_road(float x, float y) const { return roads.at(x, y, 255) * track_unit; }
    float to_river(float x, float y) const { return river.at(x, y, 255) * river_unit; }
    float light(float x, float y) const { return shade.at(x, y, 255) / 255; }
};

// A smooth line through the points, a point every few metres, wandering a little as a wheel or a stream does.
path winding(const path& through, float wander = 1);

}   // namespace landscape
