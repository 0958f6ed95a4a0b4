// What rounds do where they strike, and a burning target: frames of pictures that are built into the program,
// each read at its first use.
#pragma once

#include <QPainter>

namespace vorn {

// The hot ones are as a thermal sight shows them: the hotter, the whiter. An explosion fills the frame, a
// fire burns just above the middle of the lower edge and loops without a jump. The foot of a burst is at
// the middle of the lower edge, and its dust reaches a little below.
enum class effect { explosion, hot_explosion, fire, hot_fire, burst_fin, burst_hesh, burst_coax, hot_spot };

// Draws a frame over a rectangle of device pixels: 0 is the first flash, 15 the last of the smoke. Any other
// number draws nothing.
void draw_effect(QPainter&, effect, const QRectF& at, int frame);

}   // namespace vorn
