// The explosion at a target: the one drawing that is painted pixels rather than lines and fills. The picture
// is built into the program, and read when the first frame is asked for.
#pragma once

#include <QPainter>

namespace vorn {

// Draws frame 0, the first spark, to frame 15, the last of the smoke, over a rectangle of device pixels. Any
// other frame draws nothing, nor does any frame if the picture can't be read.
void draw_explosion(QPainter&, const QRectF& at, int frame);
// The same by its heat, white on grey.
void draw_hot_explosion(QPainter&, const QRectF& at, int frame);

}   // namespace vorn
