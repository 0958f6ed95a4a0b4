// The marks of both sights as drawings: scales and graticule of the visual sight, marks of the thermal one,
// and the plain target. Vectors, so that they are sharp at every scale; only explosion and target are
// pictures.
#pragma once

#include <QPainter>
#include <string>

namespace vorn {

// Paints the mark of this name; false when there is none.
bool draw_sight_mark(QPainter&, const std::string& name, const QRectF& at);

}   // namespace vorn
