// The vehicles on the ranges, of no make: what a gunner must tell apart. Each stands on the ground with its
// middle at x = y = 0 and its front towards x.
#pragma once

#include "solid.h"

// `thinnest` is the smallest radius, in metres, at which a gun barrel is drawn: in a small picture one to
// scale would fade out. `turret` is in degrees to the left.
solid tank(double thinnest, double turret);
solid carrier(double thinnest, double turret);   // tracked, for infantry, with a small gun
solid truck(double thinnest, double turret);     // six wheels, a bonnet, a covered load; it has no turret
