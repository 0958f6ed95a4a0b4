// What the sources of the debrief screen do for each other.
#pragma once

#include <string>

namespace vorn {

struct trainer;
struct results_screen;

// Side of a marker, twips; its middle is what it marks.
inline constexpr double mark = 480;

// design.cpp: where everything stands.
void design_results(results_screen&);

// engagement.cpp: the list of engagements and what is shown of the chosen one.
void make_engagements(trainer&);
// Loads the icons that the record names; false when one can't be loaded. Its place then has the picture that
// is built in.
bool loadstock(trainer&);
// The pictures of the list, and engagement 1 chosen.
void fillengagements(trainer&);

// results.cpp: shows the record's head.
void showdetails(trainer&);
// Puts the picture of the record's range on the strip, or the placeholder for want of it; false when the
// record names one that can't be loaded.
bool showrange(trainer&);

}   // namespace vorn
