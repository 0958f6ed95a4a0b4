// Draws a vehicle as the sight sees it from far away: in parallel projection, lit by a sun to the upper left
// of the viewer and by the sky all round, with the shadow it casts on the ground; or by its heat alone.
#pragma once

#include <QImage>

#include "solid.h"

namespace tools {

struct view {
    float aside;   // degrees between the vehicle's front and the viewer, to the vehicle's left
    float above;   // degrees that the viewer looks down
};

enum class look { painted, hot };

// The vehicle fills the square picture as far as its outline allows, and its lower end is on the lower edge.
QImage render(const solid& vehicle, const view&, look, int size);

}   // namespace tools
