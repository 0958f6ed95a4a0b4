// What a sight shows besides the files in data/pictures: marks drawn from paths, since their places or line
// widths are computed; the explosion and the default target.
#include <QPainterPath>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "gunnery/sight.h"
#include "platform/desktop/drawing/drawings.h"
#include "platform/desktop/drawing/effects.h"
#include "platform/desktop/drawing/look.h"
#include "platform/desktop/drawing/pictures.h"
#include "state/numbers.h"

namespace vorn {

namespace {

constexpr QColor outline(0, 0, 0, 150);

// Where a mark is drawn. Its parts are given in twips from its upper left corner.
struct canvas {
    QPainter& p;
    QRectF at;
    QSizeF size;   // of the mark, twips

    double across() const { return at.width() / size.width(); }
    double down() const { return at.height() / size.height(); }
    QPointF point(double x, double y) const { return at.topLeft() + QPointF(x * across(), y * down()); }
    // Device pixels for each pixel of the form at 1024 x 768.
    double scale() const { return twips_per_pixel * down(); }
};

// Strokes a path with a dark outline, so that it is visible against sky and ground.
void stroke(const canvas& s, const QPainterPath& path, double width = 1.3)
{
    const double line = std::max(1.0, width * s.scale());
    s.p.setRenderHint(QPainter::Antialiasing);
    s.p.setBrush(Qt::NoBrush);
    s.p.setPen(QPen(outline, line * 2.6, Qt::SolidLine, Qt::FlatCap));
    s.p.drawPath(path);
    s.p.setPen(QPen(shade(colour::sight), line, Qt::SolidLine, Qt::FlatCap));
    s.p.drawPath(path);
}

void line(QPainterPath& path, const QPointF& from, const QPointF& to)
{
    path.moveTo(from);
    path.lineTo(to);
}

// The nearest y at which the upper edge of a horizontal line of this width is between two rows of pixels, so
// that all lines of a scale are equally bright.
double level(double y, double width)
{
    return std::round(y - width / 2) + width / 2;
}

void figure(const canvas& s, const QPointF& middle, double pixels, const QString& text)
{
    QFont font = text_font(text_size::small, true, 1);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels * s.scale()))));
    const QFontMetricsF size(font);
    QPainterPath path;
    path.addText(middle - QPointF(size.horizontalAdvance(text) / 2, -size.capHeight() / 2), font, text);
    s.p.setRenderHint(QPainter::Antialiasing);
    s.p.strokePath(path, QPen(outline, std::max(1.0, 2 * s.scale())));
    s.p.fillPath(path, shade(colour::sight));
}

// The visual sight ------------------------------------------------------------------------------------------

// Distance in twips from the top of a column down to the HESH drop at a range.
double fall(int hundreds, const area& column)
{
    return visualsight.aim.Top + visualsight.hesh.to.at(100 * hundreds) - column.Top;
}

// A column of ranges in hundreds of metres, each at the height of the HESH drop at that range.
template <const area& column>
void scale(const canvas& s, int)
{
    for (int hundreds = 8; hundreds <= 23; ++hundreds)
        figure(s, s.point(column.Width / 2, fall(hundreds, column)), 9.5, QString::number(hundreds));
}

void ticks(const canvas& s, int)
{
    QPainterPath path;
    for (int hundreds = 7; hundreds <= 20; ++hundreds) {
        const double half = hundreds % 2 == 0 ? 120 : 75;
        const QPointF middle = s.point(127, fall(hundreds, ticks_left));
        const double y = level(middle.y(), std::max(1.0, s.scale()));
        line(path, {middle.x() - half * s.across(), y}, {middle.x() + half * s.across(), y});
    }
    stroke(s, path, 1);
}

// A chevron whose tip is laid on the target, with a figure below it. In the first row of the graticule the
// figures count from 0 to either side; in the others they are ranges in hundreds of metres.
void graticule(const canvas& s, int number)
{
    static constexpr table<const char*, 15> figures{"8",  "4",  "0",  "4",  "8",  "9",  "9", "13",
                                                    "13", "17", "17", "17", "21", "21", "21"};
    if (number < 0 || number >= figures.size()) return;
    QPainterPath path;
    path.moveTo(s.point(330, 450));
    path.lineTo(s.point(397, 385));
    path.lineTo(s.point(465, 450));
    stroke(s, path, 1);
    figure(s, s.point(397, 560), 9, figures[number]);
}

// The thermal sight. Its other marks are files: these two become as small as a far target, and then their
// lines are still a pixel wide.
void laser_mark(const canvas& s, int)
{
    QPainterPath path;
    line(path, s.point(0, 240), s.point(180, 240));
    line(path, s.point(300, 240), s.point(480, 240));
    line(path, s.point(240, 0), s.point(240, 180));
    line(path, s.point(240, 300), s.point(240, 480));
    stroke(s, path, 1.6);
}

void corner(const canvas& s, QPainterPath& path, double x, double y, double along)
{
    path.moveTo(s.point(x, y + (y > 240 ? -along : along)));
    path.lineTo(s.point(x, y));
    path.lineTo(s.point(x + (x > 240 ? -along : along), y));
}

void ballistic_mark(const canvas& s, int)
{
    QPainterPath path;
    for (const double x : {12.0, 468.0})
        for (const double y : {12.0, 468.0}) corner(s, path, x, y, 110);
    stroke(s, path, 1.6);
    s.p.setPen(QPen(outline, 1));
    s.p.setBrush(shade(colour::sight));
    const double r = 2 * s.scale();
    s.p.drawEllipse(s.point(240, 240), r, r);
}

// Pictures --------------------------------------------------------------------------------------------------

// The target icon where no other is named or can be loaded: the tank of the shipped visual ranges.
void plain_target(const canvas& s, int)
{
    static const loaded_picture tank = read_picture("target", ":/pictures/target.ico");
    if (tank.result) draw_picture(s.p, *tank.result, s.at.toRect());
}

template <bool hot>
void explosion_frame(const canvas& s, int number)
{
    draw_effect(s.p, effect::explosion, hot, s.at, number);
}

constexpr QSizeF size_of(const area& r)
{
    return {r.Width, r.Height};
}

struct mark {
    std::string_view name;   // without its number
    QSizeF size;             // twips; unused for pictures
    void (*paint)(const canvas&, int number);
};
constexpr mark marks[] = {{":scale_left", size_of(figures_left), scale<figures_left>},
                          {":scale_right", size_of(figures_right), scale<figures_right>},
                          {":ticks", size_of(ticks_left), ticks},
                          {":graticule", {795, 795}, graticule},
                          {":lam", {480, 480}, laser_mark},
                          {":bam", {480, 480}, ballistic_mark},
                          {":target", {}, plain_target},
                          {":explosion", {}, explosion_frame<false>},
                          {":hotexplosion", {}, explosion_frame<true>}};

}   // namespace

bool draw_sight_mark(QPainter& p, const std::string& name, const QRectF& at)
{
    const std::size_t end = name.find_last_not_of("0123456789") + 1;
    int number = -1;
    std::from_chars(name.data() + end, name.data() + name.size(), number);
    for (const mark& m : marks) {
        if (name.compare(0, end, m.name) != 0) continue;
        p.save();
        m.paint({p, at, m.size}, number);
        p.restore();
        return true;
    }
    return false;
}

}   // namespace vorn
