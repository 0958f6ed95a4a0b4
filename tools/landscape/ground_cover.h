// The colour and warmth of the ground: rough grass, fields, woodland floor, tracks and roads, broken ground,
// river banks, water. The texture has wavelengths from hundreds of metres to some 15 centimetres; those below
// ten metres are faded out where they are finer than a pixel.
#pragma once

#include "country.h"
#include "ground_map.h"

namespace tools {

// Fields are in rows and have slightly crooked boundaries.
struct field {
    float edge;   // distance to the nearest boundary, metres
    std::uint32_t id;
    std::uint32_t border;   // id of the nearest boundary, the same from both sides
    point along;            // direction of ploughing
    float wood;             // 0 to 1; the fields with the lowest values are woods
};

field field_at(const country&, point);
// Whether there is wood at this place of the field. Near the hamlet there is none.
bool wooded(const country&, const field&, point);
// The share of rough grass at a place, 0 to 1. Some of the fields are rough too.
float roughness(const country&, point);

enum class material : std::uint8_t { sky, ground, plant, building, water };

// A pixel of the picture, or a sample of a pixel.
struct pixel {
    vec3 light;           // towards the gunner, for a visual picture
    float warmth = 0;     // 0 cold to 1 hot, for a thermal picture
    float range = 1e9f;   // metres; the sky is farther than any ground
    material made_of = material::sky;

    // Sums for computing a mean. The range is that of `b`, the material the one with the higher value.
    friend constexpr pixel operator+(const pixel& a, const pixel& b)
    {
        return {a.light + b.light, a.warmth + b.warmth, b.range, std::max(a.made_of, b.made_of)};
    }
    friend constexpr pixel operator*(const pixel& p, float share)
    {
        return {p.light * share, p.warmth * share, p.range, p.made_of};
    }
};

// The piece of ground that a pixel shows.
struct ground_spot {
    point at;
    float range, bearing, elevation;   // from the gunner; metres, radians, radians
    vec3 normal;
    float across;   // metres of ground in the pixel, across the view
    float along;    // and along the view
};

// The ground as it looks without haze.
pixel cover(const country&, const ground_map&, const ground_spot&);

}   // namespace tools
