// What must be true whatever the user does.
#pragma once

#include <string>

#include "trainer.h"

namespace vorn {

// What the rules need to know and the program doesn't record.
struct walk_state {
    bool idle = false;           // no handler runs
    bool settled = false;        // every timer that was due has ticked
    bool nothing_held = false;   // no key, joystick button or mouse button is down
    bool paused = false;         // PAUSE SIM was clicked in this practice
    bool resumed = false;        // a pause has ended since the screen was reset, which starts all timers
};

// The first rule that is broken, in words; empty if none is.
std::string broken_rule(const trainer&, const walk_state&);

}   // namespace vorn
