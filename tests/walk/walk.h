// A random walk: a user who does anything at any moment, from the first box on, on the machine without a
// screen. Part of the time he is a gunner who knows his drill, so that practices are fought to their end.
// After each of his events the rules of rules.h must hold.
#pragma once

#include <map>
#include <string>

namespace vorn {

struct walk_result {
    std::map<std::string, long> reached;   // how often the walk came to what is worth coming to
    std::string failure;                   // the rule that broke, where, and the way there; empty: none
};

// So many events. The same seed goes the same way.
walk_result walk(unsigned seed, long events);

// Where the walk that is running in this process stands, for a process that is about to die.
std::string walk_under_way();

}   // namespace vorn
