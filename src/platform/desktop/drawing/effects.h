// Animations of explosions, bursts and burning targets. Their frames are pictures built into the program.
#pragma once

#include <QPainter>

namespace vorn {

// An explosion fills the rectangle given to draw_effect. The foot of a fire is just above the middle of the
// rectangle's lower edge; the frames of a fire repeat without a jump. The foot of a burst (FIN, HESH or
// COAX) is at the middle of the lower edge; its dust reaches a little below.
inline constexpr int frames = 16;   // of each effect

enum class effect { explosion, fire, fin, hesh, coax };

// Lets another thread read the animations for the thermal sight or for the visual one (about 0.1 s). The
// animations for the other sight are dropped.
void read_effects(bool hot);

// Draws frame 0 to 15 in a rectangle of device pixels; any other number draws nothing. `hot`: as on the
// thermal sight, where hotter things are whiter. Waits for the animations if they haven't been read.
void draw_effect(QPainter&, effect, bool hot, const QRectF& at, int frame);

}   // namespace vorn
