// The calibration screen: leads the user through the set-up of the joystick, lets him try stick and buttons,
// and computes the numbers from which the gunnery screens work out the traverse.
#pragma once

#include <deque>

#include "platform/objects.h"
#include "state/numbers.h"

namespace vorn {

struct trainer;

struct joycal_screen {
    form window;

    screen_object Cmdstart, Cmdfinish;
    screen_object Lblstick;   // whether a joystick is connected

    // The stick tester: Image1 is the background of the dot.
    screen_object Frmstick, Frmfield, Image1, dot;

    // The readings, and the step of the dot at its last move.
    screen_object Frmreadings;
    screen_object Lblxmin, Lblymin, Lblx, Lbly, Lblxfactor, Lblyfactor;
    screen_object Lblxmax, Lblymax;   // never shown

    screen_object Frmbuttons, Lblbutton[4];

    // The instructions, one for each step.
    screen_object Lblstep[4];   // their numbers
    screen_object Frminfo, Lblinfo1, Lblinfo2, Lblinfo3, Lblinfo4;

    std::deque<screen_object> captions;   // the labels that never change

    int16 calstep = 0;         // of the procedure; 0 before START
    bool calstarted = false;   // START has been clicked
};

void make_joycal(trainer&);

// design.cpp: the layout.
void design_joycal(joycal_screen&);

}   // namespace vorn
