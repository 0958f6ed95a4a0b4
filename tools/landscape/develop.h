// From light or warmth to the picture's bytes.
#pragma once

#include <cstdint>
#include <vector>

#include "renderer.h"

namespace landscape {

// Three bytes a pixel, red first; as a camera shows the light.
std::vector<std::uint8_t> photograph(const rendered&);
// One byte a pixel; as a scanning thermal sight shows the warmth: blurred, with lines and noise. Ground comes
// out between a quarter and six tenths, so that hot targets have the top to themselves.
std::vector<std::uint8_t> thermal_image(const rendered&);

}   // namespace landscape
