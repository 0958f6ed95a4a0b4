// The colour and warmth of the ground: rough grass, fields, woodland floor, tracks and roads, broken ground,
// water. The texture has wavelengths from hundreds of metres to ten centimetres; wavelengths finer than a
// pixel are faded out.
#pragma once

#include "country.h"
#include "ground_map.h"
#include "terrain.h"

namespace tools {

enum class material : std::uint8_t { sky, ground, plant, building, water };

// The piece of ground that a pixel shows.
struct ground_spot {
    float x, y;
    float range, bearing, elevation;   // from the gunner; metres, radians, radians
    vec3 normal;
    float across;   // metres of ground in the pixel, across the view
    float along;    // and along the view
};

struct surface {
    vec3 light;     // reflected towards the gunner, before the haze
    float warmth;   // 0 cold to 1 hot
    material made_of;
};

surface cover(const country&, const ground_map&, const ground_spot&);

}   // namespace tools
