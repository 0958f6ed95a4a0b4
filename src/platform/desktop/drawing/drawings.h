// Built-in pictures whose names begin with a colon: the SVG files of data/pictures, the marks of the sights,
// the explosion and the default target.
#pragma once

#include <QPainter>
#include <string>

#include "platform/objects.h"

namespace vorn {

// Whether the picture is built in.
bool is_drawing(const picture&);

// Paints the picture of this name (":arrow_up", ":lamp_green", ":marker7"). An unknown name paints nothing.
void draw_named(QPainter&, const std::string& name, const QRectF& at);
// Paints the sight mark, frame of the explosion or default target of this name. False if there is none.
bool draw_sight_mark(QPainter&, const std::string& name, const QRectF& at);

}   // namespace vorn
