// A random walk: a simulated user who does random things at random times on the headless machine. Part of the
// time a scripted gunner fires a practice, so that some practices run to their end. The rules of rules.h are
// checked throughout.
#pragma once

#include <map>
#include <string>

namespace vorn {

struct walk_result {
    std::map<std::string, long> reached;   // how often the walk reached each situation of interest
    std::string failure;                   // the broken rule and the last actions; empty: none
};

// Each step is a random event or a whole practice. The same seed gives the same walk.
walk_result walk(unsigned seed, long steps);

// Seed, step and last actions of the walk that is running in this process.
std::string current_walk();

}   // namespace vorn
