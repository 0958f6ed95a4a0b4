// The ground cover, in colour and warmth: rough grass, fields, woodland floor, tracks and roads, broken
// ground, water. Its texture has wavelengths from hundreds of metres to ten centimetres; those finer than a
// pixel are faded out.
#pragma once

#include "country.h"
#include "ground_map.h"
#include "terrain.h"

namespace tools {

enum class material : std::uint8_t { sky, ground, plant, building, water };

// A place on the ground in a pixel.
struct ground_spot {
    float x, y;
    float range, bearing, elevation;   // elevation: as the gunner sees it
    vec3 normal;
    float across;   // metres of ground in the pixel, across the view
    float along;    // and along it
};

struct surface {
    vec3 light;     // reflected towards the gunner, without the haze
    float warmth;   // 0 cold to 1 hot
    material made_of;
};

surface cover(const country&, const ground_map&, const ground_spot&);

}   // namespace tools
