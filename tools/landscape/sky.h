// The sky: a colour gradient, thin high clouds, and ray-marched cumulus clouds. Also its warmth, cloud
// shadows and the haze of the air.
#pragma once

#include "common/grid.h"
#include "country.h"

namespace tools {

// The sky of a picture, on a grid that is coarser than the picture.
grid<vec3> sky_of(const country&, const view&);
// The light of the sky at a place in the picture, given in pixels.
vec3 sky_at(const grid<vec3>& sky, point);
// The light of the sky without clouds at an elevation in radians.
vec3 plain_sky(const country&, float elevation);

// 1 in the sun, less in the shadow of a cloud.
float cloud_shadow(const country&, point);
// What the air over a distance does to a colour. target_icons/make_icons.sh has levels computed with the same
// extinction coefficients.
struct haze {
    vec3 kept, added;
    vec3 operator()(vec3 colour) const { return colour * kept + added; }
};
haze haze_of(float metres);
// Warmth of the sky in a thermal picture.
float sky_warmth(const country&, float bearing, float elevation);

}   // namespace tools
