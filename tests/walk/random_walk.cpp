// Runs a random walk that is longer than those of the tests or has another seed. Prints what the walk
// reached. A failure prints the seed and the step; the same seed repeats it.
//   random_walk STEPS [SEED]
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "walk/walk.h"

// Shows where a walk hangs.
static void interrupted(int)
{
    std::fprintf(stderr, "%s\n", vorn::current_walk().c_str());
    std::_Exit(1);
}

int main(int count, char** words)
{
    const long steps = count > 1 ? std::atol(words[1]) : 0;
    if (steps <= 0) {
        std::fprintf(stderr, "usage: random_walk STEPS [SEED]\n");
        return 2;
    }
    std::signal(SIGINT, interrupted);
    std::signal(SIGTERM, interrupted);
    const unsigned seed = count > 2 ? static_cast<unsigned>(std::strtoul(words[2], nullptr, 10)) : 1;
    const vorn::walk_result r = vorn::walk(seed, steps);
    for (const auto& [what, times] : r.reached) std::printf("%9ld  %s\n", times, what.c_str());
    if (r.failure.empty()) return 0;
    std::printf("%s\n", r.failure.c_str());
    return 1;
}
