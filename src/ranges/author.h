// The functions that the sources of the range author share.
#pragma once

#include "platform/objects.h"

namespace vorn {

struct trainer;
struct rauthor_screen;

// The marked point in the sight window, twips from its upper left corner.
inline constexpr double mark_right = 1680, mark_down = 1440;
// The overview in its frame, twips. Its size doesn't depend on the picture.
inline constexpr double overview_left = 120, overview_top = 360;
inline constexpr double overview_width = 14000, overview_height = 5000;

// design.cpp: the layout.
void design_rauthor(rauthor_screen&);

// view.cpp: the picture behind the sight window.
void make_view(rauthor_screen&);
// Shows the picture on the overview and sets its scales.
void scaleoverview(rauthor_screen&);
// Sets the ground band for the placeholder picture.
void placeholderband(rauthor_screen&);
// Puts a loaded picture behind the sight window, at the place of the previous one.
void hangpicture(rauthor_screen&, picture);
// Puts a loaded picture behind the sight window and shows its middle.
void putpicture(rauthor_screen&, picture);
// Shows the size of the picture and makes its middle the marked point.
void showmiddle(rauthor_screen&);
// Proposes a range from the height of the point on the picture. No proposal above or below the ground band.
void proposerange(rauthor_screen&);
// The place of the cursor or of a marker on the overview for a point on the picture.
area overviewplace(const rauthor_screen&, double x, double y);

// targets.cpp: the positions and icons.
void make_targets(trainer&);
void showplaced(rauthor_screen&, int position);
// Sets the range of the marked point.
void settargetrange(rauthor_screen&, int metres);
// Shows the target at the marked point, in the size for its range; hides it without a range.
void showtarget(rauthor_screen&);
// Shows icon 1, 2 or 3 of the open range. False, and no change, if it can't be loaded.
bool loadicon(trainer&, int icon);

// rangedisk.cpp: new, open and save.
void make_rangedisk(trainer&);

}   // namespace vorn
