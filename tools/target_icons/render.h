// Draws a vehicle as the sight sees it from far away: without vanishing points, lit by a sun to the upper
// left of the viewer and by the sky all round, with the shadow it throws on the ground; or by its heat alone.
#pragma once

#include <cstdint>
#include <vector>

#include "solid.h"

struct image {
    int size;                         // pixels, across and down
    std::vector<std::uint8_t> rgba;   // rows from the top; colours not multiplied by alpha
};

struct view {
    double aside;   // degrees between the vehicle's front and the viewer, to the vehicle's left
    double above;   // degrees that the viewer looks down
};

enum class look { painted, hot };

// The vehicle fills a square picture as far as its outline allows, and stands on its lower edge.
image render(const solid& vehicle, const view&, look, int size);
