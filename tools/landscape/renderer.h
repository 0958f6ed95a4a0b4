// Draws a world as the gunner sees it, strip by strip: the ground from near to far in each column, then
// houses, then plants from far to near, then the water's reflections; four samples a pixel.
#pragma once

#include "common/grid.h"
#include "ground_cover.h"
#include "sky.h"
#include "world.h"

namespace tools {

// Of the picture, or one of its samples.
struct pixel {
    vec3 light;         // in a visual picture
    float warmth = 0;   // in a thermal one
    float range = 0;    // metres, 0 in the sky
    material made_of = material::sky;
};
using rendered = grid<pixel>;
// For means: the range is that of the last one, the material the highest.
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
