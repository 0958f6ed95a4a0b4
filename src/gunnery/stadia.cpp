#include "gunnery/gunnery.h"

namespace vorn {

// A height between two classes leaves the picture as it was.
void choosestadia(gunnery_screen& s)
{
    static constexpr struct {
        double from, to;   // twips of the target's height
    } classes[] = {{380, 500}, {280, 379}, {180, 279}};
    const double height = s.Imgtargets.Height;
    if (height < 180) s.Imgstadia.Picture = s.Imgstadia1[3].Picture;
    for (int i = 0; i < 3; ++i)
        if (height >= classes[i].from && height <= classes[i].to)
            s.Imgstadia.Picture = s.Imgstadia1[i].Picture;
}

}   // namespace vorn
