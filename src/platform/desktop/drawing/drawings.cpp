#include "platform/desktop/drawing/drawings.h"

#include <QSvgRenderer>
#include <algorithm>
#include <string_view>

#include "platform/desktop/drawing/look.h"

namespace vorn {

// Paints data/pictures/NAME.svg. A name without a file paints nothing. Landscapes are stretched to the
// rectangle; all other pictures keep their aspect ratio.
static void draw_svg(QPainter& p, std::string_view name, const QRectF& at)
{
    QSvgRenderer svg(QString(":/pictures/%1.svg").arg(QString::fromUtf8(name.substr(1))));
    if (!svg.isValid()) return;
    const bool landscape = name == ":country" || name == ":target_ground";
    svg.setAspectRatioMode(landscape ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio);
    p.save();
    p.setClipRect(at, Qt::IntersectClip);
    svg.render(&p, at);
    p.restore();
}

// The marker of a target position in the range author, with its number.
static void draw_marker(QPainter& p, std::string_view number, const QRectF& at)
{
    draw_svg(p, ":marker", at);
    QFont font = text_font(text_size::normal, true, 1);
    font.setPixelSize(std::max(1, static_cast<int>(at.height() * 0.62)));
    p.setFont(font);
    p.setPen(shade(colour::white));
    p.drawText(at, Qt::AlignCenter, QString::fromUtf8(number));
}

bool is_drawing(const picture& p)
{
    return p.source.starts_with(':');
}

void draw_named(QPainter& p, const std::string& name, const QRectF& at)
{
    constexpr std::string_view marker = ":marker";
    if (at.isEmpty() || draw_sight_mark(p, name, at)) return;
    if (name.starts_with(marker))
        draw_marker(p, std::string_view(name).substr(marker.size()), at);
    else
        draw_svg(p, name, at);
}

}   // namespace vorn
