// From light or warmth to the picture.
#pragma once

#include <QImage>

#include "renderer.h"

namespace tools {

// As a camera shows the light.
QImage photograph(const rendered&);
// As a scanning thermal sight shows the warmth: grey, blurred, with scan lines and noise. The ground lies
// between .25 and .6 of white, so that only hot targets are brighter.
QImage thermal_image(const rendered&);
// Half the size, each pixel the mean of four.
QImage halved(const QImage&);

}   // namespace tools
