#include "platform/desktop/drawings.h"

#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/desktop/author_drawings.h"
#include "platform/desktop/drawing_space.h"
#include "platform/desktop/look.h"
#include "platform/desktop/sight_drawings.h"

namespace vorn {

namespace {

void draw_text(QPainter& p, const QRectF& at, double pixels, bool bold, Qt::Alignment align,
               const QString& text)
{
    QFont font = text_font(text_size::normal, bold, 1);
    font.setPixelSize(std::max(1, static_cast<int>(pixels)));
    p.setFont(font);
    p.drawText(at, static_cast<int>(align) | Qt::TextSingleLine, text);
}

// Arrows ---------------------------------------------------------------------------------------------------

void draw_arrow(QPainter& p, const QRectF& at, double turned)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.translate(50, 50);
    p.rotate(turned);
    p.setPen(QPen(QColor(furniture::shadow), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(shade(colour::live));
    p.drawPolygon(QPolygonF{{0, -36}, {32, -2}, {13, -2}, {13, 34}, {-13, 34}, {-13, -2}, {-32, -2}});
}

void arrow_up(QPainter& p, const QRectF& at)
{
    draw_arrow(p, at, 0);
}

void arrow_right(QPainter& p, const QRectF& at)
{
    draw_arrow(p, at, 90);
}

void arrow_down(QPainter& p, const QRectF& at)
{
    draw_arrow(p, at, 180);
}

void arrow_left(QPainter& p, const QRectF& at)
{
    draw_arrow(p, at, 270);
}

// Indicator lamps ------------------------------------------------------------------------------------------

// A glass in a dark bezel; a lit one glows beyond its rim.
void draw_lamp(QPainter& p, const QRectF& at, const QColor& glass, bool lit)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.setPen(Qt::NoPen);
    if (lit) {
        QRadialGradient glow(50, 50, 50);
        glow.setColorAt(0.55, with_alpha(glass, 0.6));
        glow.setColorAt(1, with_alpha(glass, 0));
        p.setBrush(glow);
        p.drawEllipse(QRectF(0, 0, 100, 100));
    }
    p.setBrush(QColor(furniture::shadow));
    p.drawEllipse(QRectF(11, 11, 78, 78));
    p.setBrush(QColor(furniture::edge));
    p.drawEllipse(QRectF(15, 15, 70, 70));
    QRadialGradient body(50, 50, 34, 41, 37);
    body.setColorAt(0, lit ? mixed(glass, Qt::white, 0.75) : glass.lighter(170));
    body.setColorAt(0.45, glass);
    body.setColorAt(1, glass.darker(lit ? 145 : 130));
    p.setBrush(body);
    p.drawEllipse(QRectF(21, 21, 58, 58));
}

void lamp_off(QPainter& p, const QRectF& at)
{
    draw_lamp(p, at, QColor(0x3a, 0x38, 0x2c), false);
}

void lamp_amber(QPainter& p, const QRectF& at)
{
    draw_lamp(p, at, QColor(0xff, 0xae, 0x21), true);
}

void lamp_green(QPainter& p, const QRectF& at)
{
    draw_lamp(p, at, QColor(0x4f, 0xd1, 0x4a), true);
}

// The reticle and the tank that the title, the emblem and the icon share -----------------------------------

void draw_reticle(QPainter& p, const QPointF& centre, double radius, const QColor& c, double line)
{
    const auto at = [&](double x, double y) { return centre + QPointF(x * radius, y * radius); };
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(c, line, Qt::SolidLine, Qt::FlatCap));
    p.drawEllipse(centre, radius, radius);
    for (const QPointF d : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        p.drawLine(at(d.x() * 0.22, d.y() * 0.22), at(d.x() * 1.22, d.y() * 1.22));
    for (int i = 2; i <= 8; i += 2) {
        const double half = i % 4 == 0 ? 0.07 : 0.04;
        p.drawLine(at(0.1 * i, -half), at(0.1 * i, half));
        p.drawLine(at(-0.1 * i, -half), at(-0.1 * i, half));
        p.drawLine(at(-half, 0.1 * i), at(half, 0.1 * i));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    p.drawEllipse(centre, line * 1.1, line * 1.1);
}

using outline = QPolygonF;

// A tank seen from its left, gun to the left, in a box 100 wide whose ground line is at 33.4.
QPainterPath tank()
{
    QPainterPath t;
    t.setFillRule(Qt::WindingFill);   // its pieces overlap
    t.addPolygon(outline{{0, 11.2}, {1.6, 11.2}, {46, 10.4}, {46, 13.4}, {1.6, 12.8}, {0, 12.8}});
    t.addRoundedRect(QRectF(17, 10.3, 8, 3.3), 0.8, 0.8);
    t.addPolygon(outline{{38.5, 15},
                         {42.5, 8.6},
                         {47, 7.2},
                         {60, 6},
                         {61, 4.1},
                         {67.5, 4.1},
                         {68.5, 6.1},
                         {76, 6.4},
                         {78, 5.2},
                         {88, 5.6},
                         {89.5, 8},
                         {90, 14},
                         {86, 16.5},
                         {40, 16.5}});
    t.addRect(QRectF(56, 3.4, 6, 0.7));      // the commander's machine gun
    t.addRect(QRectF(84.6, -5, 0.35, 11));   // aerials
    t.addRect(QRectF(80.4, -3, 0.3, 9));
    t.addPolygon(
        outline{{24, 21.5}, {31, 17.2}, {38, 16}, {95, 16}, {99.5, 18.2}, {100, 22.5}, {97, 27}, {27, 27}});
    t.addPolygon(outline{{24.5, 22}, {99.5, 22}, {94.5, 30.5}, {89, 33.4}, {33, 33.4}, {28.5, 31}});
    return t;
}

// Dark as it stands, with its road wheels just to be told apart.
void place_tank(QPainter& p, const QPointF& ground, double width, const QColor& c)
{
    p.save();
    p.translate(ground);
    p.scale(width / 100, width / 100);
    p.translate(-62, -33.4);
    p.fillPath(tank(), c);
    p.setPen(QPen(c.lighter(165), 0.5));
    p.setBrush(Qt::NoBrush);
    for (int i = 0; i < 6; ++i) p.drawEllipse(QPointF(35.5 + i * 10.2, 29), 3.6, 3.6);
    p.drawLine(QPointF(30, 24.2), QPointF(96, 24.2));
    p.restore();
}

void icon(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.setPen(Qt::NoPen);
    p.setBrush(upright(0, 100, {{0, QColor(0x5b, 0x60, 0x48)}, {1, shade(colour::ground).darker(130)}}));
    p.drawRoundedRect(QRectF(2, 2, 96, 96), 20, 20);
    draw_reticle(p, {50, 50}, 33, shade(colour::live), 6);
}

// The title screen -----------------------------------------------------------------------------------------

struct ridge {
    double height;           // of its mean line, pixels from the top of 768
    double swell;            // how far it rises and falls
    double length, offset;   // of its longest fold, pixels
    QRgb crest, foot;
};

// From the farthest to the nearest.
constexpr std::array<ridge, 5> ridges{{
    {418, 16, 420, 130, 0xff8a6f52, 0xff7d674e},
    {444, 22, 310, 40, 0xff6b5a43, 0xff5c5040},
    {478, 26, 520, 300, 0xff4d4735, 0xff413d2f},
    {532, 30, 700, 90, 0xff34342a, 0xff2a2b22},
    {628, 34, 900, 520, 0xff20211a, 0xff12130e},
}};

double crest(const ridge& r, double x)
{
    const double turn = 6.28318530718 * (x + r.offset) / r.length;
    return r.height -
           r.swell * (0.6 * std::sin(turn) + 0.28 * std::sin(2.3 * turn + 1.1) + 0.12 * std::sin(5.9 * turn));
}

void draw_ridge(QPainter& p, const ridge& r)
{
    QPainterPath land(QPointF(-4, 772));
    for (double x = -4; x <= 1028; x += 4) land.lineTo(x, crest(r, x));
    land.lineTo(1028, 772);
    p.fillPath(land,
               upright(r.height - r.swell, r.height + 110, {{0, QColor(r.crest)}, {1, QColor(r.foot)}}));
}

// A hedge of round crowns along part of a crest.
void draw_hedge(QPainter& p, const ridge& r, double from, double to, double size)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(r.crest).darker(122));
    int n = 0;
    for (double x = from; x < to; x += size * 0.8, ++n) {
        const double big = size * (0.7 + 0.3 * std::sin(n * 2.7));
        p.drawEllipse(QPointF(x, crest(r, x) - big * 0.35), big, big * 0.8);
    }
}

void draw_dusk(QPainter& p)
{
    p.fillRect(QRectF(-4, -4, 1032, 776), upright(0, 440,
                                                  {{0, QColor(0x15, 0x1b, 0x1f)},
                                                   {0.35, QColor(0x2d, 0x33, 0x32)},
                                                   {0.66, QColor(0x6d, 0x5a, 0x41)},
                                                   {0.88, QColor(0xcf, 0x8d, 0x45)},
                                                   {1, QColor(0xf0, 0xb8, 0x66)}}));
    QRadialGradient sun(690, 410, 430);
    sun.setColorAt(0, QColor(255, 216, 140, 190));
    sun.setColorAt(0.12, QColor(255, 196, 110, 120));
    sun.setColorAt(1, QColor(255, 170, 80, 0));
    p.fillRect(QRectF(-4, -4, 1032, 776), sun);
}

// A long cloud without an edge: one soft ellipse of many.
void draw_wisp(QPainter& p, const QPointF& at, const QSizeF& size, const QColor& c)
{
    p.save();
    p.translate(at);
    p.scale(size.width() / 2, size.height() / 2);
    QRadialGradient soft(0, 0, 1);
    soft.setColorAt(0, c);
    soft.setColorAt(0.5, with_alpha(c, c.alphaF() * 0.55));
    soft.setColorAt(1, with_alpha(c, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(soft);
    p.drawEllipse(QPointF(0, 0), 1, 1);
    p.restore();
}

// Bands of cloud, dark above and lit from below, nearer to each other towards the horizon.
void draw_clouds(QPainter& p)
{
    for (int i = 0; i < 46; ++i) {
        const double deep = i / 46.0;
        const double x = std::fmod(i * 271.0 + 140 * std::sin(i * 1.7), 1150) - 60;
        const double y = 150 + 225 * (1 - (1 - deep) * (1 - deep));
        const QSizeF size(420 - 170 * deep + 90 * std::sin(i * 2.3), 30 - 20 * deep + 6 * std::sin(i * 3.1));
        draw_wisp(p, {x, y}, size, QColor(38, 38, 38, 120));
        draw_wisp(p, {x + 10, y + size.height() * 0.3}, size * 0.8,
                  QColor(236, 158, 88, 34 + static_cast<int>(50 * deep)));
    }
}

void draw_shade_bands(QPainter& p)
{
    p.fillRect(QRectF(-4, -4, 1032, 776), upright(0, 768,
                                                  {{0, QColor(10, 11, 8, 190)},
                                                   {0.2, QColor(10, 11, 8, 60)},
                                                   {0.3, QColor(10, 11, 8, 0)},
                                                   {0.74, QColor(10, 11, 8, 0)},
                                                   {0.84, QColor(10, 11, 8, 150)},
                                                   {1, QColor(10, 11, 8, 225)}}));
    QRadialGradient corners(512, 400, 700);
    corners.setColorAt(0.55, QColor(0, 0, 0, 0));
    corners.setColorAt(1, QColor(0, 0, 0, 130));
    p.fillRect(QRectF(-4, -4, 1032, 776), corners);
}

void title(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {1024, 768});
    p.setClipRect(QRectF(0, 0, 1024, 768));
    draw_dusk(p);
    draw_clouds(p);
    for (std::size_t i = 0; i < ridges.size(); ++i) {
        const ridge& r = ridges[i];
        // Before their ridge, so that it hides what they stand in.
        if (i == 2) place_tank(p, {690, crest(r, 690) + 3}, 56, QColor(0x2a, 0x28, 0x1e));
        if (i == 3) place_tank(p, {300, crest(r, 300) + 9}, 270, QColor(0x13, 0x14, 0x0f));
        if (i == 1) draw_hedge(p, r, 130, 330, 5);
        if (i == 2) draw_hedge(p, r, 790, 1000, 8);
        draw_ridge(p, r);
    }
    draw_reticle(p, {690, crest(ridges[2], 690) - 9}, 86, with_alpha(shade(colour::live), 0.72), 1.6);
    draw_shade_bands(p);
}

// The title picture of the quick start ---------------------------------------------------------------------

void draw_emblem_land(QPainter& p)
{
    QPainterPath land(QPointF(0, 173));
    for (double x = 0; x <= 590; x += 5)
        land.lineTo(x, 140 - 7 * std::sin(x / 95 + 1.9) - 2 * std::sin(x / 31));
    land.lineTo(590, 173);
    p.fillPath(land, QColor(0x17, 0x18, 0x12));
    place_tank(p, {470, 138}, 176, QColor(0x17, 0x18, 0x12));
}

void emblem(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {590, 173});
    QPainterPath plate;
    plate.addRoundedRect(QRectF(0.5, 0.5, 589, 172), 5, 5);
    p.setClipPath(plate);
    p.fillPath(plate, upright(0, 173,
                              {{0, QColor(0x20, 0x25, 0x23)},
                               {0.55, QColor(0x6a, 0x59, 0x40)},
                               {0.85, QColor(0xd9, 0x99, 0x4e)}}));
    draw_emblem_land(p);
    draw_reticle(p, {452, 96}, 46, with_alpha(shade(colour::live), 0.8), 1.4);
    p.setPen(shade(colour::text));
    draw_text(p, QRectF(28, 34, 380, 62), 56, true, Qt::AlignLeft | Qt::AlignVCenter, "V.O.R.N.");
    p.setPen(shade(colour::highlight));
    draw_text(p, QRectF(31, 98, 380, 24), 16, true, Qt::AlignLeft | Qt::AlignVCenter, "QUICK START");
    p.setClipping(false);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(furniture::edge), 1));
    p.drawPath(plate);
}

// The set-up screen ----------------------------------------------------------------------------------------

// A round target with rings, dark enough for the red number that stands on it.
void practice_target(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.setPen(QPen(QColor(furniture::edge).lighter(135), 3));
    p.setBrush(QColor(0x12, 0x13, 0x0d));
    p.drawEllipse(QPointF(50, 50), 46, 46);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(furniture::edge), 2));
    p.drawEllipse(QPointF(50, 50), 34, 34);
    for (const auto& [x, y] : {std::pair{50, 4}, {50, 86}, {4, 50}, {86, 50}}) {
        const bool upright = x == 50;
        p.drawLine(QPointF(x, y), QPointF(x + (upright ? 0 : 10), y + (upright ? 10 : 0)));
    }
}

// The last of the practice targets: a red disc with its word.
void stop_disc(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.setPen(QPen(QColor(0xff, 0xe9, 0xd8), 4));
    p.setBrush(upright(0, 100, {{0, QColor(0xd8, 0x35, 0x28)}, {1, QColor(0x9c, 0x1d, 0x15)}}));
    p.drawEllipse(QPointF(50, 50), 46, 46);
    p.setPen(shade(colour::white));
    draw_text(p, QRectF(4, 30, 92, 40), 28, true, Qt::AlignCenter, "STOP");
}

// What ABOUT lays over the instructions: the middle of the title's country, and what the program is.
void program(QPainter& p, const QRectF& at)
{
    const QSizeF whole = QSizeF(1024, 768).scaled(at.size(), Qt::KeepAspectRatioByExpanding);
    p.save();
    p.setClipRect(at);
    title(p, QRectF(at.center() - QPointF(whole.width(), whole.height()) / 2, whole));
    const drawing_space space(p, at, {220, 204});
    p.setPen(shade(colour::highlight));
    draw_text(p, QRectF(0, 18, 220, 40), 32, true, Qt::AlignCenter, "V.O.R.N.");
    p.setPen(shade(colour::text));
    draw_text(p, QRectF(0, 162, 220, 16), 12, true, Qt::AlignCenter, "MOBILE TURRET DRILL CONSOLE");
    draw_text(p, QRectF(0, 180, 220, 16), 12, false, Qt::AlignCenter, "CHALLENGER 1  (VER 2.0)");
    p.restore();
}

// The debrief ----------------------------------------------------------------------------------------------

// Strokes a mark's path with a dark rim, so that it is seen on any picture.
void stroke_mark(QPainter& p, const QPainterPath& path, const QColor& c, double width)
{
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(0, 0, 0, 200), width + 6, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(path);
    p.setPen(QPen(c, width, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(path);
}

QPainterPath strokes(std::initializer_list<std::pair<QPointF, QPointF>> lines)
{
    QPainterPath path;
    for (const auto& [from, to] : lines) {
        path.moveTo(from);
        path.lineTo(to);
    }
    return path;
}

// The four marks differ in shape as well as in colour, and each leaves its middle free.
void mark_centre(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {100, 100});
    stroke_mark(
        p, strokes({{{50, 14}, {50, 40}}, {{50, 60}, {50, 86}}, {{14, 50}, {40, 50}}, {{60, 50}, {86, 50}}}),
        shade(colour::white), 6);
}

void mark_laze(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {100, 100});
    QPainterPath path;
    path.addEllipse(QPointF(50, 50), 30, 30);
    stroke_mark(p, path, QColor(0x5f, 0xc8, 0xff), 6);
}

void mark_aim(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {100, 100});
    QPainterPath path;
    path.addPolygon(QPolygonF{{50, 14}, {86, 50}, {50, 86}, {14, 50}, {50, 14}});
    stroke_mark(p, path, shade(colour::live), 6);
}

void mark_fall(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {100, 100});
    stroke_mark(
        p, strokes({{{24, 24}, {42, 42}}, {{58, 58}, {76, 76}}, {{76, 24}, {58, 42}}, {{42, 58}, {24, 76}}}),
        shade(colour::red), 9);
}

// Points with its upper left corner at the target's place on the strip, which is the corner of the target.
void strip_pointer(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {100, 100});
    QPainterPath path;
    path.addPolygon(QPolygonF{{6, 6}, {70, 34}, {44, 44}, {34, 70}, {6, 6}});
    p.setPen(QPen(QColor(0, 0, 0, 220), 6));
    p.setBrush(shade(colour::live));
    p.drawPath(path);
}

// Country behind the target of the debrief, plain enough for the marks: its ground line is that of the
// target.
void target_ground(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {305, 217});
    constexpr double horizon = 96;
    p.fillRect(QRectF(0, 0, 305, horizon),
               upright(0, horizon, {{0, QColor(0x8f, 0xa5, 0xb4)}, {1, QColor(0xc4, 0xcc, 0xc4)}}));
    p.fillRect(QRectF(0, horizon, 305, 217 - horizon),
               upright(horizon, 217, {{0, QColor(0x98, 0x9c, 0x72)}, {1, QColor(0x62, 0x6a, 0x44)}}));
}

// An engagement in which nothing was selected.
void blank_ammo(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    p.setPen(QPen(QColor(furniture::edge), 4));
    p.setBrush(QColor(furniture::field));
    p.drawRoundedRect(QRectF(6, 6, 88, 88), 12, 12);
}

// The field of the stick tester: a cross through its middle, and rings to judge the way of the dot by.
void stick_field(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {200, 200});
    p.fillRect(QRectF(0, 0, 200, 200), QColor(furniture::field));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(furniture::edge), 1));
    p.drawRect(QRectF(0.5, 0.5, 199, 199));
    p.drawPath(strokes({{{100, 0}, {100, 200}}, {{0, 100}, {200, 100}}}));
    for (const double radius : {32, 64, 96}) p.drawEllipse(QPointF(100, 100), radius, radius);
}

// The keyboard gunner's card -------------------------------------------------------------------------------

struct key_cap {
    double x, y;   // centre, on a card 173 x 200
    const char* letter;
    const char* does;
};

constexpr std::array<key_cap, 11> caps{{
    {86, 20, "U", "UP"},
    {49, 38, "H", "LEFT"},
    {123, 38, "J", "RIGHT"},
    {86, 60, "N", "DOWN"},
    {24, 107, "Q", "COAX"},
    {66, 107, "W", "OFF"},
    {107, 107, "E", "MAIN"},
    {149, 107, "R", "AMMO"},
    {34, 159, "A", "LAZE"},
    {86, 159, "S", "LAY"},
    {139, 159, "D", "FIRE"},
}};

void draw_cap(QPainter& p, const key_cap& k)
{
    const QRectF cap(k.x - 12, k.y - 13, 24, 24);
    p.setPen(QPen(QColor(furniture::shadow), 1));
    p.setBrush(QColor(furniture::shadow));
    p.drawRoundedRect(cap.translated(0, 2), 4, 4);
    p.setBrush(
        upright(cap.top(), cap.bottom(), {{0, QColor(0x6a, 0x6e, 0x5a)}, {1, QColor(furniture::face)}}));
    p.drawRoundedRect(cap, 4, 4);
    p.setPen(shade(colour::highlight));
    draw_text(p, cap, 15, true, Qt::AlignCenter, k.letter);
}

void draw_cap_label(QPainter& p, const key_cap& k)
{
    p.setPen(shade(colour::text));
    draw_text(p, QRectF(k.x - 30, k.y + 13, 60, 14), 11, false, Qt::AlignCenter, k.does);
}

void keys(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {173, 200});
    p.setPen(QPen(QColor(furniture::edge), 1));
    p.setBrush(QColor(furniture::field));
    p.drawRoundedRect(QRectF(0.5, 0.5, 172, 199), 5, 5);
    for (const key_cap& k : caps) {
        draw_cap(p, k);
        draw_cap_label(p, k);
    }
}

struct named_drawing {
    const char* name;
    void (*paint)(QPainter&, const QRectF&);
};

constexpr named_drawing drawings[] = {
    {":arrow_up", arrow_up},
    {":arrow_down", arrow_down},
    {":arrow_left", arrow_left},
    {":arrow_right", arrow_right},
    {":lamp_off", lamp_off},
    {":lamp_main", lamp_amber},
    {":lamp_coax", lamp_amber},
    {":lamp_ready", lamp_green},
    {":keys", keys},
    {":title", title},
    {":emblem", emblem},
    {":icon", icon},
    {":practice", practice_target},
    {":stop", stop_disc},
    {":program", program},
    {":mark_centre", mark_centre},
    {":mark_laze", mark_laze},
    {":mark_aim", mark_aim},
    {":mark_fall", mark_fall},
    {":pointer", strip_pointer},
    {":blank", blank_ammo},
    {":target_ground", target_ground},
    {":stick_field", stick_field},
};

}   // namespace

bool is_drawing(const picture& p)
{
    return p.source.starts_with(':');
}

void draw_named(QPainter& p, const std::string& name, const QRectF& at)
{
    if (at.isEmpty() || draw_sight_mark(p, name, at) || draw_author_mark(p, name, at)) return;
    for (const named_drawing& d : drawings)
        if (name == d.name) d.paint(p, at);
}

}   // namespace vorn
