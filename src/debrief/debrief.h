// Functions shared by the sources of the debrief screen.
#pragma once

#include <array>

namespace vorn {

struct trainer;
struct screen_object;
struct results_screen;

// Side of the image of a mark on the target, twips. The middle of the image is the point that it marks.
inline constexpr double mark = 480;

// design.cpp: the layout.
void design_results(results_screen&);

// engagement.cpp: the list of engagements, and the selected one.
void make_engagements(trainer&);
// Loads the icons that the record names. Returns false if one can't be loaded; the built-in picture is then
// shown.
bool loadstock(trainer&);
// The buttons of rounds 1 to 4.
std::array<screen_object*, 4> roundbuttons(results_screen&);
// Shows the pictures in the list of engagements and selects engagement 1.
void fillengagements(trainer&);

// results.cpp: shows student, practice type and range name from the record.
void showdetails(trainer&);
// Shows the range picture of the record, or the placeholder, in the strip. Returns false if the picture can't
// be loaded.
bool showrange(trainer&);

}   // namespace vorn
