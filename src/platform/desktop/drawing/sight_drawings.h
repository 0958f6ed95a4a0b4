// Draws the marks of both sights as vectors, so that they are sharp at every scale: scales and graticule of
// the visual sight, aiming marks of the thermal sight. Also draws the explosion and the default target, which
// are pictures.
#pragma once

#include <QPainter>
#include <string>

namespace vorn {

// Paints the mark of this name; false when there is none.
bool draw_sight_mark(QPainter&, const std::string& name, const QRectF& at);

}   // namespace vorn
