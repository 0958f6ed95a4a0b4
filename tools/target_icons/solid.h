// Closed bodies of flat faces, from which the vehicles are built. Coordinates in metres: x forward, y to the
// left, z up from the ground. The corners of a face may be in either order.
#pragma once

#include "common/geometry.h"

namespace tools {

struct material {
    vec3 paint;   // reflectance, 0 to 1, linear
    float heat;   // 0 the coldest part of a vehicle, 1 the hottest that the sight shows
    bool camouflaged = false;
    bool slender = false;   // doesn't count for the size of the vehicle
};

struct face {
    std::vector<vec3> corners;
    vec3 normal;   // may point inwards or outwards
    material made_of;
};

using solid = std::vector<face>;

// A side view (x and z), extruded along y.
solid across(const path& side_outline, limits y, const material&);
// A body between two outlines (x and y) with the same number of corners, each outline at its height.
solid between(const path& lower, float lower_z, const path& upper, float upper_z, const material&);
solid box(limits x, limits y, limits z, const material&);
// A truncated cone.
solid rod(vec3 from, vec3 to, float from_radius, float to_radius, const material&);

void add(solid& to, const solid& what);
// Adds the body and its mirror image on the other side of the vehicle.
void add_pair(solid& to, const solid& what);
// The body turned to the left about the vertical through x = y = 0, then moved forward.
solid mounted(solid, float degrees, float forward);
solid laid_down(solid);   // exchanges forward and up

}   // namespace tools
