#include "gunnery/gunnery.h"

namespace vorn {

// A target height between two classes, such as 379.5, leaves the picture unchanged.
void choosestadia(gunnery_screen& s)
{
    const double h = s.Imgtargets.Height;
    const int fits = h >= 380 ? 0 : h >= 280 && h <= 379 ? 1 : h >= 180 && h <= 279 ? 2 : h < 180 ? 3 : -1;
    if (fits >= 0) s.Imgstadia.Picture = s.Imgstadia1[fits].Picture;
}

}   // namespace vorn
