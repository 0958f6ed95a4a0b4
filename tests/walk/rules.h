// Invariants of the program, whatever the user does.
#pragma once

#include <string>

#include "trainer.h"

namespace vorn {

// What the rules depend on and the program doesn't store.
struct walk_state {
    bool idle = false;           // no handler runs
    bool nothing_held = false;   // no key, joystick button or mouse button is down
    bool was_paused = false;     // since the last reset: a resume may start timers that didn't run before
};

// The first rule that is broken, in words; empty if none is.
std::string broken_rule(const trainer&, const walk_state&);

}   // namespace vorn
