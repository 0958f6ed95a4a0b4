#include "platform/desktop/drawing/sight.h"

#include <algorithm>
#include <cmath>

#include "platform/desktop/drawing/look.h"
#include "platform/desktop/drawing/pictures.h"

namespace vorn {

static int device_pixel(double twips, double scale)
{
    // Clamped far outside any screen, so that it fits into an int.
    return static_cast<int>(std::lround(std::clamp(twips / twips_per_pixel * scale, -1e6, 1e6)));
}

QRect device_rect(const object_fields& o, double scale)
{
    const QPoint from(device_pixel(o.Left, scale), device_pixel(o.Top, scale));
    const int right = device_pixel(o.Left + o.Width, scale);
    const int bottom = device_pixel(o.Top + o.Height, scale);
    return QRect(from, QSize(right - from.x(), bottom - from.y()));
}

static double shape_line(double scale)
{
    return std::max(1.0, scale * 1.25);
}

// A mark of the sight has a dark outline, so that it is visible against sky and ground.
static void draw_shape(QPainter& p, const object_fields& o, const QRect& at, double scale)
{
    const double line = shape_line(scale);
    const bool filled = o.Shape == shape_kind::filled_ellipse;
    const bool dashed = o.Shape == shape_kind::dashed_rectangle;
    const QColor dark(0, 0, 0, 190);
    const QColor c = shade(o.ForeColor);
    const double inset = filled ? 0 : line / 2;
    const QRectF r = QRectF(at).adjusted(inset, inset, -inset, -inset);
    const auto draw = [&] { dashed || o.Shape == shape_kind::rectangle ? p.drawRect(r) : p.drawEllipse(r); };
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(o.BackColor == colour::ground ? Qt::NoBrush : QBrush(back_shade(o.BackColor)));
    if (o.ForeColor == colour::sight) {
        p.setPen(QPen(dark, line * (filled ? 2 : 3)));
        draw();
    }
    if (filled) p.setBrush(c);
    p.setPen(filled ? QPen(Qt::NoPen) : QPen(c, line, dashed ? Qt::DashLine : Qt::SolidLine));
    draw();
}

static void draw_cached_shape(QPainter& p, const object_fields& o, const QRect& at, double scale)
{
    const int margin = static_cast<int>(std::ceil(shape_line(scale)));   // of the dark outline
    const QString key = QString("shape %1 %2 %3 %4")
                            .arg(static_cast<int>(o.Shape))
                            .arg(static_cast<int>(o.ForeColor))
                            .arg(static_cast<int>(o.BackColor))
                            .arg(scale);
    draw_cached(p, key, at.adjusted(-margin, -margin, margin, margin),
                [&](QPainter& q) { draw_shape(q, o, at, scale); });
}

// A white core with a coloured glow. A minimum size keeps it visible at any range.
void draw_tracer(QPainter& p, const object_fields& o, const QRectF& at, double scale)
{
    const QColor c = shade(o.ForeColor);
    constexpr double min_radius = 1.4;   // of the core, pixels at scale 1
    constexpr double reach = 1.5;        // of the glow beyond the core, pixels at scale 1
    const double radius = std::max(at.width() / 2.0, min_radius * scale);
    const double light = radius * 1.35 + reach * scale;
    const QPointF middle = at.center();
    QColor faint = c.darker(115), gone = faint;
    faint.setAlphaF(0.43f);
    gone.setAlpha(0);
    QRadialGradient glow(middle, light);
    glow.setColorAt(0, mixed(c, Qt::white, 0.93));
    glow.setColorAt(0.3, mixed(c, Qt::white, 0.6));
    glow.setColorAt(0.55, mixed(c, Qt::white, 0.15));
    glow.setColorAt(0.78, faint);
    glow.setColorAt(1, gone);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawEllipse(middle, light, light);
}

bool is_tracer(const object_fields& o)
{
    return o.ForeColor == colour::tracer || o.ForeColor == colour::hottracer;
}

Qt::Alignment text_alignment(const object_fields& o)
{
    constexpr Qt::AlignmentFlag across[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const bool few_lines = o.Height / twips_per_pixel < 3 * line_height(o.size);
    return across[static_cast<int>(o.Alignment)] | (few_lines ? Qt::AlignVCenter : Qt::AlignTop);
}

static void draw_label(QPainter& p, const object_fields& o, const QRect& at, double scale)
{
    const QString text = QString::fromStdString(o.Caption);
    if (o.BackColor != colour::ground) p.fillRect(at, back_shade(o.BackColor));
    p.setFont(text_font(o.size, o.bold, scale));
    const int flags = static_cast<int>(text_alignment(o)) | Qt::TextWordWrap;
    const int outline = std::max(1, static_cast<int>(std::lround(scale)));
    p.setPen(QColor(0, 0, 0, 210));
    if (o.ForeColor == colour::sight)
        for (const QPoint d :
             {QPoint(-outline, 0), QPoint(outline, 0), QPoint(0, -outline), QPoint(0, outline)})
            p.drawText(at.translated(d), flags, text);
    p.setPen(shade(o.ForeColor));
    p.drawText(at, flags, text);
}

void draw_object(QPainter& p, const object_fields& o, const QRect& at, double scale)
{
    if (o.kind == object_kind::image) {
        p.setOpacity(o.Pale ? pale_picture : 1);
        draw_picture(p, o.Picture, at);
        p.setOpacity(1);
    }
    if (o.kind == object_kind::shape)
        is_tracer(o) ? draw_tracer(p, o, QRectF(at), scale) : draw_cached_shape(p, o, at, scale);
    if (o.kind == object_kind::label) draw_label(p, o, at, scale);
}

}   // namespace vorn
