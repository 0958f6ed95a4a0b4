#include <cmath>
#include <utility>

#include "ranges/ranges.h"
#include "ranges/rauthor.h"
#include "state/numbers.h"

namespace vorn {

namespace {

using S = rauthor_screen;

// Side of the overview's cursor, twips. The lower right corner of the cursor is the marked point.
constexpr double pointer = 240;
constexpr int as_fast_as_possible = 1;   // milliseconds

// An axis along which the picture moves. `move` stops it when its edge is near that of the sight window.
struct axis {
    double area::*place;
    double area::*extent;
    double rauthor_screen::*point;
    double window;   // width or height of the sight window
    double spare;    // the picture stops when its right or lower edge is this near to that of the window
};
constexpr axis across{&area::Left, &area::Width, &S::pointx, 3000, 1};
constexpr axis down{&area::Top, &area::Height, &S::pointy, 2500, 100};

void showpoint(S& s)
{
    s.Lblx.Caption = number_text(s.pointx);
    s.Lbly.Caption = number_text(s.pointy);
    const area at = overviewplace(s, s.pointx, s.pointy);
    place_at(s.Imgpoint, at.Left, at.Top);
}

// Moves the picture by this many twips, to the right or down if positive, unless it is at its limit. `back`:
// tests the limit of moves to the right or down, otherwise that of moves to the left or up.
void move(S& s, const axis& a, int twips, bool back)
{
    constexpr double near_edge = -120;
    double& at = s.Imagerange.*a.place;
    if (back ? at >= near_edge : at <= a.spare - s.Imagerange.*a.extent + a.window) return;
    at += twips;
    s.*a.point -= twips;
    showpoint(s);
    if (&a == &down) proposerange(s);
}

// Moves the marked point towards a place in the overview, in the steps of the small arrows.
void moveto(S& s, double x, double y)
{
    constexpr int small_step = 100;
    const auto go = [&s](const axis& a, double to) {
        const double off = to - s.*a.point;
        for (double n = rounded(std::abs(off) / small_step); n > 0; --n)
            move(s, a, off < 0 ? small_step : -small_step, off < 0);
    };
    go(across, x * s.authorscalex);
    go(down, y * s.authorscaley);
}

void findband(S& s)
{
    s.bandbottom = 3 * Int(s.Imagerange.Height / 4);
    s.bandtop = Int(s.Imagerange.Height / 3);
    s.bandheight = Int(s.bandbottom - s.bandtop);
}

}   // namespace

area overviewplace(const rauthor_screen& s, double x, double y)
{
    return {Int(x / s.authorscalex - pointer + overview_left),
            Int(y / s.authorscaley - pointer + overview_top), pointer, pointer};
}

void scaleoverview(rauthor_screen& s)
{
    s.authorscalex = static_cast<float>(s.Imagerange.Width / overview_width);
    s.authorscaley = static_cast<float>(s.Imagerange.Height / overview_height);
    s.Image1.Picture = s.Imagerange.Picture;
}

// The band is computed from the height of the overview, not of the picture. So on the placeholder the marked
// point can't reach it, and no range is proposed, while its coordinates fit the picture (see showmiddle).
void placeholderband(rauthor_screen& s)
{
    const float height = static_cast<float>(s.Imagerange.Height);
    s.bandbottom = 3 * Int(height / s.authorscaley);
    s.bandtop = Int(height / (3 * s.authorscaley / 4));
    s.bandheight = Int(s.bandbottom - s.bandtop);
}

void showmiddle(rauthor_screen& s)
{
    s.Lblwide.Caption = number_text(s.Imagerange.Width);
    s.Lblhigh.Caption = number_text(s.Imagerange.Height);
    s.pointx = s.Imagerange.Width / 2 + mark_right;
    s.pointy = s.Imagerange.Height / 2 + mark_down;
    showpoint(s);
}

void hangpicture(rauthor_screen& s, picture p)
{
    s.Imagerange.Picture = std::move(p);
    take_natural_size(s.Imagerange);
}

void putpicture(rauthor_screen& s, picture p)
{
    hangpicture(s, std::move(p));
    place_at(s.Imagerange, -s.Imagerange.Width / 2, -s.Imagerange.Height / 2);
    s.Imagerange.Visible = true;
    scaleoverview(s);
    findband(s);
    showmiddle(s);
}

void proposerange(rauthor_screen& s)
{
    constexpr int steps = 40;         // in the band
    constexpr double beyond = 50;     // steps from the top of the band to the row that would give `nearest`
    constexpr double nearest = 500;   // metres
    if (s.pointy <= s.bandtop || s.pointy >= s.bandbottom) return;
    const double step = Int(s.bandheight / steps);
    if (step == 0) return;   // a range file may name a picture only a few pixels high
    const double m = beyond - Int((s.pointy - s.bandtop) / step);
    settargetrange(s, static_cast<int>(m * m + nearest));
}

void make_view(rauthor_screen& s)
{
    s.Image1.ClickAt = [&s](double x, double y) { moveto(s, x, y); };
    const struct {
        screen_object& button;
        int S::*step;
        int twips;
        timer S::*clock;
    } arrows[] = {{s.Cmdbigleft, &S::stepx, 400, &S::Timex}, {s.cmdleft, &S::stepx, 100, &S::Timex},
                  {s.cmdright, &S::stepx, -100, &S::Timex1}, {s.Cmdbigright, &S::stepx, -400, &S::Timex1},
                  {s.Cmdbigup, &S::stepy, 400, &S::Timey},   {s.cmdup, &S::stepy, 100, &S::Timey},
                  {s.Cmddown, &S::stepy, -100, &S::Timey1},  {s.Cmdbigdown, &S::stepy, -400, &S::Timey1}};
    for (const auto& a : arrows) {
        a.button.MouseDown = [&s, step = a.step, twips = a.twips, clock = a.clock] {
            s.*step = twips;
            start(s.*clock);
        };
        a.button.MouseUp = [&s, clock = a.clock] { stop(s.*clock); };
    }
    const auto clock = [&s](timer& t, const axis& a, int S::*step, bool back) {
        add(s.window, t, as_fast_as_possible, [&s, &a, step, back] { move(s, a, s.*step, back); });
    };
    clock(s.Timex, across, &S::stepx, true);
    clock(s.Timex1, across, &S::stepx, false);
    clock(s.Timey, down, &S::stepy, true);
    clock(s.Timey1, down, &S::stepy, false);
}

}   // namespace vorn
