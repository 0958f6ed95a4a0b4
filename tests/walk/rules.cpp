#include "walk/rules.h"

#include <algorithm>
#include <cmath>

#include "screens.h"

namespace vorn {

namespace {

struct rules {
    const form* screen = nullptr;   // the screen that is being checked
    std::string broken = {};        // the first broken rule

    void require(bool rule, const char* words)
    {
        if (!rule && broken.empty()) broken = (screen != nullptr ? screen->name + ": " : "") + words;
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

// Array indexes are not checked here: the checked containers of the debug build do that.
void check_bounds(rules& r, const practice_state& p, const gunnery_screen& s)
{
    r.require(within(s.targetnumber, 0, p.targetblocks * 3L), "no more targets than the practice has");
    r.require(std::min<int>({s.targetticks, s.loadcount, s.pausecount, s.hits, s.hittime}) >= 0,
              "counts are never negative");
    r.require(within(s.correctstep, 0, 2), "the correction has two presses");
    r.require(within(s.autolaycount, 0, s.numbers.holdticks), "autolaycount ends at holdticks");
    r.require(within(s.voicecount, 0, s.numbers.voiceticks - 1), "voicecount ends before voiceticks");
    r.require(within(s.coaxhits, 0, 5), "the sixth burst that hits kills, if not an earlier one");
    r.require(finite({s.leadperstep, s.heshcorrection}), "lead and correction are finite");
    r.require(s.lblcrew.Caption.size() < 100, "the crew line doesn't grow");
    if (!s.Imgtargets.Visible) return;
    const double w = s.Imgtargets.Width;
    r.require(w >= smallest_target && w <= largest_target && s.Imgtargets.Height == w,
              "a target is square and within the sizes of a target");
    r.require(within(p.roundnumber, 1, 4) && within(p.engagement, 1, 15) && s.targetnumber >= 1,
              "a target has a round, a row of the record and a number");
}

// Outside a practice the visual screen shows no target, and the timers of target, loader and wait don't run,
// unless targets come on demand. The thermal screen can be resumed outside a practice: a resume starts these
// three timers and enables two of the weapon buttons.
void check_when_over(rules& r, const gunnery_screen& s)
{
    if (s.simrunning) return;
    const bool active =
        s.Timpause.Enabled || s.Timtarget.Enabled || s.Timloading.Enabled || s.Imgtargets.Visible;
    r.require(!s.visual() || s.Cmdtarget.Visible || !active, "nothing runs outside a practice");
    const bool two = s.Cmdfire.Enabled || s.Cmdautolay.Enabled;
    const bool others = s.Cmdcoax.Enabled || s.Cmdoff.Enabled || s.Cmdselectmain.Enabled ||
                        s.Cmdmaingun.Enabled || s.Cmdlaze.Enabled;
    r.require(!others && !(two && s.visual()), "no weapon button is enabled outside a practice");
}

void check_when_idle(rules& r, const practice_state& p, const gunnery_screen& s)
{
    const bool up = s.Imgtargets.Visible;
    r.require(s.Timer1.Enabled, "Timer1 runs while the screen is loaded");
    r.require(s.Imgexplode.Visible == s.Timexplode.Enabled,
              "the explosion is visible exactly while Timexplode runs");
    r.require(!s.ammo.Visible || s.Timcoax.Enabled, "only a burst leaves a round in flight");
    r.require(!s.visual() || s.coaxrunning == s.Timcoax.Enabled, "coaxrunning agrees with Timcoax");
    r.require(s.voicebusy == s.Timvoice.Enabled, "voicebusy agrees with Timvoice");
    r.require(s.Cmdstartsim.Enabled != s.simrunning, "START SIM is enabled exactly when no practice runs");
    r.require(s.lblhits.Caption == std::to_string(s.hits), "the hits shown are the hits counted");
    r.require(!up || s.targetcalled, "a target that is up has been called");
    r.require(p.engagement == s.targetnumber + (up ? 0 : 1), "a target's row in the record is its number");
    r.require(!s.visual() || s.layspeed == s.HScspeed.Value, "the slider sets the lay speed");
    r.require(!s.Frmcon.Visible || !s.Frmmousecon.Visible, "key card and gunner's buttons don't overlap");
    r.require((s.Cmdpausesim.Caption == "PAUSE OFF") == p.paused, "the pause button shows the pause");
}

void check_nothing_held(rules& r, const gunnery_screen& s)
{
    r.require(!s.Timleft.Enabled && !s.Timright.Enabled && !s.Timup.Enabled && !s.Timdown.Enabled,
              "no direction timer runs when nothing is held");
    r.require(s.traversestep == 0 && s.elevatestep == 0 && s.traverseaccel == 0,
              "no step remains when nothing is held");
    r.require(!s.Timcoax.Enabled, "no burst runs when nothing is held");
}

void check_turns(rules& r, const gunnery_screen& s)
{
    const bool up = s.Imgtargets.Visible, on_demand = s.Cmdtarget.Visible, over = !s.simrunning;
    r.require(over || s.Timpause.Enabled || s.Timtarget.Enabled || s.Cmdtarget.Enabled,
              "a practice continues by itself or waits for SHOW NEXT TARGET");
    r.require(over || !up || s.gunloaded || s.targethit || s.Timloading.Enabled,
              "an empty gun is being loaded while a target is up");
    r.require(on_demand || !s.Timpause.Enabled || !(s.Timtarget.Enabled || up), "wait and target alternate");
    r.require(!up || s.targetticks <= s.targetlife, "a target is up for its time at most");
    r.require(on_demand || !up || !s.targethit || s.targetticks >= s.targetlife,
              "a target that was hit goes down at the next tick");
}

void check_gunnery(rules& r, const practice_state& p, const gunnery_screen& s, const walk_state& w)
{
    r.screen = &s.window;
    for (const timer* c : s.window.timers)
        r.require(!c->Enabled || s.window.state != form_state::not_loaded, "no timer runs after an unload");
    if (s.window.state == form_state::not_loaded || s.resets == 0) return;
    check_bounds(r, p, s);
    // While a screen is hidden, the shared state may be that of a practice on the other sight.
    if (s.window.state == form_state::hidden || !w.idle) return;
    check_when_idle(r, p, s);
    check_when_over(r, s);
    if (w.nothing_held) check_nothing_held(r, s);
    if (!w.was_paused) check_turns(r, s);
}

void check_calibration_and_author(rules& r, const joycal_screen& c, const rauthor_screen& a,
                                  const walk_state& w)
{
    r.screen = &c.window;
    for (const double at : {c.dot.Left, c.dot.Top})
        r.require(c.window.state == form_state::not_loaded || (at >= 120 && at <= 2880),
                  "the dot stays in its field");
    if (!w.idle || !w.nothing_held) return;
    for (const screen_object& o : c.Lblbutton)
        r.require(c.window.state == form_state::not_loaded || o.BackColor == colour::darkred,
                  "no lamp is lit when nothing is held");
    r.screen = &a.window;
    r.require(!a.Timex.Enabled && !a.Timex1.Enabled && !a.Timey.Enabled && !a.Timey1.Enabled,
              "the view doesn't move when nothing is held");
}

bool valid_row(const practice_state& p, int i)
{
    return one_of(p.recsystem[i], {"", "FULL", "LAZE ONLY", "TLS ONLY"}) &&
           one_of(p.recammo[i], {"", "FIN", "DST", "HESH", "COAX"}) &&
           one_of(p.rechit[i], {"", "YES", "NO"}) && (p.rectarget[i] == 0 || p.rectarget[i] == i) &&
           within(p.recrounds[i], 0, 3) && p.rectime[i] >= 0 &&
           (p.rechit[i] != "NO" || p.rectime[i] == 100) && within(p.recwidth[i], 0, 480);
}

void check_shared(rules& r, const practice_state& p)
{
    r.require(within(p.engagement, 1, 16), "engagement is a row of the record");
    r.require(within(p.roundnumber, 0, 4), "roundnumber is a round of the record");
    r.require(within(p.systemstatus, 0, 3), "the system status is 0 to 3");
    for (int i = 0; i < engagement_rows; ++i) r.require(valid_row(p, i), "each row of the record is valid");
}

std::ptrdiff_t selected_beside(const form& f, const screen_object& option)
{
    return std::count_if(f.objects.begin(), f.objects.end(), [&](const screen_object* o) {
        return o->kind == object_kind::option && o->parent == option.parent && o->Value == 1;
    });
}

void check_objects(rules& r, const form& f)
{
    r.screen = &f;
    for (const screen_object* o : f.objects) {
        r.require(finite({o->Left, o->Top, o->Width, o->Height}) && o->Width >= 0 && o->Height >= 0,
                  "places and sizes are finite, and no size is negative");
        if (o->kind == object_kind::slider)
            r.require(within(o->Value, o->Min, o->Max), "a slider stays within its bounds");
        if (o->kind == object_kind::option)
            r.require(selected_beside(f, *o) == 1, "one option of a group is selected");
    }
}

void check_screens(rules& r, const trainer& t, bool idle)
{
    const auto& d = t.pc.screens;
    r.require(!d.shown.empty(), "a screen is in front");
    for (const form* f : d.shown)
        r.require(f->state == form_state::shown && std::count(d.loaded.begin(), d.loaded.end(), f) == 1,
                  "a screen that is shown is loaded once");
    if (!idle) return;
    r.require(d.depth == 0, "every handler has returned");
    r.require(d.arrivals.empty(), "every arrival has been handled");
    const auto is_shown = [](const form& f) { return f.state == form_state::shown; };
    const int practices = is_shown(t.simulator.window) + is_shown(t.thermal.window);
    const int others = is_shown(t.intro.window) + is_shown(t.startsim.window) + is_shown(t.results.window);
    r.require(practices + others <= 1, "only range author and calibration are shown beside another screen");
}

}   // namespace

std::string broken_rule(const trainer& t, const walk_state& w)
{
    rules r;
    check_screens(r, t, w.idle);
    check_shared(r, t.shared);
    for (const gunnery_screen* s : {&t.simulator, &t.thermal}) check_gunnery(r, t.shared, *s, w);
    check_calibration_and_author(r, t.joycal, t.rauthor, w);
    for (const form* f : t.pc.screens.loaded) check_objects(r, *f);
    return r.broken;
}

}   // namespace vorn
