#include <algorithm>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

void explode(trainer& t, gunnery_screen& s)
{
    const area& target = s.Imgtargets;
    s.explodeframe = 1;
    static_cast<area&>(s.Imgexplode) = {target.Left, target.Top - 100, target.Width + 100,
                                        target.Height + 100};
    s.Imgexplode.Picture = s.Imgexp[1].Picture;
    s.Imgexplode.Visible = true;
    s.Imgtargets.Fire = s.visual() ? fire::flames : fire::hot;
    start(s.Timexplode);
    playsound(t, s, t.shared.voiceson ? "explode.wav" : s.numbers.explosion.voiceless);
}

void timexplode_tick(gunnery_screen& s)
{
    s.explodeframe += 1;
    s.Imgexplode.Picture = s.Imgexp[s.explodeframe].Picture;
    if (s.explodeframe <= 14) return;
    stop(s.Timexplode);
    s.Imgexplode.Visible = false;
}

bool killed(const trainer& t, gunnery_screen& s)
{
    if (s.nature != coax_transport) return true;
    s.coaxhits += 1;
    if (s.coaxhits < t.shared.coaxbursts + s.numbers.coax.bursts) return false;
    s.coaxhits = 0;
    return true;
}

bool inkillbox(const trainer& t, const gunnery_screen& s)
{
    const screen_object& target = s.Imgtargets;
    const kill_box box = kill_box_of(s.kind, target.Width, target.Height, t.shared.killradius);
    const bool across = s.ammo.Left > target.Left + box.left && s.ammo.Left < target.Left + box.right;
    return across && s.ammo.Top > target.Top + box.top && s.ammo.Top < target.Top + box.bottom;
}

constexpr double fin_speed = 1500, hesh_speed = 670;   // metres per second
// Seconds. No event is handled during relay and flight. Together they take less than 4 seconds, since a
// desktop reports after about 5 that a program doesn't respond.
constexpr double longest_flight = 3.4;

double flightseconds(const gunnery_screen& s, double speed)
{
    return std::clamp(s.currentrange / speed, 0.0, longest_flight);
}

void shotsound(trainer& t, gunnery_screen& s)
{
    s.visual() ? playsound(t, s, "fire.wav") : effect(t, s, "fire.wav");
}

void endflight(trainer& t, gunnery_screen& s, int round, round_kind kind)
{
    s.ammo.Visible = false;
    if (!assessround(t, s, round)) showstrike(t, s, kind);
}

// The sideways spread of FIN: up to a third of the target's width, always to the right.
double drawspreadx(trainer& t, const gunnery_screen& s)
{
    const double third = s.Imgtargets.Width / 3;
    return Int(third) - Int(third * Rnd(t.random));
}

double drawspready(trainer& t, const gunnery_screen& s)
{
    const double band = s.numbers.scatter;
    return band == 0 ? 0 : Int(Rnd(t.random) * band - band / 2);
}

// With the full system and a lased range, starts a HESH correction and, on the visual sight with AUTO held,
// reverses the lay. Otherwise clears the correction on the visual sight. Returns the target's upward move.
double preparehesh(trainer& t, gunnery_screen& s)
{
    if (t.shared.systemstatus >= 2 || !s.lazed) {
        if (s.visual()) s.heshcorrection = 0;
        return 0;
    }
    if (!s.visual() || s.autolaydown) s.lazed = false;
    const double relayed = s.visual() && s.autolaydown ? relay(t, s) : 0;
    s.heshcorrecting = true;
    s.correctstep = 0;
    return relayed;
}

}   // namespace

void firefin(trainer& t, gunnery_screen& s, int round)
{
    const fin_numbers& n = s.numbers.fin;
    s.hasfired = true;
    if (!s.visual()) shotsound(t, s);
    const double spready = drawspready(t, s);
    const double spreadx = drawspreadx(t, s);
    const double from = s.mbs1.Top + n.from, to = s.mbs1.Top + n.to.at(s.currentrange);
    s.ammo.Width = s.ammo.Height = n.size;
    s.ammo.Left = s.mbs1.Left;
    s.ammo.Top = from;
    count(t.pc, from, to, n.step, flightseconds(s, fin_speed), [&](double y) {
        s.ammo.Top = y + spready;
        s.ammo.Height = std::max(s.ammo.Height - n.shrink, n.smallest);
        s.ammo.Width = std::max(s.ammo.Width - n.shrink, n.smallest);
        s.ammo.Left = std::min(s.ammo.Left + n.drift, s.mbs1.Left + spreadx);
        s.ammo.Visible = true;
    });
    endflight(t, s, round, round_kind::fin);
}

void firehesh(trainer& t, gunnery_screen& s, int round)
{
    const hesh_numbers& n = s.numbers.hesh;
    const double spready = n.below + drawspready(t, s);
    shotsound(t, s);
    s.hasfired = true;
    const double relayed = preparehesh(t, s);
    const double from = s.mbs1.Top - (s.currentrange + n.from), to = s.mbs1.Top + n.to.at(s.currentrange);
    s.ammo.Top = to;   // the fall of shot if the flight has no counts
    s.ammo.Left = s.mbs1.Left + (s.windoffset - static_cast<double>(s.heshcorrection));
    s.ammo.Visible = true;
    int c = 1;
    count(t.pc, from, to - relayed, n.step, flightseconds(s, hesh_speed), [&](double y) {
        c = std::min(c + 1, 340);
        s.ammo.Height = 360 - c;
        s.ammo.Width = 360 - c;
        s.ammo.Top = y + spready;
    });
    endflight(t, s, round, round_kind::hesh);
}

void showstrike(trainer& t, const gunnery_screen& s, round_kind kind)
{
    t.pc.show_strike({.round = kind,
                      .hot = !s.visual(),
                      .ground = &s.Imgrange,
                      .Left = s.ammo.Left - s.Imgrange.Left,
                      .Top = s.ammo.Top - s.Imgrange.Top,
                      .size = target_width(s.numbers, s.currentrange, t.shared.targetsize),
                      .wind = t.shared.windbias});
}

bool assessround(trainer& t, gunnery_screen& s, int round)
{
    t.shared.killradius = static_cast<float>(s.Imgtargets.Width / t.shared.killarea);
    t.shared.recfallx[row(t)][round] = s.Imgtargets.Left - s.ammo.Left;
    t.shared.recfally[row(t)][round] = s.Imgtargets.Top - s.ammo.Top;
    if (!s.Imgtargets.Visible) return false;
    if (!inkillbox(t, s)) {
        s.loadcount = 1;
        start(s.Timloading);
        return false;
    }
    if (!killed(t, s)) return true;
    s.lblcrew.Caption = "COMD: TARGET STOP !!";
    callcrew(t, s, "targetstop.wav");
    explode(t, s);
    recordhit(t, s);
    return true;
}

void make_flight(gunnery_screen& s)
{
    add(s.window, s.Timexplode, s.numbers.explosion.interval, [&s] { timexplode_tick(s); });
}

}   // namespace vorn
