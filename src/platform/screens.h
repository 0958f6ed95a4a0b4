// The rules of screens and timers, which are the same on every machine: which screen is in front, when its
// arrival handler runs, which timer ticks next.
#pragma once

#include <functional>
#include <vector>

#include "platform/objects.h"

namespace vorn {

class machine;

// The shortest interval of a timer, in seconds: a timer with an Interval of 1 ms ticks every 16 ms.
inline constexpr double timer_floor = 0.016;

// Which screens are loaded and shown. Only the functions below change it.
struct screen_stack {
    struct arrival {
        form* screen;
        int depth;   // nesting depth of the handler that caused the arrival; the arrival runs after it
    };
    std::vector<form*> loaded;
    std::vector<form*> shown;   // the last one is in front
    std::vector<arrival> arrivals;
    int depth = 0;   // nesting depth of the running handlers
};

// `show` loads a screen if necessary and brings it to the front. The screen's arrival handler runs after the
// handler that showed it has returned. Hiding or unloading the front screen brings the next one to the front.
void load(machine&, form&);
void show(machine&, form&);
void hide(machine&, form&);
void unload(machine&, form&);
form* front(const machine&);
// To be called when the user closes the window. Runs the Click handler of the exit button, which may be
// hidden. On a screen without an exit button it runs `closed`.
void close_by_frame(form&);
// To be called when a joystick has been connected or disconnected. Runs the JoystickChanged handlers of all
// loaded screens.
void joystick_changed(machine&);

// Runs the handler of one event, then the arrival handlers that it has queued.
void handle(machine&, const std::function<void()>& event);

// Time of the next tick in seconds on the machine's clock; infinity if there is none.
double next_tick(machine&);
// The latest time at which the machine must deliver ticks again: each timer may be late by its slack.
double next_wake(machine&);
// Runs the handlers of the due timers, each once, in the order of their due times, and `after_each` after
// each of them. A timer never ticks inside its own handler.
void deliver_ticks(machine&, const std::function<void()>& after_each = {});

}   // namespace vorn
