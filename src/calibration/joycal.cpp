#include "calibration/joycal.h"

#include <algorithm>
#include <string>

#include "trainer.h"

namespace vorn {

namespace {

using S = joycal_screen;

constexpr double dot_from = 120, dot_to = 2880;   // bounds of the dot's Left and Top, twips

// One axis of the stick: its readings, the values computed from them, its labels, and the coordinate of the
// dot that the axis moves.
struct axis_row {
    int end;   // number of the joystick reading with the maximum
    int at;    // number of the one with the position
    double practice_state::*centre;
    double practice_state::*factor;
    screen_object S::*showsend;   // a label that is never shown
    screen_object S::*showsat;
    screen_object S::*showscentre;
    screen_object S::*showsstep;
    double object_fields::*along;
};
constexpr axis_row axes[] = {{7, 14, &practice_state::joyycentre, &practice_state::joyyfactor, &S::Lblymax,
                              &S::Lblymin, &S::Lbly, &S::Lblyfactor, &object_fields::Top},
                             {5, 13, &practice_state::joyxcentre, &practice_state::joyxfactor, &S::Lblxmax,
                              &S::Lblxmin, &S::Lblx, &S::Lblxfactor, &object_fields::Left}};

table<screen_object*, 4> instructions(S& s)
{
    return {{&s.Lblinfo1, &s.Lblinfo2, &s.Lblinfo3, &s.Lblinfo4}};
}

// Highlights the instruction of the current step, and shows the numbers of the visible instructions.
void markinstruction(S& s)
{
    const auto all = instructions(s);
    for (int i = 0; i < all.size(); ++i) {
        all[i]->ForeColor = colour::text;
        s.Lblstep[i].Visible = all[i]->Visible;
    }
    if (s.calstep > 0) all[std::min<int>(s.calstep, 4) - 1]->ForeColor = colour::live;
}

void showjoystick(const trainer& t, S& s)
{
    const bool connected = t.pc.joystick_present();
    s.Lblstick.Caption =
        connected ? "JOYSTICK CONNECTED" : "NO JOYSTICK IS CONNECTED. PLUG ONE IN: IT IS FOUND AT ONCE.";
    s.Lblstick.ForeColor = connected ? colour::dim : colour::highlight;
}

void joycal_load(trainer& t, S& s)
{
    s.calstarted = false;
    s.calstep = 0;
    showjoystick(t, s);
}

void cmdstart_click(S& s)
{
    s.calstarted = true;
    s.Cmdfinish.Enabled = false;
    s.calstep = 1;
    for (screen_object* o : instructions(s)) o->Visible = o == &s.Lblinfo1;
    markinstruction(s);
}

void cmdfinish_click(trainer& t)
{
    t.shared.joycalibrated = true;
    unload(t.pc, t.joycal.window);
}

void takecentre(trainer& t, S& s, const axis_row& a)
{
    t.shared.*a.centre = static_cast<double>(t.pc.joystick_reading(a.end)) / 2;
    (s.*a.showscentre).Caption = number_text(t.shared.*a.centre);
    (s.*a.showsat).Caption = std::to_string(t.pc.joystick_reading(a.at));
}

// Instructions of earlier steps stay on the screen.
void nextstep(trainer& t, S& s)
{
    s.calstep += 1;
    if (s.calstep == 2)
        for (const axis_row& a : axes) takecentre(t, s, a);
    if (s.calstep <= 4) instructions(s)[s.calstep - 1]->Visible = true;
    if (s.calstep == 4) s.Cmdfinish.Enabled = true;
    markinstruction(s);
}

void lightbutton(S& s, int button, colour c)
{
    if (button >= 1 && button <= 4) s.Lblbutton[button - 1].BackColor = c;
}

void joystk_buttondown(trainer& t, S& s, int button)
{
    if (s.calstarted) nextstep(t, s);
    lightbutton(s, button, colour::red);
}

// The factor is a twelfth of the distance from the stick's position to the maximum of the axis.
void takefactor(trainer& t, S& s, const axis_row& a)
{
    const int end = t.pc.joystick_reading(a.end), at = t.pc.joystick_reading(a.at);
    (s.*a.showsend).Caption = std::to_string(end);
    (s.*a.showsat).Caption = std::to_string(at);
    t.shared.*a.factor = (end - at) / 12.0;
}

// The dot moves like the view in a practice: one twip for each 100 units of the reading beyond the dead
// band. The number of twips is rounded down, so a step to the left or up is a twip larger than one to the
// right or down, unless the part beyond the dead band is a whole multiple of 100.
void movedot(S& s, const axis_row& a, double bound, double at)
{
    const double n = Int((at - bound) / 100);
    s.dot.*a.along += n;
    (s.*a.showsstep).Caption = number_text(n);
}

void trystick(const practice_state& p, S& s, const axis_row& a, double at)
{
    const double low = p.*a.centre - 2 * p.*a.factor, high = p.*a.centre + 2 * p.*a.factor;
    if (at < low) movedot(s, a, low, at);
    if (at > high) movedot(s, a, high, at);
}

void joystk_move(trainer& t, S& s, int x, int y)
{
    for (const axis_row& a : axes) takefactor(t, s, a);
    for (const axis_row& a : axes) {
        const bool across = a.along == &object_fields::Left;
        if (s.calstep > 2) trystick(t.shared, s, a, across ? x : y);
        s.dot.*a.along = std::clamp(s.dot.*a.along, dot_from, dot_to);
    }
}

}   // namespace

void make_joycal(trainer& t)
{
    S& s = t.joycal;
    design_joycal(s);
    s.window.load = [&t, &s] { joycal_load(t, s); };
    s.window.closed = [&t, &s] { unload(t.pc, s.window); };
    s.window.KeyDown = [&t, &s](int code) {
        if (code == escape_key) unload(t.pc, s.window);
    };
    s.window.JoystickChanged = [&t, &s] { showjoystick(t, s); };
    s.window.ButtonDown = [&t, &s](int button) { joystk_buttondown(t, s, button); };
    s.window.ButtonUp = [&s](int button) { lightbutton(s, button, colour::darkred); };
    s.window.Move = [&t, &s](int x, int y) { joystk_move(t, s, x, y); };
    s.Cmdstart.Click = [&s] { cmdstart_click(s); };
    s.Cmdfinish.Click = [&t] { cmdfinish_click(t); };
}

}   // namespace vorn
