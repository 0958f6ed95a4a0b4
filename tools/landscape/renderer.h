// Draws a world as the gunner sees it, strip by strip: the ground from near to far in each column, then
// houses, then plants from far to near, then the water's reflections; four samples a pixel.
#pragma once

#include <vector>

#include "ground_cover.h"
#include "sky.h"
#include "world.h"

namespace landscape {

struct rendered {
    int width = 0, height = 0;
    std::vector<vec3> light;     // empty in a thermal picture
    std::vector<float> warmth;   // empty in a visual one
    std::vector<float> range;    // metres, 0 in the sky
    std::vector<material> made_of;

    std::size_t at(int x, int y) const { return index(y) * index(width) + index(x); }
};

rendered render(const world&, const view&);

}   // namespace landscape
