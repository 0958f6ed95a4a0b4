// Writes baseline JPEG files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace landscape {

// The file's bytes. `pixels`: one byte each (grey) or three (red, green, blue), row by row; colour is kept at
// half the resolution. `quality` from 1 to 100, as other encoders count it.
std::string jpeg(const std::vector<std::uint8_t>& pixels, int width, int height, int channels, int quality);

}   // namespace landscape
