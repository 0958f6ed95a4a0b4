// What lies in a sight is not made of widgets: one widget paints it all, straight from the source pictures.
// The same painting serves images and shapes outside a sight.
#pragma once

#include <QPainter>

#include "platform/objects.h"

namespace vorn {

// Opacity of a picture that is pale or can't be used.
inline constexpr double pale_picture = 0.35;

// Device pixels of an object: both edges are rounded, so that neighbours meet without a seam.
QRect device_rect(const object_fields&, double scale);

// Where a label's text lies: a line or two in the middle of its height, a longer text from the top.
Qt::Alignment text_alignment(const object_fields&);

// Paints an image, a shape or a label over a rectangle of device pixels; `scale` device pixels go to a
// designed pixel.
void draw_object(QPainter&, const object_fields&, const QRect& at, double scale);

}   // namespace vorn
