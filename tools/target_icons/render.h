// Draws a vehicle as it looks from far away, in parallel projection. It is lit by a sun to the upper
// left of the viewer and by the whole sky, and casts a shadow on the ground; or it is shown by its heat.
#pragma once

#include <QImage>

#include "solid.h"

namespace tools {

struct view {
    float aside;   // degrees between the vehicle's front and the viewer, to the vehicle's left
    float above;   // degrees that the viewer looks down
};

enum class look { painted, hot };

// Draws the vehicle as large as the square picture allows, just above the lower edge.
QImage render(const solid& vehicle, const view&, look, int size);

}   // namespace tools
