// Converts rendered light or warmth to the final picture.
#pragma once

#include <QImage>

#include "renderer.h"

namespace tools {

// The picture of a camera.
QImage photograph(const rendered&);
// The picture of a scanning thermal sight: grey, blurred, with scan lines and noise. The ground is between
// .20 and .60 of white, so that only hot targets are brighter.
QImage thermal_image(const rendered&);
// The picture reduced to half its size: each pixel is the mean of four.
QImage halved(const QImage&);

}   // namespace tools
