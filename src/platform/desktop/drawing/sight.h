// Draws single objects: those in a sight, which have no widgets of their own, and shapes outside a sight.
#pragma once

#include <QPainter>

#include "platform/objects.h"

namespace vorn {

// The opacity of a picture that is pale or disabled.
inline constexpr double pale_picture = 0.5, disabled_picture = 0.35;

// The rectangle of an object in device pixels. The edges are rounded, not the size, so that there is no gap
// between adjacent objects.
QRect device_rect(const object_fields&, double scale);

// A tracer is a round in flight; its place needn't be whole pixels.
bool is_tracer(const object_fields&);
void draw_tracer(QPainter&, const object_fields&, const QRectF& at, double scale);

// The alignment of a label's text: vertically centred if the label has room for one or two lines, else at the
// top.
Qt::Alignment text_alignment(const object_fields&);

// Paints an image, a shape or a label in a rectangle of device pixels. `scale` is device pixels for each
// pixel of the form at 1024 x 768.
void draw_object(QPainter&, const object_fields&, const QRect& at, double scale);

}   // namespace vorn
