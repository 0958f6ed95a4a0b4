// What the sources of the range author do for each other.
#pragma once

#include "platform/objects.h"

namespace vorn {

struct trainer;
struct rauthor_screen;

// Twips of the sight window from its corner to the point being marked.
inline constexpr double mark_right = 1680, mark_down = 1440;
// Where the overview stands in its frame, and its size whatever the picture's.
inline constexpr double overview_left = 120, overview_top = 360;
inline constexpr double overview_width = 14000, overview_height = 5000;

// design.cpp: where everything stands.
void design_rauthor(rauthor_screen&);

// view.cpp: the picture behind the sight window.
void make_view(rauthor_screen&);
// The overview takes the picture and the scales follow.
void scaleoverview(rauthor_screen&);
// The band for the picture that is built into the screen.
void placeholderband(rauthor_screen&);
// Hangs a loaded picture behind the sight window as it is.
void hangpicture(rauthor_screen&, picture);
// Puts a loaded picture behind the sight window and looks at its middle.
void putpicture(rauthor_screen&, picture);
// The size of the picture and the middle of it as the point being marked.
void showmiddle(rauthor_screen&);
// From the height on the picture; nothing changes above or below the ground band.
void proposerange(rauthor_screen&);
// The corner of the overview's cursor, or of a position's marker, for a point on the picture.
area overviewplace(const rauthor_screen&, double x, double y);

// targets.cpp: the twenty positions and the three icons.
void make_targets(trainer&);
void showplaced(rauthor_screen&, int position);
// Shows the target at the point, of the size that the range in Lbltgtrange gives it; none without a range.
void showtarget(rauthor_screen&);
// Shows the icon, 1 to 3, that the range in hand names; false when it can't be loaded and its place stays as
// it is.
bool loadicon(trainer&, int icon);

// rangedisk.cpp: a new range, and ranges opened and saved.
void make_rangedisk(trainer&);

}   // namespace vorn
