// Draws a world as the gunner sees it, in vertical strips with four samples a pixel. First the ground, from
// near to far in each column, then houses, then plants from far to near, then reflections in the water.
#pragma once

#include "common/grid.h"
#include "ground_cover.h"
#include "sky.h"
#include "world.h"

namespace tools {

// A pixel of the picture, or a sample of a pixel.
struct pixel {
    vec3 light;         // for a visual picture
    float warmth = 0;   // for a thermal picture
    float range = 0;    // metres, 0 in the sky
    material made_of = material::sky;
};
using rendered = grid<pixel>;
// Sums for computing a mean. The range is that of `b`, the material the one with the higher value.
constexpr pixel operator+(const pixel& a, const pixel& b)
{
    return {a.light + b.light, a.warmth + b.warmth, b.range, std::max(a.made_of, b.made_of)};
}
constexpr pixel operator*(const pixel& p, float share)
{
    return {p.light * share, p.warmth * share, p.range, p.made_of};
}

rendered render(const world&, const view&);

}   // namespace tools
