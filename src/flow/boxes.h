// Box texts and the questions that several screens ask.
#pragma once

#include <initializer_list>
#include <string>

namespace vorn {

struct trainer;

// The line break of message boxes: line feed, then carriage return.
inline constexpr const char* crlf = "\n\r";
// The second line of the boxes that begin with the program's short name.
inline const std::string blankline(19, ' ');

// The text of a box of several lines.
std::string lines(std::initializer_list<std::string> text);

// Asks a question with Yes and No; true for yes. Return answers yes, or no where a yes loses something.
bool asked(trainer&, const std::string& question, const std::string& title, bool no_first = false);
// Asks whether to end the program, and ends it on a yes.
void confirmexit(trainer&, const std::string& firstline, const std::string& title);
// Opens the help file at its contents.
void openhelp(trainer&);
// Shows a box and returns true when the joystick is selected but not calibrated.
bool joystickrefused(trainer&);

}   // namespace vorn
