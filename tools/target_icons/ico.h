// Writes icon files.
#pragma once

#include <string>
#include <vector>

#include "render.h"

// The pictures in one file, in the order given. A reader that looks no further than the first should find the
// largest there.
std::string icon_file(const std::vector<image>&);
