// What must hold whatever the user does.
#pragma once

#include <string>

#include "trainer.h"

namespace vorn {

// What the program itself doesn't know of the moment.
struct walk_moment {
    bool idle = false;        // no handler runs
    bool settled = false;     // and all that was due has been delivered
    bool hands_off = false;   // no key, stick button or mouse button is held
    bool halted = false;      // PAUSE SIM was clicked in this practice
    bool resumed = false;     // and clicked again since the screen was reset: all its clocks were started
};

// The first rule that doesn't hold, in words; empty when all do.
std::string broken_rule(const trainer&, const walk_moment&);
// The state that the rules look at, to read a failure by.
std::string described(const trainer&);

}   // namespace vorn
