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

// The reticle and the tank that the title and the emblem share -------------------------------------------

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
    t.addPolygon(outline{{0, 10.3}, {1.8, 10.3}, {1.8, 10.7}, {44, 10.1}, {44, 13.5}, {1.8, 12.6}, {0, 13}});
    t.addRoundedRect(QRectF(15, 9.7, 8.5, 4), 1, 1);   // fume extractor
    t.addPolygon(outline{{38, 15.6},
                         {38.5, 10},
                         {41.5, 8.4},
                         {47, 6.6},
                         {58, 5.6},
                         {60, 3.6},
                         {66.5, 3.4},
                         {68, 5.7},
                         {77, 6},
                         {78, 4.9},
                         {90, 5.3},
                         {91.5, 7},
                         {91, 13},
                         {87, 16.5},
                         {40, 16.5}});
    t.addRect(QRectF(52, 2.6, 9, 0.6));   // the commander's machine gun
    t.addRect(QRectF(59.6, 2.4, 2.2, 2));
    t.addPolygon(outline{{44, 7.6}, {44.6, 5.6}, {49, 5}, {49.5, 6.6}});   // sight
    for (const double x : {44.5, 46.5, 48.5})                              // smoke dischargers
        t.addPolygon(outline{{x, 10.4}, {x - 1.6, 7.4}, {x - 0.4, 7}, {x + 1.2, 10}});
    t.addRect(QRectF(84.6, -6, 0.3, 12));   // aerials
    t.addRect(QRectF(80.4, -3, 0.3, 9));
    t.addPolygon(outline{{23, 21.4},
                         {31, 17},
                         {38, 15.6},
                         {71, 15.6},
                         {72, 14.8},
                         {96, 15},
                         {99.5, 17.4},
                         {100, 22.5},
                         {97, 27},
                         {27, 27}});
    t.addPolygon(outline{{23.6, 22.4},
                         {99.6, 22.4},
                         {99.6, 26},
                         {95, 31.6},
                         {90, 33.4},
                         {33, 33.4},
                         {28, 31.4},
                         {23.6, 25.6}});
    return t;
}

// Against the light: dark, with a bright edge where it comes from. A negative width turns its gun to the
// right.
void place_tank(QPainter& p, const QPointF& ground, double width, const QColor& c, const QColor& light)
{
    p.save();
    p.translate(ground);
    p.scale(width / 100, std::abs(width) / 100);
    p.translate(-62, -33.4);
    p.fillPath(tank().translated(std::copysign(0.25, width), -0.45), light);
    p.fillPath(tank(), upright(4, 33, {{0, c.lighter(118)}, {1, c}}));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(c.lighter(170), 0.5));
    p.drawLine(QPointF(25, 23.2), QPointF(98.5, 23.2));   // edge of the skirt
    p.setPen(QPen(c.darker(140), 0.6));
    for (int i = 1; i < 6; ++i) p.drawLine(QPointF(27 + 12 * i, 18.4), QPointF(27 + 12 * i, 23));
    p.setPen(QPen(c.lighter(160), 0.5));
    p.setBrush(c.darker(120));
    for (int i = 0; i < 6; ++i) {
        const QPointF hub(35.5 + i * 10.2, 28.9);
        p.drawEllipse(hub, 3.9, 3.9);
        p.drawEllipse(hub, 1.3, 1.3);
    }
    p.restore();
}

// The title screen -----------------------------------------------------------------------------------------

constexpr QPointF setting_sun(690, 411);
constexpr QColor last_light(0xf3, 0xbd, 0x74);

struct ridge {
    double height;           // of its mean line, pixels from the top of 768
    double swell;            // how far it rises and falls
    double length, offset;   // of its longest fold, pixels
    double rough;            // of its skyline, pixels
    QRgb crest, foot;        // mist lies at the foot of the far ones
};

// From the farthest to the nearest.
constexpr std::array<ridge, 5> ridges{{
    {420, 17, 430, 130, 1.2, 0xff9a7750, 0xffd09a5a},
    {446, 20, 330, 40, 1.6, 0xff705a40, 0xffa07a4e},
    {482, 24, 560, 300, 1.3, 0xff4b4433, 0xff65543b},
    {536, 26, 760, 90, 1.6, 0xff302f25, 0xff33302a},
    {634, 28, 980, 520, 2.2, 0xff1a1b14, 0xff0d0e0a},
}};

double crest(const ridge& r, double x)
{
    const double turn = 6.28318530718 * (x + r.offset) / r.length;
    const double folds =
        0.6 * std::sin(turn) + 0.28 * std::sin(2.3 * turn + 1.1) + 0.12 * std::sin(5.9 * turn);
    const double rough = std::sin(x / 9.7 + r.offset) + 0.7 * std::sin(x / 4.3) + 0.5 * std::sin(x / 2.3 + 1);
    return r.height - r.swell * folds - r.rough * 0.5 * rough;
}

void draw_ridge(QPainter& p, const ridge& r)
{
    QPainterPath land(QPointF(-4, 772));
    for (double x = -4; x <= 1028; x += 2) land.lineTo(x, crest(r, x));
    land.lineTo(1028, 772);
    p.fillPath(land, upright(r.height - r.swell, r.height + 90, {{0, QColor(r.crest)}, {1, QColor(r.foot)}}));
}

// A wood or hedge along part of a crest: crowns of all sizes, gathered and thinned out as chance has it.
void draw_trees(QPainter& p, const ridge& r, double from, double to, double size)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(r.crest).darker(122));
    int n = 0;
    for (double x = from; x < to; x += size * (0.3 + 0.16 * std::sin(n * 1.9)), ++n) {
        const double big = size * (0.42 + 0.2 * std::sin(n * 2.7) + 0.2 * std::sin(n * 0.31));
        const double up = size * 0.3 * (1 + std::sin(n * 5.1));
        p.drawEllipse(QPointF(x, crest(r, x) - big * 0.5 - up), big, big * 0.85);
        p.drawRect(QRectF(x - size * 0.06, crest(r, x) - up - big * 0.4, size * 0.12, up + big));
    }
}

// Blades against what lies behind, in tufts.
void draw_grass(QPainter& p, const ridge& r)
{
    p.setPen(QPen(QColor(r.crest), 1));
    int n = 0;
    for (double x = 0; x < 1024; x += 1.7 + 1.2 * std::sin(n * 2.3), ++n) {
        const double tall = 3 + 3 * std::sin(n * 0.61) + 3 * std::sin(n * 0.083) + 2 * std::sin(n * 4.7);
        if (tall > 1)
            p.drawLine(QPointF(x, crest(r, x) + 2), QPointF(x + 2 * std::sin(n * 3.1), crest(r, x) - tall));
    }
}

void draw_dusk(QPainter& p)
{
    const QRectF all(-4, -4, 1032, 776);
    p.fillRect(all, upright(0, 440,
                            {{0, QColor(0x14, 0x1a, 0x20)},
                             {0.35, QColor(0x2f, 0x36, 0x38)},
                             {0.64, QColor(0x70, 0x5d, 0x46)},
                             {0.87, QColor(0xcf, 0x8d, 0x45)},
                             {1, QColor(0xf2, 0xbe, 0x6e)}}));
    QRadialGradient glow(setting_sun, 430);
    glow.setColorAt(0, QColor(255, 222, 150, 210));
    glow.setColorAt(0.12, QColor(255, 196, 110, 120));
    glow.setColorAt(1, QColor(255, 170, 80, 0));
    p.fillRect(all, glow);
}

// A patch of cloud without an edge.
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

// Banks of cloud, dark above and lit from below, smaller and nearer to each other towards the horizon.
void draw_clouds(QPainter& p)
{
    constexpr int banks = 22, patches = 9;
    for (int i = 0; i < banks; ++i) {
        const double deep = (i + 0.5) / banks, size = 1 - 0.72 * deep;
        const QPointF middle(std::fmod(i * 397.0 + 60 * std::sin(i * 1.7), 1180) - 80,
                             130 + 255 * (1 - (1 - deep) * (1 - deep)));
        for (int k = 0; k < patches; ++k) {
            const double n = i * patches + k;
            const QPointF at = middle + QPointF(190 * std::sin(n * 2.1), 15 * std::sin(n * 3.7)) * size;
            const QSizeF patch = QSizeF(190 + 90 * std::sin(n * 1.3), 26 + 10 * std::sin(n * 2.9)) * size;
            draw_wisp(p, at + QPointF(6, 7) * size, patch,
                      QColor(240, 164, 92, 20 + static_cast<int>(34 * deep)));
            draw_wisp(p, at, patch, QColor(40, 40, 42, 84));
        }
    }
}

void draw_sun(QPainter& p)
{
    constexpr double radius = 21;
    QRadialGradient disc(setting_sun, radius);
    disc.setColorAt(0, QColor(255, 246, 214));
    disc.setColorAt(0.86, QColor(255, 226, 150));
    disc.setColorAt(1, QColor(255, 214, 130, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(disc);
    p.drawEllipse(setting_sun, radius, radius);
}

void draw_shade_bands(QPainter& p)
{
    p.fillRect(QRectF(-4, -4, 1032, 776), upright(0, 768,
                                                  {{0, QColor(10, 11, 8, 190)},
                                                   {0.2, QColor(10, 11, 8, 60)},
                                                   {0.3, QColor(10, 11, 8, 0)},
                                                   {0.76, QColor(10, 11, 8, 0)},
                                                   {0.86, QColor(10, 11, 8, 150)},
                                                   {1, QColor(10, 11, 8, 225)}}));
    QRadialGradient corners(512, 400, 700);
    corners.setColorAt(0.55, QColor(0, 0, 0, 0));
    corners.setColorAt(1, QColor(0, 0, 0, 130));
    p.fillRect(QRectF(-4, -4, 1032, 776), corners);
}

// Our tank lies in wait to the left; what it aims at stands on the third ridge, before the sun.
void title(QPainter& p, const QRectF& at)
{
    constexpr double target = 690, own = 262;
    const drawing_space space(p, at, {1024, 768});
    p.setClipRect(QRectF(0, 0, 1024, 768));
    draw_dusk(p);
    draw_sun(p);
    draw_clouds(p);
    for (std::size_t i = 0; i < ridges.size(); ++i) {
        const ridge& r = ridges[i];
        // Before their ridge, so that it hides what they stand in.
        if (i == 1) draw_trees(p, r, 90, 330, 6), draw_trees(p, r, 480, 560, 5);
        if (i == 2) draw_trees(p, r, 800, 1030, 10), draw_trees(p, r, -5, 60, 10);
        if (i == 2) place_tank(p, {target, crest(r, target) + 3}, 58, QColor(0x2a, 0x26, 0x1c), last_light);
        if (i == 3) draw_trees(p, r, 925, 1030, 13), draw_trees(p, r, 540, 576, 10);
        if (i == 3) place_tank(p, {own, crest(r, own) + 15}, -290, QColor(0x17, 0x18, 0x12), last_light);
        if (i == 4) draw_grass(p, r);
        draw_ridge(p, r);
    }
    draw_reticle(p, {target, crest(ridges[2], target) - 9}, 86, with_alpha(shade(colour::live), 0.8), 1.6);
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
    place_tank(p, {470, 138}, 176, QColor(0x17, 0x18, 0x12), last_light);
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

// A range target with a light rim; the rest is dark, for the red number that stands on it.
void practice_target(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, centred_square(at), {100, 100});
    constexpr QColor paper(0xd9, 0xd2, 0xb8), ink(0x14, 0x15, 0x0f), faint(0x3a, 0x39, 0x2d);
    p.setPen(QPen(paper, 5));
    p.setBrush(ink);
    p.drawEllipse(QPointF(50, 50), 44, 44);
    p.setPen(QPen(faint, 2));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(50, 50), 31, 31);
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

// Country behind the target of the debrief, plain enough for the marks: grass up to a misty skyline.
void target_ground(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {305, 217});
    constexpr double horizon = 78;
    p.setClipRect(QRectF(0, 0, 305, 217));
    p.fillRect(QRectF(0, 0, 305, horizon + 2),
               upright(0, horizon, {{0, QColor(0x8b, 0xa3, 0xb6)}, {1, QColor(0xcb, 0xd2, 0xca)}}));
    QPainterPath hills(QPointF(-2, horizon + 4));
    for (double x = -2; x <= 307; x += 3)
        hills.lineTo(x, horizon - 9 - 6 * std::sin(x / 58 + 1) - 2.5 * std::sin(x / 21));
    hills.lineTo(307, horizon + 4);
    p.fillPath(hills, upright(horizon - 18, horizon,
                              {{0, QColor(0x90, 0xa3, 0x9c)}, {1, QColor(0xa7, 0xb1, 0x97)}}));
    p.fillRect(QRectF(0, horizon, 305, 217 - horizon),
               upright(horizon, 217, {{0, QColor(0xa0, 0xa4, 0x78)}, {1, QColor(0x66, 0x6f, 0x46)}}));
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 460; ++i) {   // tufts, longer and farther apart the nearer they are
        const double deep = std::fmod(i * 0.618034, 1), near = deep * deep;
        const double x = std::fmod(i * 97.31 + 40 * std::sin(i * 1.3), 305);
        p.setBrush(i % 2 == 0 ? QColor(0x4f, 0x5a, 0x34, 56) : QColor(0xb9, 0xb4, 0x82, 48));
        p.drawEllipse(QPointF(x, horizon + 3 + near * (214 - horizon)), 1.5 + 3.5 * near, 0.4 + 0.5 * near);
    }
}

// The recess of the ammunition selector: a scale with a stop for each caption that is shown in it.
void ammunition_dial(QPainter& p, const QRectF& at)
{
    const drawing_space space(p, at, {157, 69});
    p.setPen(QPen(QColor(furniture::edge), 1));
    p.setBrush(QColor(furniture::field));
    p.drawRoundedRect(QRectF(0.5, 0.5, 156, 68), 5, 5);
    constexpr QPointF middle(78.5, 20);
    constexpr QSizeF radius(66, 43);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(furniture::edge).lighter(130), 1.2));
    p.drawArc(QRectF(middle - QPointF(radius.width(), radius.height()), radius * 2), 180 * 16, 180 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(shade(colour::dim));
    for (const auto& [right, down] : {std::pair{-1, 0}, {1, 0}, {0, 1}})
        p.drawEllipse(middle + QPointF(right * radius.width(), down * radius.height()), 2.4, 2.4);
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
    {":practice", practice_target},
    {":stop", stop_disc},
    {":program", program},
    {":mark_centre", mark_centre},
    {":mark_laze", mark_laze},
    {":mark_aim", mark_aim},
    {":mark_fall", mark_fall},
    {":pointer", strip_pointer},
    {":ammo_dial", ammunition_dial},
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
