// A gunner who knows his drill: selects, lays, lases, lets the fire control lay or lays off himself, fires
// and corrects. He works with whatever he has been given: keys, the buttons on the screen, the stick.
#include <algorithm>
#include <cmath>

#include "gunnery/gunnery.h"
#include "walk/walker.h"

namespace vorn {

namespace {

device device_for(walker& w, const gunnery_screen& s, const hand_row& c)
{
    const practice_state& p = w.t().shared;
    const bool button = p.mouseselected && takes_input(s.*c.button);
    const bool stick = p.joyselected && c.stick != 0;
    if (p.keyboardselected && !(button && w.now_and_then(0.4)) && !(stick && w.now_and_then(0.4)))
        return device::key;
    return stick && !(button && w.now_and_then(0.5)) ? device::stick : device::mouse;
}

void go_down(walker& w, gunnery_screen& s, device by, const hand_row& c)
{
    if (by == device::key) return w.key_down(c.key);
    if (by == device::stick) return w.stick_down(c.stick);
    (s.*c.button).Click ? w.click(s.*c.button) : w.press(s.*c.button);
}

void go_up(walker& w, gunnery_screen& s, device by, const hand_row& c)
{
    if (by == device::mouse) return w.let_go(by, 0, &(s.*c.button));
    w.let_go(by, by == device::key ? c.key : c.stick, nullptr);
}

using steps = std::deque<std::function<void()>>;

// Down now, and up after a while, with what is done meanwhile between.
void hold(walker& w, gunnery_screen& s, hand h, double seconds, const steps& meanwhile = {})
{
    const hand_row& c = row_of(h);
    const device by = device_for(w, s, c);
    steps& intent = w.run->intent;
    if (seconds > 0) intent.push_back([&w, seconds] { w.wait(seconds); });
    for (const auto& step : meanwhile) intent.push_back(step);
    intent.push_back([&w, &s, &c, by] { go_up(w, s, by, c); });
    go_down(w, s, by, c);
}

void tap(walker& w, gunnery_screen& s, hand h)
{
    hold(w, s, h, 0);
}

// Where the next round will come down, beside the aim point, in twips.
struct offset {
    double across = 0, down = 0;
};

offset fall(const trainer& t, const gunnery_screen& s)
{
    const double r = s.currentrange;
    const double scatter = 25;   // in the middle of a burst's
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

// How long a direction is to be held for the picture to move so far.
double seconds_for(const gunnery_screen& s, double twips)
{
    const double ticks = s.visual() ? std::sqrt(420 + 2 * twips) - 20.5 : twips / 30;
    return std::max(1.0, std::floor(ticks)) * timer_floor + 0.001;
}

long deflection(double centre, double factor, double twips)
{
    const double excess = std::copysign(2 * factor + 100, twips) + twips * 100;
    return static_cast<long>(std::clamp(centre + excess, 0.0, 65535.0));
}

void steer_by_stick(walker& w, double across, double down_)
{
    const practice_state& p = w.t().shared;
    const double small = 15;
    w.stick(deflection(p.joyxcentre, p.joyxfactor, std::abs(across) > small ? across : 0),
            deflection(p.joyycentre, p.joyyfactor, std::abs(down_) > small ? down_ : 0));
}

// Brings the target to a place beside the aim point, one direction at a time, the larger error first.
void steer(walker& w, gunnery_screen& s, const offset& to)
{
    const double across = aimacross(s) - to.across;
    const double downward = aimdown(s) - to.down;
    if (w.t().shared.joyselected && w.now_and_then(0.5)) return steer_by_stick(w, across, downward);
    if (std::abs(across) > std::abs(downward))
        return hold(w, s, across > 0 ? hand::right : hand::left, seconds_for(s, std::abs(across)));
    hold(w, s, downward > 0 ? hand::down : hand::up, seconds_for(s, std::abs(downward)));
}

void chooseround(walker& w, gunnery_screen& s)
{
    const bool coaxarmed = s.Lblammotype.Caption == "COAX";
    const bool coaxwanted = s.nature == coax_transport;
    if (!s.ammoarmed) return tap(w, s, coaxwanted ? hand::coax : hand::mainarm);
    if (coaxarmed != coaxwanted || s.heshcorrecting)
        return tap(w, s, w.now_and_then(0.9) ? hand::off : hand::laze);
    tap(w, s, hand::ammo);
}

void shoot(walker& w, gunnery_screen& s)
{
    const bool burst = s.nature == coax_transport;
    hold(w, s, hand::fire, burst ? 0.05 + w.part() * 0.4 : 0);
    // A HESH round that went wide is corrected by two presses with a traverse between them.
    if (s.nature != hesh_bmp || !s.heshcorrecting || !w.now_and_then(0.5)) return;
    w.run->intent.push_back([&w, &s] { tap(w, s, hand::ammo); });
    w.run->intent.push_back([&w, &s] { steer(w, s, {static_cast<double>(s.windoffset), aimdown(s)}); });
    w.run->intent.push_back([&w, &s] { tap(w, s, hand::ammo); });
}

// Held until the lay has run; a HESH round may go with it still held.
void holdautolay(walker& w, gunnery_screen& s)
{
    if (w.now_and_then(0.05)) return tap(w, s, hand::lay);
    const double whole = (s.numbers.layhold + 1) * 0.5 + 0.05;
    const bool firesin = s.gunloaded && w.now_and_then(0.5);
    if (!firesin) return hold(w, s, hand::lay, whole);
    hold(w, s, hand::lay, whole, {[&w, &s] { tap(w, s, hand::fire); }});
}

bool fire_control_works(const walker& w, const gunnery_screen& s)
{
    return w.run->t.shared.systemstatus < 2 && s.ammoarmed;
}

void fight(walker& w, gunnery_screen& s)
{
    if (w.minded_target != s.targetnumber) {
        w.minded_target = s.targetnumber;
        w.by_hand = w.now_and_then(0.5);
        w.lased_target = -1;
    }
    if (s.ammoselected != s.nature || !s.ammoarmed)
        return w.now_and_then(0.1) ? tap(w, s, hand::fire)
                                   : chooseround(w, s);   // too soon, and the wrong round
    if (!w.by_hand && fire_control_works(w, s)) {
        if (s.layready && w.lased_target == s.targetnumber) return holdautolay(w, s);
        if (w.lased_target != s.targetnumber) {
            if (!lies_on(s, {})) return steer(w, s, {});
            w.lased_target = s.targetnumber;
            return tap(w, s, hand::laze);
        }
    }
    if (!lies_on(s, fall(w.t(), s))) return steer(w, s, fall(w.t(), s));
    s.gunloaded ? shoot(w, s) : w.wait(0.2 + w.part());
}

// Something sudden in the midst of the lay that is about to begin.
void ambush(walker& w, const gunnery_screen& s)
{
    const double until = std::max(0.0, s.Timtarget.due - w.pc().now());
    w.note("an ambush");
    w.later(until + w.part() * 0.9, event_in_lay);
}

void await(walker& w, gunnery_screen& s)
{
    if (s.Timtarget.Enabled && !s.Timtarget.fresh && w.now_and_then(0.3)) return ambush(w, s);
    if (s.ammoarmed && w.now_and_then(0.15)) return tap(w, s, hand::off);
    w.wait(0.3 + w.part() * 1.5);
}

}   // namespace

void gunners_step(walker& w, gunnery_screen& s)
{
    // On the plain screen there is nothing to start by, and no way back but out.
    if (!s.simrunning) return takes_input(s.Cmdstartsim) ? w.click(s.Cmdstartsim) : w.close_window();
    if (w.t().shared.paused && w.now_and_then(w.run->stale_pause ? 0.01 : 0.3)) return w.click(s.Cmdpausesim);
    if (s.Cmdtarget.Enabled && w.now_and_then(0.5)) return w.click(s.Cmdtarget);
    s.Imgtargets.Visible && !s.targethit ? fight(w, s) : await(w, s);
}

}   // namespace vorn
