// Functions shared by the sources of the range author.
#pragma once

#include "platform/objects.h"

namespace vorn {

struct trainer;
struct rauthor_screen;

// The marked point, twips from the upper left corner of the sight window.
inline constexpr double mark_right = 1680, mark_down = 1440;
// Place and size of the overview in its frame, twips. They don't depend on the picture.
inline constexpr double overview_left = 120, overview_top = 360;
inline constexpr double overview_width = 14000, overview_height = 5000;

// design.cpp: the layout.
void design_rauthor(rauthor_screen&);

// view.cpp: the picture behind the sight window.
void make_view(rauthor_screen&);
// Shows the range picture in the overview and sets the scales of the overview.
void scaleoverview(rauthor_screen&);
// Sets the ground band for the placeholder picture.
void placeholderband(rauthor_screen&);
// Replaces the picture behind the sight window. The new one has the same place.
void hangpicture(rauthor_screen&, picture);
// Replaces the picture behind the sight window, with its middle at the window's upper left corner, and sets
// the overview, the ground band and the marked point for it.
void putpicture(rauthor_screen&, picture);
// Shows the size of the picture, and sets the marked point as if the middle of the picture were at the sight
// window's upper left corner.
void showmiddle(rauthor_screen&);
// Proposes a range from the height of the marked point in the picture. Does nothing outside the ground band.
void proposerange(rauthor_screen&);
// The place of a cursor or marker in the overview, for a point of the picture.
area overviewplace(const rauthor_screen&, double x, double y);

// targets.cpp: the positions and icons.
void make_targets(trainer&);
void showplaced(rauthor_screen&, int position);
// Sets the range of the marked point.
void settargetrange(rauthor_screen&, int metres);
// Shows the target at the marked point in the size for its range; hides it if the point has no range.
void showtarget(rauthor_screen&);
// Shows icon 1, 2 or 3 of the open range. If it can't be loaded, keeps the previous one and returns false.
bool loadicon(trainer&, int icon);

// rangedisk.cpp: the buttons for new, open and save.
void make_rangedisk(trainer&);

}   // namespace vorn
