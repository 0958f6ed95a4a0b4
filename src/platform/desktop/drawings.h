// Drawings of the machine's own, painted from lines and fills at whatever size is asked for.
#pragma once

#include <QPainter>
#include <string>

#include "platform/objects.h"

namespace vorn {

// Whether the picture is one of these rather than a file.
bool is_drawing(const picture&);

// Paints the drawing of this name (":arrow_up", ":lamp_ready", ...); an unknown name paints nothing.
void draw_named(QPainter&, const std::string& name, const QRectF& at);

}   // namespace vorn
