// What must be true whatever the user does.
#pragma once

#include <string>

#include "trainer.h"

namespace vorn {

// What the rules need to know and the program doesn't record.
struct walk_state {
    bool idle = false;           // no handler runs
    bool nothing_held = false;   // no key, joystick button or mouse button is down
    bool was_paused = false;     // since the screen was reset; the end of a pause starts all timers
};

// The first rule that is broken, in words; empty if none is.
std::string broken_rule(const trainer&, const walk_state&);

}   // namespace vorn
