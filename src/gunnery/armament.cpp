#include <algorithm>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

struct ammo_row {
    const char* caption;
    nature_of_target nature;
    double Left = 0, Top = 0;   // of the caption on the ammunition dial of the visual sight
};

const ammo_row& row_of(ammo_shown a)
{
    static constexpr ammo_row rows[] = {{"", no_nature},
                                        {"FIN", fin_tank, 480, 1680},
                                        {"DST", fin_tank, 1060, 2160},
                                        {"HESH", hesh_bmp, 1160, 2160},
                                        {"COAX", coax_transport, 1260, 1680},
                                        {"FIN ", hesh_bmp},
                                        {"DST ", hesh_bmp}};
    return rows[static_cast<int>(a)];
}

// On the thermal sight the selection of a weapon replaces the stadia mark with the laser aiming mark.
void showaimingmark(gunnery_screen& s)
{
    if (s.visual()) return;
    static_cast<area&>(s.Imglam) = s.Imgstadia;
    s.Imglam.Visible = true;
    for (screen_object* o : {&s.imgbam, &s.Imgstadia, &s.Imgrevhesh, &s.Imgrevfin}) o->Visible = false;
}

void selectround(trainer& t, gunnery_screen& s, ammo_shown a)
{
    const ammo_row& r = row_of(a);
    showammo(s, a);
    s.ammoselected = r.nature;
    t.shared.recammo[row(t)] = r.caption;
    if (!s.visual()) return;
    s.Lblammotype.Left = r.Left;
    s.Lblammotype.Top = r.Top;
}

void nextround(trainer& t, gunnery_screen& s)
{
    static constexpr ammo_shown cycle[] = {ammo_shown::fin, ammo_shown::dst, ammo_shown::hesh};
    s.ammoindex = s.ammoindex >= 2 ? 0 : s.ammoindex + 1;
    s.Cmdfire.Enabled = true;
    selectround(t, s, cycle[static_cast<int>(s.ammoindex)]);
    if (s.visual() && s.ammoselected != hesh_bmp) s.autolaycount = 2;
}

// Two presses of Cmdmaingun with a traverse in between correct the next rounds sideways. Each further press
// replaces the second.
void heshcorrect(gunnery_screen& s)
{
    s.Cmdautolay.Enabled = true;
    if (s.correctstep == 1) s.correctfrom = static_cast<float>(s.Imgrange.Left);
    if (s.correctstep == 2) {
        s.correctto = static_cast<float>(s.Imgrange.Left);
        s.layready = true;
    }
    if (!s.visual() || s.Imgtargets.Visible) s.heshcorrection = s.correctto - s.correctfrom;
}

void cmdmaingun_click(trainer& t, gunnery_screen& s)
{
    if (!s.heshcorrecting) {
        if (s.ammoarmed) nextround(t, s);
        return;
    }
    if (!s.visual())
        showammo(s, s.shown == ammo_shown::hesh_as_fin ? ammo_shown::hesh_as_dst : ammo_shown::hesh_as_fin);
    s.correctstep = std::min(s.correctstep + 1, 2);
    heshcorrect(s);
}

// Selects FIN and then does what Cmdmaingun does. While heshcorrecting is set, the press counts for the
// correction. Otherwise DST is selected if a weapon was already selected. The thermal record contains FIN in
// each case, the visual record contains the round selected.
void cmdselectmain_click(trainer& t, gunnery_screen& s)
{
    showaimingmark(s);
    s.hasfired = false;
    s.Imghesh.Visible = false;
    s.Cmdselectmain.Enabled = false;
    s.ammoindex = 0;
    showammo(s, ammo_shown::fin);
    s.ammoselected = fin_tank;
    if (s.visual()) {
        start(s.Timchrg);
        t.shared.recammo[row(t)] = "FIN";
        s.autolaycount = 2;
    }
    s.Cmdcoax.Enabled = false;
    for (screen_object* o : {&s.Cmdlaze, &s.Cmdfire, &s.Cmdmaingun}) o->Enabled = true;
    cmdmaingun_click(t, s);
    s.laze.Visible = false;
    s.ammoarmed = true;
    if (!s.visual()) t.shared.recammo[row(t)] = "FIN";
}

void cmdcoax_click(trainer& t, gunnery_screen& s)
{
    showaimingmark(s);
    s.hasfired = false;
    for (screen_object* o : {&s.Cmdmaingun, &s.Cmdselectmain}) o->Enabled = false;
    for (screen_object* o : {&s.Cmdfire, &s.Cmdlaze}) o->Enabled = true;
    s.laze.Visible = false;
    selectround(t, s, ammo_shown::coax);
    s.ammoarmed = true;
    s.Imgcoax.Visible = false;
}

void emptygun(gunnery_screen& s)
{
    s.gunloaded = false;
    s.Imgloaded.Visible = false;
}

void deselect_visual(gunnery_screen& s)
{
    s.leadperstep = 0;
    s.Lblcharge.Visible = false;
    stop(s.Timchrg);
    s.coaxfired = false;
    s.laze.Visible = false;
}

void deselect_thermal(gunnery_screen& s)
{
    s.hasfired = false;
    for (screen_object* o : {&s.Imglam, &s.imgbam, &s.Imgrevhesh, &s.Imgrevfin}) o->Visible = false;
    s.Imgstadia.Visible = true;
    s.coaxhits = 0;
}

void cmdoff_click(const trainer& t, gunnery_screen& s)
{
    s.visual() ? deselect_visual(s) : deselect_thermal(s);
    if (!s.Imgtargets.Visible) emptygun(s);
    s.ammoarmed = false;
    s.heshcorrecting = false;
    if (t.shared.heshcorrectall) s.heshcorrection = 0;
    for (screen_object* o : {&s.Cmdautolay, &s.Cmdmaingun, &s.Cmdfire}) o->Enabled = false;
    for (screen_object* o : {&s.Cmdselectmain, &s.Cmdcoax}) o->Enabled = true;
    showammo(s, ammo_shown::nothing);
    s.Lblrange.Caption.clear();
    for (screen_object* o : {&s.Imghesh, &s.Imgcoax}) o->Visible = true;
}

void loaderreports(trainer& t, gunnery_screen& s)
{
    s.lblcrew.Caption = "LOADER :- LOADED !!";
    const bool coaxquiet = s.visual() ? !s.coaxfired : !s.Timcoax.Enabled;
    if (!t.shared.voiceson || !coaxquiet) return;
    if (!s.hasfired && s.visual()) s.lblcrew.Caption = "LOADED....  FIRE";
    callcrew(t, s, s.hasfired ? "loaded.wav" : "loadfire.wav");
}

// A gun that was already loaded is reported on the first tick.
void timloading_tick(trainer& t, gunnery_screen& s)
{
    s.loadcount += 1;
    if (s.loadcount >= s.numbers.loaded.from && s.loadcount <= s.numbers.loaded.to) s.gunloaded = true;
    if (!s.gunloaded) return;
    stop(s.Timloading);
    if (s.nature != coax_transport) s.Imgloaded.Visible = true;
    loaderreports(t, s);
}

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

void wronground(trainer& t, gunnery_screen& s)
{
    static constexpr struct {
        const char* line;
        const char* voice;
    } corrections[] = {{"COMMANDER : SELECT FIN", "selectfin.wav"},
                       {"COMMANDER : SELECT HESH", "selechesh.wav"},
                       {"COMMANDER : SELECT COAX", "selectcoax.wav"}};
    const auto& c = corrections[static_cast<int>(s.nature)];
    s.lblcrew.Caption = c.line;
    if (t.shared.voiceson)
        callcrew(t, s, c.voice);
    else if (!s.visual())
        playsound(t, s, c.voice);   // the thermal screen plays the voice even with voices off
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
    assessround(t, s, round);
    if (!s.Imgtargets.Visible || !inkillbox(t, s)) showstrike(t, s, kind);
}

// The sideways spread of FIN: up to a third of the target's width, always to the right.
double drawspreadx(trainer& t, const gunnery_screen& s)
{
    const double third = s.Imgtargets.Width / 3;
    return Int(third) - Int(third * Rnd(t.random));
}

double drawspready(trainer& t, const gunnery_screen& s)
{
    return s.visual() ? Int(Rnd(t.random) * 150 - 75) : 0;
}

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

}   // namespace

void showammo(gunnery_screen& s, ammo_shown a)
{
    s.shown = a;
    s.Lblammotype.Caption = row_of(a).caption;
}

nature_of_target natureshown(const gunnery_screen& s)
{
    return row_of(s.shown).nature;
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

void assessround(trainer& t, gunnery_screen& s, int round)
{
    t.shared.killradius = static_cast<float>(s.Imgtargets.Width / t.shared.killarea);
    t.shared.recfallx[row(t)][round] = s.Imgtargets.Left - s.ammo.Left;
    t.shared.recfally[row(t)][round] = s.Imgtargets.Top - s.ammo.Top;
    if (!s.Imgtargets.Visible) return;
    if (!inkillbox(t, s)) {
        s.loadcount = 1;
        start(s.Timloading);
        return;
    }
    if (!killed(t, s)) return;
    s.lblcrew.Caption = "COMD: TARGET STOP !!";
    callcrew(t, s, "targetstop.wav");
    explode(t, s);
    recordhit(t, s);
}

// The gun fires even without a target, a lay or a lase.
void keyfire(trainer& t, gunnery_screen& s)
{
    static constexpr void (*fire[])(trainer&, gunnery_screen&, int) = {firefin, firehesh, firecoax};
    if (!s.gunloaded) return;
    s.Cmdautolay.Enabled = false;
    if (s.nature != s.ammoselected) return wronground(t, s);
    const int round = t.shared.roundnumber;
    t.shared.recaimx[row(t)][round] = aimacross(s);
    t.shared.recaimy[row(t)][round] = s.visual() ? aimdown(s) : -aimdown(s);
    if (s.nature != coax_transport) {
        if (s.visual()) playsound(t, s, "fire.wav");
        emptygun(s);
    }
    t.shared.roundnumber = std::min(round + 1, 4);
    t.shared.recrounds[row(t)] = t.shared.roundnumber - 1;
    fire[static_cast<int>(s.nature)](t, s, round);
}

void make_armament(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timloading, 1000, [&t, &s] { timloading_tick(t, s); });
    add(s.window, s.Timexplode, s.numbers.explosion.interval, [&s] { timexplode_tick(s); });
    s.Cmdselectmain.Click = [&t, &s] { cmdselectmain_click(t, s); };
    s.Cmdmaingun.Click = [&t, &s] { cmdmaingun_click(t, s); };
    s.Cmdcoax.Click = [&t, &s] { cmdcoax_click(t, s); };
    s.Cmdoff.Click = [&t, &s] { cmdoff_click(t, s); };
}

}   // namespace vorn
