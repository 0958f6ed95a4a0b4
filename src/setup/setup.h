// What the sources of the set-up screen do for each other.
#pragma once

#include <string>

namespace vorn {

struct trainer;
struct startsim_screen;

// design.cpp: where everything stands.
void design_startsim(startsim_screen&);

// options.cpp: what an option, a check box or a slider sets.
void make_options(trainer&);

// practices.cpp: the twelve programmed practices.
void make_practices(trainer&);

// practicefile.cpp: practice files.
void make_practicefile(trainer&);
// The file's bytes for what the screen shows.
std::string practice_file_bytes(const startsim_screen&);
// Takes the items of such a file one by one, each through the option that it is of, and ends at the first
// that can't be read: what came before it stays.
void apply_practice(trainer&, const std::string& text);

// range.cpp: which range the practice runs on.
void make_rangechoice(trainer&);

}   // namespace vorn
