// What covers the ground, in colour and in warmth: rough grass, fields, woodland floor, tracks and roads,
// broken ground, water. Texture runs from hundreds of metres down to hand's breadths and fades where it would
// be finer than a pixel.
#pragma once

#include "country.h"
#include "ground_map.h"
#include "terrain.h"

namespace landscape {

enum class material : std::uint8_t { sky, ground, plant, building, water };

// A place on the ground as a pixel sees it.
struct ground_spot {
    float x, y;
    float range;
    vec3 normal;
    float across;   // metres of ground in the pixel, across the view
    float along;    // and along it
};

struct surface {
    vec3 light;     // that it sends towards the gunner, before the air
    float warmth;   // 0 cold to 1 hot
    material made_of;
};

surface cover(const country&, const ground_map&, const ground_spot&);

}   // namespace landscape
