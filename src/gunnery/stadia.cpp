#include "gunnery/gunnery.h"

namespace vorn {

// A target height between two classes, such as 379.5, leaves the picture unchanged.
void choosestadia(gunnery_screen& s)
{
    const double h = s.Imgtargets.Height;
    constexpr int none = -1;
    const int fits = h < 180 ? 3 : h <= 279 ? 2 : h < 280 ? none : h <= 379 ? 1 : h < 380 ? none : 0;
    if (fits != none) s.Imgstadia.Picture = s.Imgstadia1[fits].Picture;
}

}   // namespace vorn
