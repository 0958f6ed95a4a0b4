#include "walk/rules.h"
#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace vorn {

namespace {

// Keeps the first rule that doesn't hold.
struct verdict {
    const form* on = nullptr;   // the screen that is being looked at
    std::string broken = {};

    void hold(bool rule, const char* words)
    {
        if (!rule && broken.empty()) broken = (on != nullptr ? on->name + ": " : "") + words;
    }
};

bool within(long value, long from, long to)
{
    return value >= from && value <= to;
}

bool one_of(const std::string& text, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char* w) { return text == w; });
}

bool finite(std::initializer_list<double> numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double n) { return std::isfinite(n); });
}

// A gunnery screen that is loaded ------------------------------------------------------------------------

void hold_bounds(verdict& v, const practice_state& p, const gunnery_screen& s)
{
    v.hold(within(s.targetindex, 0, 19) && within(s.currenttarget, 0, 19),
           "positions are drawn from the range");
    v.hold(within(s.targetnumber, 0, p.targetblocks * 3L), "no more targets are shown than the practice has");
    v.hold(within(s.nature, 0, 2) && within(s.ammoselected, 0, 2) && within(s.ammoindex, 0, 2),
           "natures and the cycle of rounds stay in their tables");
    v.hold(within(s.aimrow, 0, 4), "rows of the record for an aim are 0 to 4");
    v.hold(within(s.explodeframe, 0, 15), "the explosion has sixteen pictures");
    v.hold(std::min<int>({s.targetticks, s.loadcount, s.pausecount, s.hits, s.hittime}) >= 0,
           "counts are never negative");
    v.hold(within(s.targetwait, 0, 7), "waits are 0 to 7 seconds");
    v.hold(within(s.correctstep, 0, 2), "the correction has two presses");
    v.hold(within(s.autolaycount, 0, s.numbers.layhold), "the autolay is counted to its hold");
    v.hold(within(s.voicecount, 0, s.numbers.heldticks - 1), "a call is counted to its end");
    v.hold(within(s.chargecount, 0, 1), "the charge is counted to its end");
    v.hold(within(s.coaxhits, 0, 5), "no burst hits oftener than kills");
    v.hold(finite({s.relayed, s.leadperstep, s.heshcorrection, s.correctfrom, s.correctto}),
           "numbers are finite");
    v.hold(s.lblcrew.Caption.size() < 100, "crew lines don't grow without end");
    v.hold(s.Imgrange.Width > 0 && s.Imgrange.Height > 0, "there is a range picture of some size");
}

void hold_target(verdict& v, const practice_state& p, const gunnery_screen& s)
{
    if (!s.Imgtargets.Visible) return;
    const double w = s.Imgtargets.Width;
    v.hold(w >= smallest_target && w <= largest_target && s.Imgtargets.Height == w,
           "a target that is up is square and of a target's size");
    v.hold(within(p.roundnumber, 1, 4) && within(p.engagement, 1, 15) && s.targetnumber >= 1,
           "a target that is up has a round, a row of the record and a number");
}

// Nothing of a practice goes on when it is over, but what the instructor has asked for. A resume enables two
// weapons, and the thermal screen takes one outside a practice too.
void hold_when_over(verdict& v, const gunnery_screen& s)
{
    if (s.simrunning) return;
    const bool goes_on =
        s.Timpause.Enabled || s.Timtarget.Enabled || s.Timloading.Enabled || s.Imgtargets.Visible;
    v.hold(!s.visual() || s.Cmdtarget.Visible || !goes_on, "nothing goes on when a practice is over");
    const bool two = s.Cmdfire.Enabled || s.Cmdautolay.Enabled;
    const bool others = s.Cmdcoax.Enabled || s.Cmdoff.Enabled || s.Cmdselectmain.Enabled ||
                        s.Cmdmaingun.Enabled || s.Cmdlaze.Enabled;
    v.hold(!others && !(two && s.visual()), "no weapon answers to the mouse when no practice runs");
}

void hold_when_idle(verdict& v, const practice_state& p, const gunnery_screen& s)
{
    const bool up = s.Imgtargets.Visible;
    v.hold(s.Timer1.Enabled, "Timer1 runs as long as the screen is loaded");
    v.hold(s.Imgexplode.Visible == s.Timexplode.Enabled,
           "the explosion is seen exactly while Timexplode runs");
    v.hold(!s.ammo.Visible || s.Timcoax.Enabled, "no round is in the air but a burst's tracer");
    v.hold(!s.visual() || s.coaxrunning == s.Timcoax.Enabled, "the visual screen knows of its burst");
    v.hold(s.voicebusy == s.Timvoice.Enabled, "a call is held exactly while Timvoice runs");
    v.hold(s.Cmdstartsim.Enabled != s.simrunning, "START SIM is enabled exactly while no practice runs");
    v.hold(s.lblhits.Caption == std::to_string(s.hits), "the hits shown are the hits counted");
    v.hold(!up || s.targetcalled, "a target that is up has been called");
    v.hold(p.engagement == s.targetnumber + (up ? 0 : 1),
           "each target has the row of the record of its number");
    v.hold(!s.visual() || s.layspeed == s.HScspeed.Value, "the bar sets the speed of the visual lay");
    v.hold(!s.Frmcon.Visible || !s.Frmmousecon.Visible,
           "keyboard card and mouse panel don't lie over each other");
    v.hold((s.Cmdpausesim.Caption == "PAUSE OFF") == p.paused, "the pause button says what it will do");
    hold_when_over(v, s);
}

void hold_hands_off(verdict& v, const gunnery_screen& s)
{
    v.hold(!s.Timleft.Enabled && !s.Timright.Enabled && !s.Timup.Enabled && !s.Timdown.Enabled,
           "no direction timer runs with everything let go");
    v.hold(s.traversestep == 0 && s.elevatestep == 0 && s.traverseaccel == 0,
           "no step is left with everything let go");
    v.hold(!s.Timcoax.Enabled, "no burst goes on with the trigger let go");
}

// A resume on the thermal screen can bring a target up outside a practice, and a pause there stops the
// loader.
void hold_going(verdict& v, const practice_state& p, const gunnery_screen& s)
{
    if (!s.simrunning) return;
    v.hold(s.Timpause.Enabled || s.Timtarget.Enabled || s.Cmdtarget.Enabled,
           "a practice goes on by itself or waits for SHOW NEXT TARGET");
    v.hold(p.paused || !s.Imgtargets.Visible || s.gunloaded || s.targethit || s.Timloading.Enabled,
           "an empty gun is being loaded while a target is up");
}

void hold_turns(verdict& v, const gunnery_screen& s)
{
    const bool up = s.Imgtargets.Visible, on_demand = s.Cmdtarget.Visible;
    v.hold(on_demand || !s.Timpause.Enabled || !(s.Timtarget.Enabled || up), "wait and target take turns");
    v.hold(!up || s.targetticks <= s.targetlife, "a target stands for its time at most");
    v.hold(on_demand || !up || !s.targethit || s.targetticks >= s.targetlife,
           "a target that was hit goes down with the next tick");
}

void hold_on_gunnery(verdict& v, const practice_state& p, const gunnery_screen& s, const walk_moment& m)
{
    v.on = &s.window;
    if (s.window.state == form_state::not_loaded || s.resets == 0) return;
    hold_bounds(v, p, s);
    hold_target(v, p, s);
    // Behind the debrief, or left there by an earlier practice.
    if (s.window.state == form_state::hidden || !m.idle) return;
    hold_when_idle(v, p, s);
    if (m.hands_off) hold_hands_off(v, s);
    if (!m.halted) hold_going(v, p, s);
    if (!m.resumed) hold_turns(v, s);
}

// The calibration and the author -------------------------------------------------------------------------

void hold_on_calibration(verdict& v, const joycal_screen& s, const walk_moment& m, bool stick)
{
    v.on = &s.window;
    if (s.window.state == form_state::not_loaded) return;
    v.hold(s.calstarted == (s.calstep > 0), "steps are taken once START was clicked");
    const screen_object* steps[] = {&s.Lblinfo1, &s.Lblinfo2, &s.Lblinfo3, &s.Lblinfo4};
    for (int n = 1; const screen_object* o : steps)
        v.hold(o->Visible == (s.calstep >= n++), "the instructions are those of the steps");
    v.hold(s.Cmdfinish.Enabled == (s.calstep >= 4), "FINISH belongs to the last step");
    for (const double at : {s.dot.Left, s.dot.Top})
        v.hold(at >= 120 && at <= 2880, "the dot stays in its field");
    v.hold((s.Lblstick.Caption == "JOYSTICK CONNECTED") == stick, "what is said of the joystick is true");
    for (const screen_object& o : s.Lblbutton)
        v.hold(o.BackColor == colour::darkred || !m.idle || !m.hands_off,
               "no lamp is lit with everything let go");
}

void hold_on_author(verdict& v, const rauthor_screen& s, const walk_moment& m)
{
    v.on = &s.window;
    const bool moves = s.Timex.Enabled || s.Timex1.Enabled || s.Timey.Enabled || s.Timey1.Enabled;
    v.hold(!moves || !m.idle || !m.hands_off, "the view stands still with everything let go");
    v.hold(within(static_cast<long>(s.target), 1, long{positions} - 1), "a position is being edited");
    v.hold(finite({s.pointx, s.pointy}), "a point is being marked");
    v.hold(s.Image1.Width == 14000 && s.Image1.Height == 5000, "the overview keeps its size");
}

// The shared state ---------------------------------------------------------------------------------------

bool sane_row(const practice_state& p, int i)
{
    return one_of(p.recsystem[i], {"", "FULL", "LAZE ONLY", "TLS ONLY"}) &&
           one_of(p.recammo[i], {"", "FIN", "DST", "HESH", "COAX"}) &&
           one_of(p.rechit[i], {"", "YES", "NO"}) && (p.rectarget[i] == 0 || p.rectarget[i] == i) &&
           within(p.recrounds[i], 0, 3) && p.rectime[i] >= 0 &&
           (p.rechit[i] != "NO" || p.rectime[i] == 100) && within(p.recwidth[i], 0, 480);
}

void hold_in_state(verdict& v, const practice_state& p)
{
    v.hold(within(p.engagement, 1, 16), "engagement is a row of the record");
    v.hold(within(p.roundnumber, 0, 4), "roundnumber is a row of the record");
    v.hold(within(p.systemstatus, 0, 3), "the system has states 0 to 3");
    v.hold(within(p.practicemode, 0, 2), "a practice is visual or thermal");
    v.hold(std::isfinite(p.killradius), "the kill radius is finite");
    constexpr double end = 65535;   // of the scale of the machine's stick
    for (const double factor : {p.joyxfactor, p.joyyfactor})
        v.hold(factor >= 0 && factor <= end / 12, "the dead band comes of the stick's scale");
    v.hold(!p.joycalibrated || (p.joyxcentre == end / 2 && p.joyycentre == end / 2),
           "a calibrated stick has its centre");
    for (int i = 0; i < engagement_rows; ++i) v.hold(sane_row(p, i), "each row of the record is sane");
}

// Screens, objects and timers ----------------------------------------------------------------------------

bool placed_somewhere(const screen_object& o)
{
    return finite({o.Left, o.Top, o.Width, o.Height}) && o.Width >= 0 && o.Height >= 0;
}

// How many of a group of options are selected.
std::ptrdiff_t chosen_beside(const form& f, const screen_object& option)
{
    return std::count_if(f.objects.begin(), f.objects.end(), [&](const screen_object* o) {
        return o->kind == object_kind::option && o->parent == option.parent && o->Value == 1;
    });
}

void hold_objects(verdict& v, const form& f)
{
    v.on = &f;
    for (const screen_object* o : f.objects) {
        v.hold(placed_somewhere(*o), "an object's place is a number and its size not negative");
        if (o->kind == object_kind::slider)
            v.hold(within(o->Value, o->Min, o->Max), "a slider stays within its bounds");
        if (o->kind == object_kind::option)
            v.hold(chosen_beside(f, *o) == 1, "one option of a group is selected");
    }
}

void hold_timers(verdict& v, const form& f, double now, bool settled)
{
    for (const timer* c : f.timers) {
        if (!c->Enabled) continue;
        v.hold(!c->ticking, "no timer is in its handler with the machine idle");
        if (c->fresh) continue;
        const double period = std::max(c->Interval / 1000.0, timer_floor);
        v.hold(c->due <= now + period + 1e-6, "a timer ticks within its period");
        v.hold(!settled || c->due > now, "no tick is left in the past");
    }
}

void hold_desk(verdict& v, const desk& d, bool idle)
{
    v.hold(!d.shown.empty(), "a screen is in front");
    for (const form* f : d.shown)
        v.hold(f->state == form_state::shown && std::count(d.loaded.begin(), d.loaded.end(), f) == 1,
               "what is shown is loaded, once");
    for (const form* f : d.loaded)
        v.hold(f->state != form_state::not_loaded, "what is on the desk is loaded");
    v.hold(!idle || d.depth == 0, "no handler is left half-run");
    v.hold(!idle || d.arrivals.empty(), "no arrival is left waiting");
}

void hold_roads(verdict& v, const trainer& t)
{
    const auto is_shown = [](const form& f) { return f.state == form_state::shown; };
    const int practices = is_shown(t.simulator.window) + is_shown(t.thermal.window);
    const int others = is_shown(t.intro.window) + is_shown(t.startsim.window) + is_shown(t.results.window);
    v.hold(practices + others <= 1, "one screen is shown at a time, but for those over the set-up");
}

void describe(std::ostream& out, const gunnery_screen& s)
{
    if (s.window.state == form_state::not_loaded) return;
    out << "\n  " << s.window.name << ": running " << s.simrunning << " target " << s.targetnumber << " up "
        << s.Imgtargets.Visible << " called " << s.targetcalled << " hit " << s.targethit << " nature "
        << s.nature << " ticks " << s.targetticks << '/' << s.targetlife << " wait " << s.pausecount << '/'
        << s.targetwait << " loaded " << s.gunloaded << " loadcount " << s.loadcount << " armed "
        << s.ammoarmed << " \"" << s.Lblammotype.Caption << "\" crew \"" << s.lblcrew.Caption << "\" hits "
        << s.hits << "\n  target at " << s.Imgtargets.Left << ' ' << s.Imgtargets.Top << ' '
        << s.Imgtargets.Width << " range picture at " << s.Imgrange.Left << ' ' << s.Imgrange.Top
        << " timers";
    for (const auto& [c, name] : {std::pair{&s.Timpause, "pause"},
                                  {&s.Timtarget, "target"},
                                  {&s.Timloading, "loading"},
                                  {&s.Timvoice, "voice"},
                                  {&s.Timchrg, "chrg"},
                                  {&s.Timleft, "left"},
                                  {&s.Timright, "right"},
                                  {&s.Timup, "up"},
                                  {&s.Timdown, "down"},
                                  {&s.timautolay, "autolay"},
                                  {&s.Timcoax, "coax"},
                                  {&s.Timexplode, "explode"}})
        if (c->Enabled) out << ' ' << name;
}

}   // namespace

std::string broken_rule(const trainer& t, const walk_moment& m)
{
    verdict v;
    hold_desk(v, t.pc.screens, m.idle);
    hold_in_state(v, t.shared);
    if (m.idle) hold_roads(v, t);
    for (const gunnery_screen* s : {&t.simulator, &t.thermal}) {
        hold_on_gunnery(v, t.shared, *s, m);
        for (const timer* c : s->window.timers)
            v.hold(!c->Enabled || s->window.state != form_state::not_loaded,
                   "a timer runs on a screen that isn't loaded");
    }
    hold_on_author(v, t.rauthor, m);
    hold_on_calibration(v, t.joycal, m, t.pc.joystick_present());
    for (const form* f : t.pc.screens.loaded) {
        hold_objects(v, *f);
        if (m.idle) hold_timers(v, *f, t.pc.now(), m.settled);
    }
    return v.broken;
}

std::string described(const trainer& t)
{
    std::ostringstream out;
    const practice_state& p = t.shared;
    out << "  at " << t.pc.now() << " s, engagement " << p.engagement << " round " << p.roundnumber
        << " blocks " << p.targetblocks << " type " << p.engagementtype << " system " << p.systemstatus
        << " degrading " << p.selfdegrading << " auto " << p.targetauto << " paused " << p.paused << " quick "
        << p.quickstart << " calibration step " << t.joycal.calstep;
    describe(out, t.simulator);
    describe(out, t.thermal);
    return out.str();
}

}   // namespace vorn
