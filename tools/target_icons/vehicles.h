// The vehicles of the ranges, which a gunner must be able to tell apart; no real make. Each is on the ground
// with its middle at x = y = 0 and its front towards x.
#pragma once

#include "solid.h"

namespace tools {

// `thinnest` is the smallest radius, in metres, at which a gun barrel is drawn: in a small picture one to
// scale would fade out. `turret` is in degrees to the left.
solid tank(float thinnest, float turret);
solid carrier(float thinnest, float turret);   // tracked, for infantry, with a small gun
solid truck(float thinnest, float turret);     // six wheels, a bonnet, a covered load; it has no turret

}   // namespace tools
