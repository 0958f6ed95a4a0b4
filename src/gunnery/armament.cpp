#include <algorithm>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

int row(const trainer& t)
{
    return t.shared.engagement;
}

// The thermal sight goes over from the stadia to the laser aiming mark when a weapon is selected.
void showaimingmark(gunnery_screen& s)
{
    if (s.visual()) return;
    s.Imglam.Height = s.Imgstadia.Height;
    s.Imglam.Width = s.Imgstadia.Height;
    s.Imglam.Left = s.Imgstadia.Left;
    s.Imglam.Top = s.Imgstadia.Top;
    s.Imglam.Visible = true;
    for (screen_object* o : {&s.imgbam, &s.Imgstadia, &s.Imgrevhesh, &s.Imgrevfin}) o->Visible = false;
}

void cmdmaingun_click(trainer& t, gunnery_screen& s);

// Selecting it again steps on to the next round. The thermal record says FIN all the same, the visual one
// not.
void cmdselectmain_click(trainer& t, gunnery_screen& s)
{
    showaimingmark(s);
    s.hasfired = false;
    s.Imghesh.Visible = false;
    s.Cmdselectmain.Enabled = false;
    s.ammoindex = 0;
    s.Lblammotype.Caption = "FIN";
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

void selectround(trainer& t, gunnery_screen& s)
{
    struct round {
        const char* caption;
        double Left, Top;   // of the caption on the visual dial
        int nature;
    };
    static constexpr round cycle[] = {
        {"FIN", 480, 1680, fin_tank}, {"DST", 1060, 2160, fin_tank}, {"HESH", 1160, 2160, hesh_bmp}};
    s.ammoindex = s.ammoindex >= 2 ? 0 : s.ammoindex + 1;
    const round& r = cycle[static_cast<int>(s.ammoindex)];
    s.Cmdfire.Enabled = true;
    s.Lblammotype.Caption = r.caption;
    s.ammoselected = r.nature;
    t.shared.recammo[row(t)] = r.caption;
    if (r.nature == hesh_bmp) s.correctstep = 0;
    if (!s.visual()) return;
    s.Lblammotype.Left = r.Left;
    s.Lblammotype.Top = r.Top;
    if (r.nature == fin_tank) s.autolaycount = 2;
}

// Two presses with a traverse between them take the sideways error off the next rounds; a third takes the end
// again.
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
        if (s.simrunning && s.ammoarmed) selectround(t, s);
        return;
    }
    if (!s.visual()) s.Lblammotype.Caption = s.Lblammotype.Caption == "FIN " ? "DST " : "FIN ";
    s.correctstep = std::min(s.correctstep + 1, 2);
    heshcorrect(s);
}

void cmdcoax_click(trainer& t, gunnery_screen& s)
{
    showaimingmark(s);
    s.hasfired = false;
    for (screen_object* o : {&s.Cmdmaingun, &s.Cmdselectmain}) o->Enabled = false;
    for (screen_object* o : {&s.Cmdfire, &s.Cmdlaze}) o->Enabled = true;
    s.laze.Visible = false;
    if (!s.simrunning) return;
    s.Lblammotype.Caption = "COAX";
    if (s.visual()) {
        s.Lblammotype.Left = 1260;
        s.Lblammotype.Top = 1680;
    }
    s.ammoarmed = true;
    s.Imgcoax.Visible = false;
    s.ammoselected = coax_transport;
    t.shared.recammo[row(t)] = "COAX";
}

void emptygun(gunnery_screen& s)
{
    s.gunloaded = false;
    s.Imgloaded.Visible = false;
}

void deselect_visual(gunnery_screen& s)
{
    s.autolayheld = false;
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
    for (screen_object* o : {&s.Lblammotype, &s.Lblrange}) o->Caption.clear();
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

// The loader. A gun that was loaded already when the target came is reported on the first tick.
void timloading_tick(trainer& t, gunnery_screen& s)
{
    s.loadcount += 1;
    const bool done = s.visual() ? s.loadcount >= s.numbers.loadedat : s.loadcount == s.numbers.loadedat;
    if (done) s.gunloaded = true;
    if (!s.gunloaded) return;
    stop(s.Timloading);
    if (s.nature != coax_transport) s.Imgloaded.Visible = true;
    loaderreports(t, s);
}

void roundmissed(gunnery_screen& s)
{
    s.loadcount = 1;
    start(s.Timloading);
}

void explode(trainer& t, gunnery_screen& s)
{
    s.explodeframe = 1;
    s.Imgexplode.Top = s.Imgtargets.Top - 100;
    s.Imgexplode.Left = s.Imgtargets.Left;
    s.Imgexplode.Height = s.Imgtargets.Height + 100;
    s.Imgexplode.Width = s.Imgtargets.Width + 100;
    s.Imgexplode.Picture = s.Imgexp[1].Picture;
    s.Imgexplode.Visible = true;
    start(s.Timexplode);
    playsound(t, s, s.visual() && !t.shared.voiceson ? "explode1.wav" : "explode.wav");
}

void timexplode_tick(gunnery_screen& s)
{
    s.explodeframe += 1;
    s.Imgexplode.Picture = s.Imgexp[s.explodeframe].Picture;
    if (s.explodeframe <= 14) return;
    stop(s.Timexplode);
    s.Imgexplode.Visible = false;
}

// A coax target needs more hits than the bursts that are set, the thermal one another more.
bool killed(const trainer& t, gunnery_screen& s)
{
    if (s.nature != coax_transport) return true;
    s.coaxhits += 1;
    if (s.coaxhits <= t.shared.coaxbursts + (s.visual() ? 0 : 1)) return false;
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

void recordaim(trainer& t, gunnery_screen& s)
{
    s.aimrow = t.shared.roundnumber;
    const auto round = s.aimrow;
    t.shared.recaimx[row(t)][round] = aimacross(s);
    t.shared.recaimy[row(t)][round] = s.visual() ? aimdown(s) : -aimdown(s);
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
        playsound(t, s, c.voice);   // the thermal screen says it with voices off too
}

// No flight holds the events up for longer, so that with the re-lay all is over in four seconds.
constexpr double longest_flight = 3.4;

double flightseconds(const gunnery_screen& s, double metres_a_second)
{
    return std::clamp(s.currentrange / metres_a_second, 0.0, longest_flight);
}

double finseconds(const gunnery_screen& s)
{
    return flightseconds(s, 1500);
}

double heshseconds(const gunnery_screen& s)
{
    return flightseconds(s, 670);
}

void shotsound(trainer& t, gunnery_screen& s)
{
    s.visual() ? playsound(t, s, "fire.wav") : effect(t, s, "fire.wav");
}

void endflight(trainer& t, gunnery_screen& s)
{
    s.ammo.Visible = false;
    assessround(t, s);
}

// A chance place up to a third of the target's width, always to the right.
void drawspreadx(trainer& t, gunnery_screen& s)
{
    const double third = s.Imgtargets.Width / 3;
    s.spreadx = Int(third) - Int(third * Rnd(t.random));
}

void drawspready(trainer& t, gunnery_screen& s)
{
    s.spready = Int(Rnd(t.random) * 150 - 75);
}

// What the round loses of its size and gains to the side at each count of a FIN flight.
struct fin_flight {
    double size, from, to, step, shrink, smallest, drift;
};

// The round rises from below the aim point and dwindles.
void flyfin(trainer& t, gunnery_screen& s, const fin_flight& f, double spread)
{
    s.ammo.Width = s.ammo.Height = f.size;
    s.ammo.Left = s.mbs1.Left;
    count(t.pc, f.from, f.to, f.step, finseconds(s), [&](double y) {
        s.ammo.Top = y + spread;
        s.ammo.Height = std::max(s.ammo.Height - f.shrink, f.smallest);
        s.ammo.Width = std::max(s.ammo.Width - f.shrink, f.smallest);
        s.ammo.Left = std::min(s.ammo.Left + f.drift, s.mbs1.Left + s.spreadx);
        s.ammo.Visible = true;
    });
    endflight(t, s);
}

void firefin(trainer& t, gunnery_screen& s)
{
    s.hasfired = true;
    if (s.visual()) {
        drawspready(t, s);
        drawspreadx(t, s);
        s.ammo.Top = 2560;
        return flyfin(t, s, {600, 2560, s.mbs1.Top + s.currentrange / 2.0, -20, 20, 20, 3}, s.spready);
    }
    shotsound(t, s);
    drawspreadx(t, s);
    flyfin(t, s, {500, s.mbs1.Top + 1000, s.mbs1.Top, -1, 2, 10, 1}, 0);
}

// The round comes down from the top of the picture and dwindles to 20 twips.
void flyhesh(trainer& t, gunnery_screen& s, double from, double to, double step, double spread)
{
    s.ammo.Left = s.mbs1.Left + (s.windoffset - static_cast<double>(s.heshcorrection));
    s.ammo.Width = 30;
    s.ammo.Visible = true;
    int c = 1;
    count(t.pc, from, to, step, heshseconds(s), [&](double v) {
        c = std::min(c + 1, 340);
        s.ammo.Height = 360 - c;
        s.ammo.Width = 360 - c;
        s.ammo.Top = v + spread;
    });
    endflight(t, s);
}

// A lased round in the full system opens the correction. With the autolay still held the lay is taken off
// again while the round is in the air.
void preparehesh(trainer& t, gunnery_screen& s)
{
    s.relayed = 0;
    if (t.shared.systemstatus >= 2 || !s.lazed) {
        if (s.visual()) s.heshcorrection = 0;
        return;
    }
    if (!s.visual() || s.autolaydown) s.lazed = false;
    if (s.visual() && s.autolaydown) relay(t, s);
    s.heshcorrecting = true;
    s.correctstep = 0;
}

void firehesh(trainer& t, gunnery_screen& s)
{
    if (s.visual()) drawspready(t, s);
    shotsound(t, s);
    s.hasfired = true;
    preparehesh(t, s);
    const double aim = s.mbs1.Top;
    const double high = s.currentrange + 1000.0;
    if (s.visual()) {
        const double drop = 2.0 * s.currentrange;
        s.ammo.Top = aim + drop;
        flyhesh(t, s, s.mbs.Top - high, aim + drop - s.relayed, 0.3, s.spready);
    } else {
        s.ammo.Top = aim;
        flyhesh(t, s, aim - high, aim, 0.2, 50);
    }
}

}   // namespace

void assessround(trainer& t, gunnery_screen& s)
{
    t.shared.killradius = static_cast<float>(s.Imgtargets.Width / std::max(t.shared.killarea, 1));
    const auto round = s.aimrow;
    t.shared.recfallx[row(t)][round] = s.Imgtargets.Left - s.ammo.Left;
    t.shared.recfally[row(t)][round] = s.Imgtargets.Top - s.ammo.Top;
    if (!s.Imgtargets.Visible) return;
    if (!inkillbox(t, s)) return roundmissed(s);
    if (!killed(t, s)) return;
    s.lblcrew.Caption = "COMD: TARGET STOP !!";
    callcrew(t, s, "targetstop.wav");
    explode(t, s);
    recordhit(t, s);
}

// The gun fires wherever it is: no target, lay or lase is asked for.
void keyfire(trainer& t, gunnery_screen& s)
{
    if (!s.gunloaded) return;
    s.Cmdautolay.Enabled = false;
    if (s.nature != s.ammoselected) return wronground(t, s);
    recordaim(t, s);
    if (s.nature != coax_transport) {
        if (s.visual()) playsound(t, s, "fire.wav");
        emptygun(s);
    }
    t.shared.roundnumber = std::min(t.shared.roundnumber + 1, 4);
    t.shared.recrounds[row(t)] = t.shared.roundnumber - 1;
    switch (s.nature) {
        case fin_tank:
            return firefin(t, s);
        case hesh_bmp:
            return firehesh(t, s);
        default:
            return firecoax(t, s);
    }
}

void make_armament(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timloading, 1000, [&t, &s] { timloading_tick(t, s); });
    add(s.window, s.Timexplode, s.visual() ? 10 : 1, [&s] { timexplode_tick(s); });
    s.Cmdselectmain.Click = [&t, &s] { cmdselectmain_click(t, s); };
    s.Cmdmaingun.Click = [&t, &s] { cmdmaingun_click(t, s); };
    s.Cmdcoax.Click = [&t, &s] { cmdcoax_click(t, s); };
    s.Cmdoff.Click = [&t, &s] { cmdoff_click(t, s); };
}

}   // namespace vorn
