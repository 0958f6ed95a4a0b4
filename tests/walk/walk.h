// A random walk: a simulated user who does anything at any moment on the headless machine. Part of the time
// a trained gunner fires, so that practices run to their end. The rules in rules.h are checked all the time.
#pragma once

#include <map>
#include <string>

namespace vorn {

struct walk_result {
    std::map<std::string, long> reached;   // how often the walk reached each situation of interest
    std::string failure;                   // the broken rule and the last actions; empty: none
};

// Walks this many steps: a random event, or a whole practice. The same seed gives the same walk.
walk_result walk(unsigned seed, long steps);

// Seed, step and last actions of the walk that runs in this process.
std::string current_walk();

}   // namespace vorn
