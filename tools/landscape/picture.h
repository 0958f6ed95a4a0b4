// Makes the picture and the range file of a world.
#pragma once

#include <QImage>
#include <string>

#include "ground_cover.h"
#include "world.h"

namespace tools {

using rendered = grid<pixel>;

// Draws a world as the gunner sees it, in vertical strips with four samples a pixel. First come the ground
// (in each column from near to far) and the sky, then houses and bridges, then plants from far to near, then
// reflections in the water.
rendered render(const world&, const view&);

// The picture of a camera.
QImage photograph(const rendered&);
// The picture of a scanning thermal sight: grey, blurred, with scan lines and noise. Before lines and noise
// are added, all but the sky is between .20 and .60 of white, so that only hot targets are brighter.
QImage thermal_image(const rendered&);
// The picture reduced to half its size: each pixel is the mean of four.
QImage halved(const QImage&);

struct position {
    int x, y;      // of the middle of the target's lower edge, pixels
    float range;   // metres
};

// Twenty target positions, in the order of the range file.
std::vector<position> choose_positions(const country&, const rendered&);
std::string range_file(const country&, const std::vector<position>&);

}   // namespace tools
