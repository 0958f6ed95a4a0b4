// The target vehicles. They are invented; a gunner must be able to tell them apart. Each is on the
// ground, with its middle at x = y = 0 and its front in the direction of x.
#pragma once

#include "solid.h"

namespace tools {

// `thinnest` is the lower limit of the radius of the tank's barrel, in metres; for the carrier's barrel the
// limit is 0.8 times `thinnest`. In a small picture a barrel to scale would be invisible. `turret` is in
// degrees to the left.
solid tank(float thinnest, float turret);
solid carrier(float thinnest, float turret);   // tracked, for infantry, with a small gun
solid truck(float thinnest, float turret);     // six wheels, a bonnet, a covered load; ignores the parameters

}   // namespace tools
