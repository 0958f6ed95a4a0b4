// The hints of a screen: a bar with the purpose of the frame under the cursor, and a small label beside a
// button on which the cursor rests.
#pragma once

#include <initializer_list>

#include "platform/design.h"

namespace vorn {

inline constexpr const char* foot_text = "PLACE THE CURSOR OVER A FRAME TO SEE THE PURPOSE OF ITS CONTROLS";

struct hint {
    screen_object* over;
    const char* text;
};

// The objects of a screen that show its hints.
struct hint_panel {
    form& window;
    screen_object& bar;
    screen_object& label;
    timer& clock;
    int& ticks;                          // ticks of `clock` with the cursor on a button
    double below;                        // twips from the top of a button to the top of its hint
    const char* bare_text = foot_text;   // in the bar while the cursor is over the background
};

// design.cpp: the layout.
void lay_out_hints(form&, screen_object& bar, const area& bar_at, screen_object& label,
                   const char* first_text = foot_text);
// Hides the hint, and cancels a pending one.
void end_hint(const hint_panel&);
// Makes the hint end also when the cursor moves over these objects. They are beside the buttons: a fast mouse
// can skip the narrow strip of background between.
void end_hint_over(const hint_panel&, std::initializer_list<screen_object*>);
// Call it after the buttons' Click handlers are set: it extends them, so that a click also ends the hint.
void make_hints(const hint_panel&, std::initializer_list<hint> frames, std::initializer_list<hint> buttons);

}   // namespace vorn
