// Chooses where the targets of a range stand, and writes its range file.
#pragma once

#include <string>
#include <vector>

#include "renderer.h"

namespace landscape {

struct position {
    int x, y;      // of the middle of the target's foot, pixels
    float range;   // metres
};

// Twenty places, in the order of the range file; fewer when the country has no more to give.
std::vector<position> choose_positions(const country&, const rendered&);
// The range that the range author proposes for a target there, metres; 0 outside his band.
float proposed_range(const country&, const position&);
std::string range_file(const country&, const std::vector<position>&);

}   // namespace landscape
