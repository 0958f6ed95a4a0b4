// Maps of the ground: the distance to tracks, roads and the river, and the shadows on it. Filled once and
// then only read, by any number of threads.
#pragma once

#include <cstdint>

#include "common/grid.h"

namespace tools {

// A map of the country in front of the gunner with a byte for each cell, initially 255. The value at a place
// is that byte times a unit; beyond the map the byte counts as 255.
class map_layer {
public:
    explicit map_layer(float unit);
    float at(float x, float y) const;   // bilinear
    // Marks the distance from a line, in metres, where it is less than the value there.
    void mark_distance(const path&);
    // Darkens an ellipse by `strength` in its middle, fading outwards. Radii in metres, angle in radians.
    void darken(point middle, float along, float across, float angle, float strength);

private:
    struct cells {
        int left, right, top, bottom;
    };
    static cells around(point low, point high, float reach);

    grid<std::uint8_t> bytes_;
    float unit_;
};

struct ground_map {
    map_layer tracks{.05f}, trails{.05f}, roads{.05f};   // distances up to 12 m
    map_layer river{.5f};                                // up to 127 m
    map_layer shade{1};                                  // 255 in full light
};

// A smooth line through the points, a point every few metres, with small random bends.
path winding(const path& through, float wander = 1);

}   // namespace tools
