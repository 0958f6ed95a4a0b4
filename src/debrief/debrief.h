// The functions that the sources of the debrief screen share.
#pragma once

namespace vorn {

struct trainer;
struct results_screen;

// Side of a marker's image, twips. The middle of the image is the marked point.
inline constexpr double mark = 480;

// design.cpp: the layout.
void design_results(results_screen&);

// engagement.cpp: the list of engagements, and the selected one.
void make_engagements(trainer&);
// Loads the icons that the record names. False if one can't be loaded; the built-in picture is then shown.
bool loadstock(trainer&);
// Shows the pictures of the list and selects engagement 1.
void fillengagements(trainer&);

// results.cpp: shows the head of the record.
void showdetails(trainer&);
// Shows the picture of the record's range on the strip, or the placeholder. False if the record names a
// picture that can't be loaded.
bool showrange(trainer&);

}   // namespace vorn
