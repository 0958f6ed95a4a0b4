// What the sources of the debrief screen do for each other.
#pragma once

#include <string>

namespace vorn {

struct trainer;
struct results_screen;

// design.cpp: where everything stands.
void design_results(results_screen&);

// engagement.cpp: the list of engagements and what is shown of the chosen one.
void make_engagements(trainer&);
// The pictures of the list, and engagement 1 chosen.
void fillengagements(trainer&);

// results.cpp: shows the record's head.
void showdetails(trainer&);
// Loads the picture of the record's range and puts it on the strip; false when it can't be loaded.
bool showrange(trainer&);

}   // namespace vorn
