// Pictures that are built into the program: the SVG files of data/pictures, and the marks of the sights.
// Their names begin with a colon.
#pragma once

#include <QPainter>
#include <string>

#include "platform/objects.h"

namespace vorn {

// True when the picture is built in, false when it comes from a file.
bool is_drawing(const picture&);

// Paints the picture of this name (":arrow_up", ":lamp_green", ":marker7"). An unknown name paints nothing.
void draw_named(QPainter&, const std::string& name, const QRectF& at);
// Paints the sight mark of this name. False if there is no such mark.
bool draw_sight_mark(QPainter&, const std::string& name, const QRectF& at);

}   // namespace vorn
