// The sky: blue deepening upwards, high veils, and cumulus marched through from below and lit by the sun.
#pragma once

#include <vector>

#include "country.h"

namespace landscape {

// The sky of a picture, worked out once on a coarser grid.
class sky {
public:
    sky(const country&, const view&);
    // At a place on the picture, in pixels.
    vec3 at(float x, float y) const;
    // How the water sees it, at an elevation in radians.
    static vec3 plain(const country&, float elevation);

private:
    int columns_, rows_;
    std::vector<vec3> pixels_;
};

// Warmth of the sky in a thermal picture.
float sky_warmth(const country&, float bearing, float elevation);

}   // namespace landscape
