// The practice set-up screen: the student, the method of control, the mode and the range, and the start.
#pragma once

#include "platform/objects.h"

namespace vorn {

struct trainer;

struct startsim_screen {
    form window;
    screen_object Lbltitle;
    screen_object Cmdstart, cmdgame, Cmdhelpon, Cmdexit;

    screen_object Frame3, Label3;                             // instructions
    screen_object Frame2, Lblname, Txtname, Lblnum, Txtnum;   // student details
    screen_object Frmmode, Optmode1, Optmode2;
    screen_object Frmmethod, Optcon1, Optcon2, Optcon3;
    screen_object Frame9, Lblcurrent, Lblrangename, Lbltype, lblrangetype, Cmdopenrange;   // range
};

void make_startsim(trainer&);

// Reads name and type of the range of the practice and takes the mode from the type. When it can't be read
// the user is asked for another; a no ends the program.
void readrangehead(trainer&);

}   // namespace vorn
