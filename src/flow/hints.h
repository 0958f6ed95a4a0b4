// The two kinds of hints of a screen: a bar that names the purpose of the frame under the cursor, and a small
// label beside a button on which the cursor has rested for a while.
#pragma once

#include <initializer_list>

#include "platform/design.h"

namespace vorn {

struct hint {
    screen_object* over;
    const char* text;
};

// What a screen keeps for its hints, and how far down from a button's top they stand.
struct hint_panel {
    form& window;
    screen_object& bar;
    screen_object& label;
    timer& clock;
    int& ticks;
    double below;            // twips
    const char* bare_text;   // in the bar over the bare screen
};

// Where the bar stands, with its first words, and how the hint looks that floats beside a button.
void lay_out_hints(form&, screen_object& bar, const rectangle& at, const char* words, screen_object& hint);
// Nobody rests on a button any more: its hint, shown or still to come, goes.
void end_rest(screen_object& label, timer& clock, int& ticks);
// Over this object, too, the rest by the buttons ends.
void end_hints_over(const hint_panel&, screen_object&);
// Once the buttons have their handlers.
void make_hints(const hint_panel&, std::initializer_list<hint> frames, std::initializer_list<hint> buttons);

}   // namespace vorn
