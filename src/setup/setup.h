// The functions that the sources of the set-up screen share.
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

// practicefile.cpp: practice files.
void make_practicefile(trainer&);
// The bytes of a file with the options of the screen.
std::string practice_file_bytes(const startsim_screen&);
// Applies the items of a file one by one, each by selecting its option. Stops at the first that can't be
// read; what was applied before stays.
void apply_practice(trainer&, const std::string& text);

// range.cpp: the choice of the range.
void make_rangechoice(trainer&);

}   // namespace vorn
