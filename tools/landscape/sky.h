// The sky: a blue gradient, thin high clouds, and cumulus clouds that are ray-marched. Also cloud shadows and
// the haze of the air.
#pragma once

#include "common/grid.h"
#include "country.h"

namespace tools {

// The sky of a picture, computed once on a grid that is coarser than the picture.
class sky {
public:
    sky(const country&, const view&);
    // The light at a place of the picture, in pixels.
    vec3 at(float x, float y) const;
    // The light without clouds at an elevation in radians, for reflections in water.
    static vec3 plain(const country&, float elevation);

private:
    grid<vec3> pixels_;
};

// 1 in the sun, less in the shadow of a cloud.
float cloud_shadow(const country&, float x, float y);
// What this many metres of air do to a colour. `shown` in target_icons/render.cpp has the same extinction
// coefficients.
struct haze {
    vec3 kept, added;
    vec3 operator()(vec3 colour) const { return colour * kept + added; }
};
haze haze_of(float metres);
// Warmth of the sky in a thermal picture.
float sky_warmth(const country&, float bearing, float elevation);

}   // namespace tools
