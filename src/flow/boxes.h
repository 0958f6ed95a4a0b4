// What several screens share: message boxes, questions, and opening the help.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/machine.h"

namespace vorn {

struct trainer;

inline constexpr const char* program_heading = "V. O. R. N. ";
inline constexpr const char* program_title = "V. O. R. N.";
// The short name of the program, as the heading and as the title of a box.
inline constexpr const char* name_heading = "V.O.R N.";
inline constexpr const char* name_title = "V.O.R.N.";

std::string lines(std::initializer_list<std::string> text);
// A heading, a blank line, and the lines of the text.
std::string headed(const std::string& heading, std::initializer_list<std::string> text);

// Shows a plain box, or one with the sign for information.
void tell(trainer&, const std::string& text, const std::string& title = {});
void inform(trainer&, const std::string& text, const std::string& title = program_title);
// Asks a question with Yes and No. Returns true for Yes. Callers make No the default button if Yes ends the
// program or deletes a file.
bool asked(trainer&, const std::string& question, const std::string& title,
           default_button on_return = default_button::yes);
// Asks a question under the short name of the program.
bool asked_with_name(trainer&, std::initializer_list<std::string> question);
// Asks whether to end the program, and ends it on yes.
void confirmexit(trainer&, const std::string& heading, const std::string& title);
// Opens the help file at its table of contents.
void openhelp(trainer&);

}   // namespace vorn
