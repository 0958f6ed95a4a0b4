#include "platform/desktop/author_drawings.h"

#include <QPainterPath>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "platform/desktop/drawing_space.h"
#include "platform/desktop/look.h"

namespace vorn {

namespace {

// Two heads in a row: the fast one of a pair of arrows.
void double_arrow(QPainter& p, const QRectF& at, double turned)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.translate(50, 50);
    p.rotate(turned);
    p.setPen(QPen(QColor(furniture::shadow), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(shade(colour::live));
    for (const double y : {4.0, -38.0}) p.drawPolygon(QPolygonF{{0, y}, {34, y + 36}, {-34, y + 36}});
}

void far_up(QPainter& p, const QRectF& at)
{
    double_arrow(p, at, 0);
}

void far_right(QPainter& p, const QRectF& at)
{
    double_arrow(p, at, 90);
}

void far_down(QPainter& p, const QRectF& at)
{
    double_arrow(p, at, 180);
}

void far_left(QPainter& p, const QRectF& at)
{
    double_arrow(p, at, 270);
}

void stroke_rimmed(QPainter& p, const QPainterPath& path, const QColor& c, double width, double rim)
{
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(0, 0, 0, 210), width + 2 * rim, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPath(path);
    p.setPen(QPen(c, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPath(path);
}

// An angle whose outer corner is the lower right corner, and an arrow that leads into it.
void cursor(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {32, 32});
    p.setClipRect(QRectF(0, 0, 32, 32));
    QPainterPath angle(QPointF(14, 30.5));
    angle.lineTo(30.5, 30.5);
    angle.lineTo(30.5, 14);
    stroke_rimmed(p, angle, shade(colour::sight), 1.5, 1);
    QPainterPath arrow(QPointF(12, 12));
    arrow.lineTo(25, 25);
    arrow.moveTo(25, 18);
    arrow.lineTo(25, 25);
    arrow.lineTo(18, 25);
    stroke_rimmed(p, arrow, shade(colour::sight), 1.5, 1);
}

// On the overview: points with its lower right corner.
void here(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {16, 16});
    p.setPen(QPen(QColor(0, 0, 0, 220), 1.2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    p.setBrush(shade(colour::sight));
    p.drawPolygon(QPolygonF{{15.4, 15.4}, {3, 10.5}, {8.2, 8.2}, {10.5, 3}});
}

// A tag with the number of its position.
void marker(QPainter& p, const QRectF& at, int number)
{
    const drawing_space space(p, at, {24, 21});
    p.setPen(QPen(QColor(0, 0, 0, 230), 1));
    p.setBrush(QColor(0xd8, 0x3a, 0x2b));
    p.drawRoundedRect(QRectF(1.5, 1.5, 21, 18), 4, 4);
    QFont font = text_font(text_size::normal, true, 1);
    font.setPixelSize(13);
    p.setFont(font);
    p.setPen(shade(colour::white));
    p.drawText(QRectF(0, 0.5, 24, 20), static_cast<int>(Qt::AlignCenter), QString::number(number));
}

struct ridge_line {
    double height;   // parts of the picture's height from its top
    double swell, length, offset;
    QRgb crest, foot;
};

constexpr std::array<ridge_line, 4> ridge_lines{{{0.31, 0.030, 0.42, 0.1, 0xff8d9a8e, 0xff87927e},
                                                 {0.36, 0.035, 0.31, 0.7, 0xff7c8869, 0xff74805c},
                                                 {0.47, 0.040, 0.57, 0.3, 0xff6d7a50, 0xff5f6c43},
                                                 {0.66, 0.050, 0.83, 0.0, 0xff59653d, 0xff3f492b}}};

// Empty downland, plain enough to be taken for what it is.
void country(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {1, 1});
    p.setClipRect(QRectF(0, 0, 1, 1));
    p.fillRect(QRectF(0, 0, 1, 1),
               upright(0, 0.4, {{0, QColor(0x86, 0xa0, 0xb4)}, {1, QColor(0xcd, 0xd5, 0xd0)}}));
    for (const ridge_line& r : ridge_lines) {
        QPainterPath land(QPointF(0, 1));
        for (int i = 0; i <= 120; ++i) {
            const double x = i / 120.0, turn = 6.28318530718 * (x / r.length + r.offset);
            land.lineTo(x, r.height - r.swell * (0.7 * std::sin(turn) + 0.3 * std::sin(2.7 * turn + 1)));
        }
        land.lineTo(1, 1);
        p.fillPath(land, upright(r.height - r.swell, 1, {{0, QColor(r.crest)}, {1, QColor(r.foot)}}));
    }
}

struct mark {
    std::string_view name;
    void (*paint)(QPainter&, const QRectF&);
};
constexpr std::array<mark, 7> marks{{{":arrow_up2", far_up},
                                     {":arrow_right2", far_right},
                                     {":arrow_down2", far_down},
                                     {":arrow_left2", far_left},
                                     {":cursor", cursor},
                                     {":here", here},
                                     {":country", country}}};

}   // namespace

bool draw_author_mark(QPainter& p, const std::string& name, const QRectF& at)
{
    constexpr std::string_view numbered = ":marker";
    for (const mark& m : marks) {
        if (name != m.name) continue;
        m.paint(p, at);
        return true;
    }
    if (!name.starts_with(numbered)) return false;
    int number = 0;
    std::from_chars(name.data() + numbered.size(), name.data() + name.size(), number);
    marker(p, at, number);
    return true;
}

}   // namespace vorn
