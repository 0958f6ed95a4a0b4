// The calibration screen. It guides the user through the calibration of the joystick, lets the user try stick
// and buttons, and computes the values with which the gunnery screens convert stick positions to movement.
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

    // Lblxmin, Lblymin: the stick's position. Lblx, Lbly: its centre. The others: the dot's last step, twips.
    screen_object Frmreadings;
    screen_object Lblxmin, Lblymin, Lblx, Lbly, Lblxfactor, Lblyfactor;
    screen_object Lblxmax, Lblymax;   // never shown

    screen_object Frmbuttons, Lblbutton[4];

    // The instructions, one for each step.
    screen_object Lblstep[4];   // their numbers
    screen_object Frminfo, Lblinfo1, Lblinfo2, Lblinfo3, Lblinfo4;

    std::deque<screen_object> captions;   // the labels that never change

    int16 calstep = 0;         // the current step, 0 before START; buttons raise it even beyond step 4
    bool calstarted = false;   // START has been clicked
};

void make_joycal(trainer&);

// design.cpp: the layout.
void design_joycal(joycal_screen&);

}   // namespace vorn
