// The title screen, and the operations by which the program comes up and goes from screen to screen.
#pragma once

#include <string>

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

// The start of the program. To be run as one event: the arrival at the title screen follows it.
void start_program(trainer&);

// Makes the program directory the working directory and finds the data below it; asks the user when the
// default directory can't be entered.
void finddata(trainer&);

// A question with Yes and No; true for yes.
bool asked(trainer&, const std::string& question, const std::string& title);
// Asks whether to end the program, and ends it on a yes.
void confirmexit(trainer&, const std::string& firstline, const std::string& title);
// Opens the help file at its contents.
void openhelp(trainer&);
// Tells why a road is closed when the joystick is selected and not calibrated; true when it is.
bool joystickrefused(trainer&);

// The text of a box of several lines.
std::string lines(std::initializer_list<std::string> text);
// The second line of the boxes that begin with the program's short name.
inline const std::string blankline(19, ' ');

}   // namespace vorn
