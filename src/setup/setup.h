// Functions shared by the sources of the set-up screen.
#pragma once

#include <string>

namespace vorn {

struct trainer;
struct startsim_screen;

// design.cpp: the layout.
void design_startsim(startsim_screen&);

// options.cpp: the options, check boxes and sliders.
void make_options(trainer&);

// practices.cpp: the twelve programmed practices.
void make_practices(trainer&);

// practicefile.cpp
void make_practicefile(trainer&);
// The bytes of a practice file: the settings in the frame OPTIONS, and lines 1 to 7 of the summary.
std::string practice_file_bytes(const startsim_screen&);
// Applies the items of a practice file to the screen one by one. Stops at the first missing or invalid item;
// items applied before stay applied.
void apply_practice(trainer&, const std::string& text);

// range.cpp: the choice of the range.
void make_rangechoice(trainer&);

}   // namespace vorn
