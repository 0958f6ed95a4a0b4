// A trained gunner: selects a weapon, lays, lases, uses the autolay or lays off, fires and corrects, with the
// input method of the practice: keys, the buttons on the screen, or the joystick.
#include <algorithm>
#include <cmath>

#include "gunnery/gunnery.h"
#include "walk/walker.h"

namespace vorn {

namespace {

device device_for(walker& w, const gunnery_screen& s, const control_row& c)
{
    const practice_state& p = w.t().shared;
    const bool button = p.mouseselected && takes_input(s.*c.button);
    const bool stick = p.joyselected && c.stick != 0;
    if (p.keyboardselected && !(button && w.chance(0.4)) && !(stick && w.chance(0.4))) return device::key;
    return stick && !(button && w.chance(0.5)) ? device::stick : device::mouse;
}

using steps = std::deque<std::function<void()>>;

// Presses now and releases after the time and the steps between.
void hold(walker& w, gunnery_screen& s, control which, double seconds, const steps& between = {})
{
    const control_row& c = row_of(which);
    const device by = device_for(w, s, c);
    screen_object* button = by == device::mouse ? &(s.*c.button) : nullptr;
    const int code = by == device::key ? c.key : by == device::stick ? c.stick : 0;
    steps& plan = w.run->plan;
    if (seconds > 0) plan.push_back([&w, seconds] { w.wait(seconds); });
    plan.insert(plan.end(), between.begin(), between.end());
    plan.push_back([&w, by, code, button] { w.release(by, code, button); });
    if (by == device::key) return w.key_down(code);
    if (by == device::stick) return w.stick_down(code);
    button->Click ? w.click(*button) : w.press(*button);
}

void tap(walker& w, gunnery_screen& s, control which)
{
    hold(w, s, which, 0);
}

// From the aim point, in twips.
struct offset {
    double across = 0, down = 0;
};

// Where the next round will fall.
offset fall(const trainer& t, const gunnery_screen& s)
{
    const double r = s.currentrange;
    const double scatter = 25;   // middle of the scatter of a burst
    switch (static_cast<int>(s.nature)) {
        case fin_tank:
            return {s.Imgtargets.Width / 6, s.visual() ? r / 2 : -s.Imgtargets.Height / 6};
        case hesh_bmp:
            return {s.windoffset - static_cast<double>(s.heshcorrection), s.visual() ? 2 * r : 50};
        default:
            return {t.shared.coaxerrorwide + scatter,
                    (s.visual() ? 2 * r : r / 7) + t.shared.coaxerror + scatter};
    }
}

bool lies_on(const gunnery_screen& s, const offset& o)
{
    const double near = s.Imgtargets.Width / 4;
    return std::abs(aimacross(s) - o.across) < near && std::abs(aimdown(s) - o.down) < near;
}

// How long to hold a direction to move the picture by this many twips.
double seconds_for(const gunnery_screen& s, double twips)
{
    const double ticks = s.visual() ? std::sqrt(420 + 2 * twips) - 20.5 : twips / 30;
    return std::max(1.0, std::floor(ticks)) * timer_floor + 0.001;
}

// The axis value that moves the picture by about this many twips a tick.
long deflection(double centre, double factor, double twips)
{
    const double beyond_dead_band = std::copysign(2 * factor + 100, twips) + twips * 100;
    return static_cast<long>(std::clamp(centre + beyond_dead_band, 0.0, 65535.0));
}

// Moves the target to a place relative to the aim point, the larger error first.
void steer(walker& w, gunnery_screen& s, const offset& to)
{
    const practice_state& p = w.t().shared;
    const double across = aimacross(s) - to.across, downward = aimdown(s) - to.down;
    if (p.joyselected && w.chance(0.5)) {
        const auto rest = [](double error) { return std::abs(error) > 15 ? error : 0; };
        const long x = deflection(p.joyxcentre, p.joyxfactor, rest(across));
        const long y = deflection(p.joyycentre, p.joyyfactor, rest(downward));
        return w.act("steer by stick", [&] { w.pc().stick(x, y); });
    }
    if (std::abs(across) > std::abs(downward))
        return hold(w, s, across > 0 ? control::right : control::left, seconds_for(s, std::abs(across)));
    hold(w, s, downward > 0 ? control::down : control::up, seconds_for(s, std::abs(downward)));
}

void select_round(walker& w, gunnery_screen& s)
{
    const bool coaxarmed = s.Lblammotype.Caption == "COAX";
    const bool coaxwanted = s.nature == coax_transport;
    if (!s.ammoarmed) return tap(w, s, coaxwanted ? control::coax : control::mainarm);
    if (coaxarmed != coaxwanted || s.heshcorrecting)
        return tap(w, s, w.chance(0.9) ? control::off : control::laze);
    tap(w, s, control::ammo);
}

void shoot(walker& w, gunnery_screen& s)
{
    const bool burst = s.nature == coax_transport;
    hold(w, s, control::fire, burst ? 0.05 + w.fraction() * 0.4 : 0);
    // A HESH round that missed sideways is corrected by two presses with a traverse between them.
    if (s.nature != hesh_bmp || !s.heshcorrecting || !w.chance(0.5)) return;
    w.run->plan.push_back([&w, &s] { tap(w, s, control::ammo); });
    w.run->plan.push_back([&w, &s] { steer(w, s, {static_cast<double>(s.windoffset), aimdown(s)}); });
    w.run->plan.push_back([&w, &s] { tap(w, s, control::ammo); });
}

// Holds until the lay has run, sometimes firing while the button is still held.
void hold_autolay(walker& w, gunnery_screen& s)
{
    if (w.chance(0.05)) return tap(w, s, control::lay);
    const double whole = (s.numbers.holdticks + 1) * 0.5 + 0.05;
    const bool fires = s.gunloaded && w.chance(0.5);
    hold(w, s, control::lay, whole, fires ? steps{[&w, &s] { tap(w, s, control::fire); }} : steps{});
}

void engage(walker& w, gunnery_screen& s)
{
    if (w.known_target != s.targetnumber) {
        w.known_target = s.targetnumber;
        w.lays_off = w.chance(0.5);
        w.lased_target = -1;
    }
    if (s.ammoselected != s.nature || !s.ammoarmed)
        return w.chance(0.1) ? tap(w, s, control::fire) : select_round(w, s);   // sometimes the wrong round
    const bool lased = w.lased_target == s.targetnumber;
    if (!w.lays_off && w.t().shared.systemstatus < 2) {
        if (s.layready && lased) return hold_autolay(w, s);
        if (!lased && !lies_on(s, {})) return steer(w, s, {});
        if (!lased) {
            w.lased_target = s.targetnumber;
            return tap(w, s, control::laze);
        }
    }
    if (!lies_on(s, fall(w.t(), s))) return steer(w, s, fall(w.t(), s));
    s.gunloaded ? shoot(w, s) : w.wait(0.2 + w.fraction());
}

void wait_for_target(walker& w, gunnery_screen& s)
{
    if (s.Timtarget.Enabled && !s.Timtarget.fresh && w.chance(0.3)) {
        const double until_lay = std::max(0.0, s.Timtarget.due - w.pc().now());
        return w.later(until_lay + w.fraction() * 0.9, event_in_lay);
    }
    if (s.ammoarmed && w.chance(0.15)) return tap(w, s, control::off);
    w.wait(0.3 + w.fraction() * 1.5);
}

}   // namespace

void gunner_step(walker& w, gunnery_screen& s)
{
    if (!s.simrunning) {
        if (takes_input(s.Cmdstartsim)) return w.click(s.Cmdstartsim);
        return w.act("Alt+S", [&] { w.pc().key_down('S', true); });   // its panel is hidden
    }
    if (w.t().shared.paused && w.chance(w.run->stale_pause ? 0.01 : 0.3)) return w.click(s.Cmdpausesim);
    if (s.Cmdtarget.Enabled && w.chance(0.5)) return w.click(s.Cmdtarget);
    s.Imgtargets.Visible && !s.targethit ? engage(w, s) : wait_for_target(w, s);
}

}   // namespace vorn
