// The layout of the calibration screen, in twips. From top to bottom: the buttons, a label that says whether
// a joystick is connected, three frames side by side (stick tester, readings, lamps of the joystick's
// buttons), and the instructions.
#include <string>
#include <utility>

#include "calibration/joycal.h"
#include "platform/design.h"

namespace vorn {

namespace {

using S = joycal_screen;

constexpr double top = 1515, height = 3720;   // of the three frames side by side
constexpr double box = 720;                   // height of a reading and of a lamp

// The top of row n, 0 to 3, of the readings and of the lamps.
constexpr double row(int n)
{
    return 360 + 825.0 * n;
}

// Large centred text on a coloured background.
object_fields plate(area at, std::string words, colour fore, colour back)
{
    return with_background(bold(label(at, std::move(words), fore, text_size::large, alignment::centre)),
                           back);
}

void buttons(S& s)
{
    put_buttons(s.window, {120, 165, 1800, 540}, 1875,
                {{s.Cmdstart, "START", "BEGIN THE CALIBRATION, OR START IT OVER"},
                 {s.Cmdfinish, "FINISH", "USE THIS CALIBRATION"}});
    s.Cmdfinish.design->Enabled = false;
    add(s.window, s.Lblstick, plate({120, 840, 15120, 540}, "", colour::dim, colour::black));
}

void tester(S& s)
{
    add(s.window, s.Frmstick, frame({120, top, 3480, height}, "STICK"));
    const auto in =
        add_frame(s, s.Frmfield, named(placed(object_kind::sight, {120, 360, 3240, 3240}), "Stick tester"),
                  &s.Frmstick);
    in.add(s.Image1, image({120, 120, 3000, 3000}, ":stick_field"));
    in.add(s.dot, shape({1560, 1560, 150, 150}, shape_kind::filled_ellipse, colour::red));
}

void readings(S& s)
{
    const auto in = add_frame(s, s.Frmreadings, frame({3720, top, 5640, height}, "READINGS"));
    constexpr double first = 1560, second = 3540, width = 1860;
    for (const auto& [words, left] : {std::pair{"X POS =", first}, {"Y POS =", second}})
        in.caption(label({left, row(0) + 300, width, 420}, words, colour::dim, text_size::normal,
                         alignment::centre));
    const struct {
        std::string words;
        screen_object& x;
        screen_object& y;
    } rows[] = {{"Centre", s.Lblxmin, s.Lblymin},
                {"Match", s.Lblx, s.Lbly},
                {"Movement", s.Lblxfactor, s.Lblyfactor}};
    for (int n = 1; const auto& r : rows) {
        const double at = row(n++);
        const auto reading = [at](double left) {
            return plate({left, at, width, box}, "", colour::live, colour::black);
        };
        in.caption(label({240, at + 180, 1260, box - 360}, r.words, colour::dim));
        in.add(r.x, named(reading(first), r.words + " X"));
        in.add(r.y, named(reading(second), r.words + " Y"));
    }
    for (screen_object* o : {&s.Lblxmax, &s.Lblymax}) in.add(*o, hidden(label({0, 0, width, 300}, "")));
}

// The joystick's buttons, and what each does in a practice.
void lamps(S& s)
{
    const auto in = add_frame(s, s.Frmbuttons, frame({9480, top, 5760, height}, "BUTTONS"));
    static constexpr const char* does[] = {"FIRE", "AMMO  SELECT", "LAZE", "AUTOLAY"};
    for (int b = 0; b < 4; ++b) {
        const double at = row(b);
        in.caption(bold(label({240, at, 480, box}, std::to_string(b + 1), colour::dim, text_size::large)));
        in.add(s.Lblbutton[b], plate({780, at, 4740, box}, does[b], colour::white, colour::darkred));
    }
}

void steps(S& s)
{
    const auto in = add_frame(s, s.Frminfo, frame({120, 5355, 15120, 6045}, "CALIBRATION"));
    in.caption(label({840, 450, 13980, 450},
                     "CLICK ON START TO BEGIN OR TO START OVER. ESC LEAVES THIS SCREEN", colour::dim,
                     text_size::large));
    const struct {
        screen_object& o;
        const char* words;
        double top, height;
    } rows[] = {
        {s.Lblinfo1, "CENTRE THE JOYSTICK THEN PRESS ANY BUTTON", 1440, 450},
        {s.Lblinfo2,
         "USE THE JOYSTICK ADJUSTERS TO ROUGHLY MATCH THE NUMBERS IN THE TOP X AND Y POS BOXES TO THE ONES "
         "BELOW (DONT MOVE JOYSTICK) THEN PRESS A BUTTON",
         2430, 1350},
        {s.Lblinfo3, "TEST THE MOVEMENT OF THE JOYSTICK AND BUTTONS", 3780, 450},
        {s.Lblinfo4, "IF SATISFIED WITH CALIBRATION THEN CLICK ON  FINISH", 4770, 450}};
    for (int n = 0; const auto& r : rows) {
        const object_fields number =
            bold(label({240, r.top, 480, r.height}, std::to_string(n + 1), colour::dim, text_size::large));
        in.add(s.Lblstep[n++], hidden(number));
        in.add(r.o, hidden(label({840, r.top, 13980, r.height}, r.words, colour::text, text_size::large)));
    }
}

}   // namespace

void design_joycal(joycal_screen& s)
{
    s.window.name = "joycal";
    s.window.Caption = "CONTROL CALIBRATION";
    s.window.spreads = true;
    buttons(s);
    tester(s);
    readings(s);
    lamps(s);
    steps(s);
}

}   // namespace vorn
