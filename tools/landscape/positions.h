// Chooses the target positions of a range, and writes its range file.
#pragma once

#include <string>
#include <vector>

#include "renderer.h"

namespace tools {

struct position {
    int x, y;      // of the middle of the target's lower edge, pixels
    float range;   // metres
};

// Twenty positions in the order of the range file; fewer if no more can be found.
std::vector<position> choose_positions(const country&, const rendered&);
std::string range_file(const country&, const std::vector<position>&);

}   // namespace tools
