#include <algorithm>

#include "gunnery/gunnery.h"
#include "ranges/rangefile.h"
#include "trainer.h"

namespace vorn {

namespace {

// The next order comes when Timpause has raised pausecount to `ticks` or more. With targets on demand a click
// on SHOW NEXT TARGET starts Timpause.
void waitfornext(trainer& t, gunnery_screen& s, int ticks)
{
    s.targetwait = ticks;
    if (t.shared.targetauto)
        start(s.Timpause);
    else
        s.Cmdtarget.Enabled = true;
}

void cmdstartsim_click(trainer& t, gunnery_screen& s)
{
    s.Cmdstopsim.Enabled = true;
    s.Cmdpausesim.Enabled = true;
    s.Cmdstartsim.Enabled = false;
    s.keynote.Caption.clear();            // stays visible, so that the sight keeps its size
    s.window.takes_focus = &s.Picrange;   // so that Space doesn't click a button
    s.simrunning = true;
    s.lblcrew.Caption = "COMMANDER:- ACTION !!";
    say(t, s, "action.wav");
    waitfornext(t, s, 7);
    for (screen_object* o : {&s.Cmdcoax, &s.Cmdselectmain, &s.Cmdoff}) o->Enabled = true;
}

void cmdtarget_click(gunnery_screen& s)
{
    s.Cmdtarget.Enabled = false;
    start(s.Timpause);
}

// After a resume pausecount increases even while a target is up, so it can be greater than the next wait.
void timpause_tick(trainer& t, gunnery_screen& s)
{
    s.pausecount += 1;
    if (s.pausecount < s.targetwait) return;
    s.pausecount = 0;
    stop(s.Timpause);
    nexttarget(t, s);
}

// FIN, HESH, COAX in turn. Nothing resets ordercount. The 20th order is FIN. The 19th and all after the 20th
// keep the nature of the order before, even if that was in another practice.
void choosemixed(gunnery_screen& s)
{
    s.ordercount += 1;
    if (s.ordercount <= 18)
        s.nature = (s.ordercount - 1) % 3;
    else if (s.ordercount == 20)
        s.nature = fin_tank;
}

void choosenature(const trainer& t, gunnery_screen& s)
{
    static constexpr nature_of_target natures[] = {coax_transport, hesh_bmp, fin_tank};   // of types 2 to 4
    const int type = t.shared.engagementtype;
    if (type == 1) choosemixed(s);
    if (type >= 2 && type <= 4) s.nature = natures[type - 2];
}

struct order {
    const char* visual;
    const char* thermal;
    const char* voice;
};
constexpr order orders[] = {{"FIN TANK ", "COMMANDER :- FIN TANK  !!", "fin1.wav"},
                            {"HESH BMP ", "COMMADER :- HESH BMP !!", "hesh1.wav"},
                            {"COAX TRANSPORT ", "COMMANDER :- COAX TRANSPORT !!", "coaxon1.wav"}};

// The commander's estimate is based on the range of the previous target.
void showestimate(trainer& t, gunnery_screen& s)
{
    const bool none = s.nature == fin_tank && s.currentrange < 1;
    const double estimate = none ? 1000 : Int((Rnd(t.random) * 3 + 3) * (s.currentrange / 5.0));
    s.Lblrange.Caption = number_text(estimate) + "S";
}

// Raises the system status by one with each third of the targets. It is 0 at first; 0 and 1 are the full
// system. Called every second of an engagement. In the first call the new target isn't counted yet, so on
// the visual sight the commander's report follows the previous status.
void degrade(trainer& t, const gunnery_screen& s)
{
    const double thirds = static_cast<double>(s.targetnumber) / t.shared.targetblocks;
    t.shared.systemstatus = s.visual() ? Int(thirds) : rounded(thirds);
}

void recordsystem(trainer& t, gunnery_screen& s)
{
    static constexpr struct {
        const char *recorded, *letter, *suffix;
    } degraded[] = {{"LAZE ONLY", "L", "L"}, {"TLS ONLY", "T", "S"}};   // status 2 and 3
    const int n = t.shared.systemstatus - 2;
    t.shared.recsystem[row(t)] = "FULL";
    if (n != 0 && n != 1) return;   // the letter shown before stays
    t.shared.recsystem[row(t)] = degraded[n].recorded;
    s.Lblsystem.Caption = degraded[n].letter;
    if (!s.visual()) s.rangesuffix = degraded[n].suffix;
}

void drawposition(trainer& t, gunnery_screen& s)
{
    s.targetindex = static_cast<int>(Int(Rnd(t.random) * (practice_entries - 1))) + 1;
}

// The current candidate may be exactly at the limit; a position drawn to replace it must be nearer. If no
// position is nearer than the limit, takes the nearest one, since a draw would never succeed.
void drawnearer(trainer& t, gunnery_screen& s, int limit)
{
    const auto& range = t.shared.targetrange;
    if (range[s.targetindex] <= limit) return;
    const auto ranges = range.begin();
    const auto nearest = std::min_element(ranges + 1, ranges + practice_entries);
    if (*nearest >= limit) {
        s.targetindex = static_cast<int>(nearest - ranges);
        return;
    }
    while (range[s.targetindex] >= limit) drawposition(t, s);
}

void chooseposition(trainer& t, gunnery_screen& s)
{
    constexpr int coax_limit = 1300;   // metres
    constexpr int fin_limit = 1600;
    if (s.nature == coax_transport) drawnearer(t, s, coax_limit);
    if (s.nature == fin_tank) drawnearer(t, s, fin_limit);
    const screen_object& holder = s.nature == coax_transport ? s.Imgtargetcoax
                                  : s.nature == fin_tank     ? s.Imgtargetfin
                                                             : s.Imgtargethesh;
    s.Imgtargets.Picture = holder.Picture;
    s.currenttarget = s.targetindex;
    s.currentrange = std::max<int>(t.shared.targetrange[s.currenttarget], s.numbers.nearest);
}

void placetarget(trainer& t, gunnery_screen& s)
{
    const int position = s.currenttarget;
    t.pc.clear_strikes();
    s.Imgtargets.Width = target_width(s.numbers, s.currentrange, t.shared.targetsize);
    s.Imgtargets.Height = s.Imgtargets.Width;
    s.Imgtargets.Fire = fire::none;
    s.Imgtargets.Left = s.Imgrange.Left + t.shared.targetx[position];
    s.Imgtargets.Top = s.Imgrange.Top + t.shared.targety[position];
    s.windoffset = static_cast<int>(Int(t.shared.windbias * s.Imgtargets.Width / 2));
    s.Imgtargets.Visible = true;
    t.shared.recrange[row(t)] = t.shared.targetrange[position];
    t.shared.recx[row(t)] = t.shared.targetx[position];
    t.shared.recy[row(t)] = t.shared.targety[position];
    if (s.visual()) t.shared.recwidth[row(t)] = s.Imgtargets.Width;
}

void presenttarget(trainer& t, gunnery_screen& s)
{
    t.shared.roundnumber = 1;
    s.targetnumber += 1;
    chooseposition(t, s);
    placetarget(t, s);
    if (s.visual()) s.lbltargetnum.Caption = "TARGET " + std::to_string(s.targetnumber) + " OF 9";
    s.targetcalled = false;
    s.Label2.Caption = std::to_string(s.targetnumber);
}

void showtimeleft(gunnery_screen& s)
{
    const int left = std::max(s.targetlife - s.targetticks, 0);
    s.Label1.Caption = left < 50 ? std::to_string(left) : "NA";
}

void recordmiss(trainer& t, gunnery_screen& s)
{
    s.lblcrew.Caption = "STOP DESELECT !!";
    say(t, s, "deselect.wav");
    t.shared.rectarget[row(t)] = t.shared.engagement;
    t.shared.rechit[row(t)] = "NO";
    t.shared.rectime[row(t)] = 100;
}

void taketargetdown(trainer& t, gunnery_screen& s)
{
    s.Imgtargets.Visible = false;
    if (s.visual()) stop(s.Timloading);
    if (!s.targethit) recordmiss(t, s);
    static_cast<since_target&>(s) = {};
    t.shared.engagement += 1;
    stop(s.Timtarget);
    if (s.targetnumber >= t.shared.targetblocks * 3) return cmdstopsim_click(t, s);
    const auto [least, most] = s.numbers.wait;
    const int waits = most - least + 1;
    waitfornext(t, s, waits == 1 ? least : static_cast<int>(Int(Rnd(t.random) * waits + least)));
}

// One second of an engagement. Presents the target in the first second and takes it down in the last.
void timtarget_tick(trainer& t, gunnery_screen& s)
{
    if (t.shared.selfdegrading) degrade(t, s);
    recordsystem(t, s);
    if (!s.Imgtargets.Visible) presenttarget(t, s);
    if (!s.targetcalled && !commanderslay(t, s)) return;
    s.targetticks += 1;
    if (!s.visual() && s.targetticks > 5) s.lblcrew.Caption.clear();
    showtimeleft(s);
    if (s.targetticks >= s.targetlife) taketargetdown(t, s);
}

// A resume starts all three timers, even those that didn't run before the pause.
void cmdpausesim_click(trainer& t, gunnery_screen& s)
{
    t.shared.paused = !t.shared.paused;
    showpause(s, t.shared.paused);
    for (timer* clock : {&s.Timtarget, &s.Timloading, &s.Timpause})
        t.shared.paused ? stop(*clock) : start(*clock);
    for (screen_object* o : {&s.Cmdfire, &s.Cmdautolay}) o->Enabled = !t.shared.paused;
}

}   // namespace

void nexttarget(trainer& t, gunnery_screen& s)
{
    s.targetticks = 1;
    choosenature(t, s);
    s.targetlife = t.shared.targettime;
    const order& given = orders[s.nature];
    s.lblcrew.Caption = s.visual() ? given.visual : given.thermal;
    if (!s.visual()) showestimate(t, s);
    callcrew(t, s, given.voice);
    s.loadcount = s.nature == coax_transport ? 3 : 0;
    if (!s.visual()) start(s.Timloading);
    start(s.Timtarget);
}

void cmdstopsim_click(trainer& t, gunnery_screen& s)
{
    for (timer* clock : {&s.Timpause, &s.Timloading, &s.Timtarget}) stop(*clock);
    practiceend(t, s);
}

// "PAUSE SIM" has an access key until the first pause.
void showpause(gunnery_screen& s, bool paused)
{
    if (s.pauseshown == paused) return;
    s.pauseshown = paused;
    s.Cmdpausesim.Caption = paused ? "PAUSE OFF" : "PAUSE SIM";
}

void make_sequencer(trainer& t, gunnery_screen& s)
{
    add(s.window, s.Timer1, s.numbers.timer1, [&t, &s] { drawposition(t, s); });
    s.Timer1.slack = 0.1;   // it only draws a random number: nobody sees a late tick
    add(s.window, s.Timpause, 1000, [&t, &s] { timpause_tick(t, s); });
    add(s.window, s.Timtarget, 1000, [&t, &s] { timtarget_tick(t, s); });
    s.Cmdstartsim.Click = [&t, &s] { cmdstartsim_click(t, s); };
    s.Cmdstopsim.Click = [&t, &s] { cmdstopsim_click(t, s); };
    s.Cmdpausesim.Click = [&t, &s] { cmdpausesim_click(t, s); };
    s.Cmdtarget.Click = [&s] { cmdtarget_click(s); };
}

}   // namespace vorn
