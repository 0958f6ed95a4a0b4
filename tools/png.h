// Writes a PNG picture, packed well enough to be kept in the source tree, with nothing but the standard
// library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct png_picture {
    std::size_t width, height;
    std::vector<std::uint8_t>
        rgba;   // four bytes a pixel, rows from the top; colours not multiplied by alpha
};

std::string png(const png_picture&);
