// The explosion at a target: frames of a picture that is built into the program and read at the first use.
#pragma once

#include <QPainter>

namespace vorn {

// Draws a frame over a rectangle of device pixels: 0 is the first spark, 15 the last of the smoke. Any other
// number draws nothing.
void draw_explosion(QPainter&, const QRectF& at, int frame);
// The same as a thermal sight shows it: the hotter, the whiter.
void draw_hot_explosion(QPainter&, const QRectF& at, int frame);

}   // namespace vorn
