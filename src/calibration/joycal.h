// The calibration screen: leads the user through setting the joystick up, lets him try stick and buttons, and
// makes the numbers by which the gunnery screens take the stick.
#pragma once

#include <deque>

#include "platform/objects.h"
#include "state/numbers.h"

namespace vorn {

struct trainer;

struct joycal_screen {
    form window;

    screen_object Cmdstart, Cmdfinish;
    screen_object Lblstick;   // whether a joystick is there

    // The stick tester. Image1 is the field of the dot; both lie in the same window.
    screen_object Frmstick, Frmfield, Image1, dot;

    // What the stick reads, and the step of the dot at its last move.
    screen_object Frmreadings;
    screen_object Lblxmin, Lblymin, Lblx, Lbly, Lblxfactor, Lblyfactor;
    screen_object Lblxmax, Lblymax;   // never shown

    screen_object Frmbuttons, Lblbutton[4];

    // The instructions, one for each step.
    screen_object Lblstep[4];   // their numbers
    screen_object Frminfo, Lblinfo1, Lblinfo2, Lblinfo3, Lblinfo4;

    std::deque<screen_object> captions;   // labels that never change

    int16 calstep = 0;         // of the procedure; 0 before it has begun
    bool calstarted = false;   // START has been clicked
};

void make_joycal(trainer&);

// design.cpp: where everything stands.
void design_joycal(joycal_screen&);

}   // namespace vorn
