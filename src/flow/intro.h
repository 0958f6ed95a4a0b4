// The title screen, and the start of the program.
#pragma once

#include "platform/objects.h"

namespace vorn {

struct trainer;

struct intro_screen {
    form window;
    screen_object Image1;           // background
    screen_object Label1, Label2;   // the title, and its shadow
    screen_object lblstart, lblabout, lblhelp, lblexit;
    screen_object Lblabout1;   // the about text
};

void make_intro(trainer&);

// design.cpp: the layout.
void design_intro(intro_screen&);

// Starts the program. Run it as one event; the arrival at the title screen follows.
void start_program(trainer&);

// Makes the program directory the working directory and sets rootpath. Asks the user if the default directory
// can't be entered.
void finddata(trainer&);

}   // namespace vorn
