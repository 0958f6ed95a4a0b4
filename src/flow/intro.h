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

// Starts the program. Call it as one event; the arrival at the title screen follows that event.
void start_program(trainer&);

// Makes the program directory the working directory and sets rootpath. If the default directory can't be
// entered, asks the user for the program directory; the answer No ends the program.
void finddata(trainer&);

}   // namespace vorn
