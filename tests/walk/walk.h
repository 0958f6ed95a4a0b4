// A random walk: a simulated user who does anything at any moment on the headless machine. Part of the time
// the user is a trained gunner, so that practices run to their end. The rules in rules.h are checked after
// each event.
#pragma once

#include <map>
#include <string>

namespace vorn {

struct walk_result {
    std::map<std::string, long> reached;   // how often the walk reached each situation of interest
    std::string failure;                   // the broken rule and the last actions; empty: none
};

// Walks this many events. The same seed gives the same walk.
walk_result walk(unsigned seed, long events);

// Seed, event and last actions of the walk that runs in this process.
std::string current_walk();

}   // namespace vorn
