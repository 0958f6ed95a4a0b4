// The drawings of the range author: double arrows, its two cursors, the numbered markers of the positions,
// and the country that stands in until a picture has been chosen.
#pragma once

#include <QPainter>
#include <string>

namespace vorn {

// Paints the drawing of this name; false when there is none.
bool draw_author_mark(QPainter&, const std::string& name, const QRectF& at);

}   // namespace vorn
