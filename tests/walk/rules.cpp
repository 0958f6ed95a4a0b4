#include "walk/rules.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace vorn {

namespace {

bool within(long value, long from, long to)
{
    return value >= from && value <= to;
}

bool one_of(const std::string& text, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char* w) { return text == w; });
}

// A gunnery screen that is loaded ------------------------------------------------------------------------

struct screen_rule {
    const char* words;
    bool (*holds)(const trainer&, const gunnery_screen&);
};

using screen = gunnery_screen;

constexpr screen_rule always[] = {
    {"positions are drawn from the range",
     [](auto&, auto& s) { return within(s.targetindex, 0, 19) && within(s.currenttarget, 0, 19); }},
    {"no more targets are shown than the practice has",
     [](auto& t, auto& s) { return within(s.targetnumber, 0, t.shared.targetblocks * 3); }},
    {"natures and the cycle of rounds stay in their tables",
     [](auto&, auto& s) {
         return within(s.nature, 0, 2) && within(s.ammoselected, 0, 2) && within(s.ammoindex, 0, 2);
     }},
    {"rows of the record for an aim are 0 to 4", [](auto&, auto& s) { return within(s.aimrow, 0, 4); }},
    {"the explosion has sixteen pictures", [](auto&, auto& s) { return within(s.explodeframe, 0, 15); }},
    {"counts are never negative",
     [](auto&, auto& s) {
         return s.targetticks >= 0 && s.loadcount >= 0 && s.pausecount >= 0 && s.hits >= 0 &&
                s.hittime >= 0 && s.coaxhits >= 0;
     }},
    {"waits are 0 to 7 seconds", [](auto&, auto& s) { return within(s.targetwait, 0, 7); }},
    {"the correction has two presses", [](auto&, auto& s) { return within(s.correctstep, 0, 2); }},
    {"the autolay is counted to its hold",
     [](auto&, auto& s) { return within(s.autolaycount, 0, s.numbers.layhold); }},
    {"a call is counted to its end",
     [](auto&, auto& s) { return within(s.voicecount, 0, s.numbers.heldticks - 1); }},
    {"the charge is counted to its end", [](auto&, auto& s) { return within(s.chargecount, 0, 1); }},
    {"no burst hits oftener than kills", [](auto&, auto& s) { return within(s.coaxhits, 0, 5); }},
    {"numbers are finite",
     [](auto&, auto& s) {
         return std::isfinite(s.relayed) && std::isfinite(s.leadperstep) && std::isfinite(s.heshcorrection) &&
                std::isfinite(s.correctfrom) && std::isfinite(s.correctto);
     }},
    {"a target that is up is square and of a target's size",
     [](auto&, auto& s) {
         const double w = s.Imgtargets.Width;
         return !s.Imgtargets.Visible ||
                (w >= smallest_target && w <= largest_target && s.Imgtargets.Height == w);
     }},
    {"a target that is up has a round, a row of the record and a number",
     [](auto& t, auto& s) {
         return !s.Imgtargets.Visible || (within(t.shared.roundnumber, 1, 4) &&
                                          within(t.shared.engagement, 1, 15) && s.targetnumber >= 1);
     }},
    {"crew lines don't grow without end", [](auto&, auto& s) { return s.lblcrew.Caption.size() < 100; }},
    {"there is a range picture of some size",
     [](auto&, auto& s) { return s.Imgrange.Width > 0 && s.Imgrange.Height > 0; }},
};

constexpr screen_rule when_idle[] = {
    {"Timer1 runs as long as the screen is loaded", [](auto&, auto& s) { return s.Timer1.Enabled; }},
    {"the explosion is seen exactly while Timexplode runs",
     [](auto&, auto& s) { return s.Imgexplode.Visible == s.Timexplode.Enabled; }},
    {"no round is in the air but a burst's tracer",
     [](auto&, auto& s) { return !s.ammo.Visible || s.Timcoax.Enabled; }},
    {"the visual screen knows of its burst",
     [](auto&, auto& s) { return !s.visual() || s.coaxrunning == s.Timcoax.Enabled; }},
    {"a call is held exactly while Timvoice runs",
     [](auto&, auto& s) { return s.voicebusy == s.Timvoice.Enabled; }},
    {"START SIM is enabled exactly while no practice runs",
     [](auto&, auto& s) { return s.Cmdstartsim.Enabled != s.simrunning; }},
    {"the hits shown are the hits counted",
     [](auto&, auto& s) { return s.lblhits.Caption == std::to_string(s.hits); }},
    {"a target that is up has been called",
     [](auto&, auto& s) { return !s.Imgtargets.Visible || s.targetcalled; }},
    {"nothing of a practice goes on when it is over, but what the instructor has asked for",
     [](auto&, auto& s) {
         return s.simrunning || !s.visual() || s.Cmdtarget.Visible ||
                !(s.Timpause.Enabled || s.Timtarget.Enabled || s.Timloading.Enabled || s.Imgtargets.Visible);
     }},
    {"no weapon answers to the mouse when no practice runs",
     [](auto&, auto& s) {
         const screen_object* weapons[] = {&s.Cmdcoax, &s.Cmdoff, &s.Cmdselectmain, &s.Cmdmaingun,
                                           &s.Cmdlaze};
         // A resume enables these two; the thermal screen takes one outside a practice too.
         const bool two = !s.Cmdfire.Enabled && !s.Cmdautolay.Enabled;
         return s.simrunning || ((two || !s.visual()) && std::none_of(std::begin(weapons), std::end(weapons),
                                                                      [](auto* o) { return o->Enabled; }));
     }},
    {"each target has the row of the record of its number",
     [](auto& t, auto& s) { return t.shared.engagement == s.targetnumber + (s.Imgtargets.Visible ? 0 : 1); }},
    {"the bar sets the speed of the visual lay",
     [](auto&, auto& s) { return !s.visual() || s.layspeed == s.HScspeed.Value; }},
    {"keyboard card and mouse panel don't lie over each other",
     [](auto&, auto& s) { return !s.Frmcon.Visible || !s.Frmmousecon.Visible; }},
    {"the pause button says what it will do",
     [](auto& t, auto& s) { return one_of(s.Cmdpausesim.Caption, {"PAUSE OFF"}) == t.shared.paused; }},
};

constexpr screen_rule with_hands_off[] = {
    {"no direction timer runs with everything let go",
     [](auto&, auto& s) {
         return !s.Timleft.Enabled && !s.Timright.Enabled && !s.Timup.Enabled && !s.Timdown.Enabled;
     }},
    {"no step is left with everything let go",
     [](auto&, auto& s) { return s.traversestep == 0 && s.elevatestep == 0 && s.traverseaccel == 0; }},
    {"no burst goes on with the trigger let go", [](auto&, auto& s) { return !s.Timcoax.Enabled; }},
};

constexpr screen_rule unless_halted[] = {
    {"a practice goes on by itself or waits for SHOW NEXT TARGET",
     [](auto&, auto& s) {
         return !s.simrunning || s.Timpause.Enabled || s.Timtarget.Enabled || s.Cmdtarget.Enabled;
     }},
    // A resume on the thermal screen can bring a target up outside a practice, and a pause there stops the
    // loader.
    {"an empty gun is being loaded while a target is up",
     [](auto& t, auto& s) {
         return t.shared.paused || !s.simrunning || !s.Imgtargets.Visible || s.gunloaded || s.targethit ||
                s.Timloading.Enabled;
     }},
};

constexpr screen_rule unless_resumed[] = {
    {"wait and target take turns",
     [](auto&, auto& s) {
         return s.Cmdtarget.Visible || !s.Timpause.Enabled || !(s.Timtarget.Enabled || s.Imgtargets.Visible);
     }},
    {"a target stands for its time at most",
     [](auto&, auto& s) { return !s.Imgtargets.Visible || s.targetticks <= s.targetlife; }},
    {"a target that was hit goes down with the next tick",
     [](auto&, auto& s) {
         return s.Cmdtarget.Visible || !s.Imgtargets.Visible || !s.targethit || s.targetticks >= s.targetlife;
     }},
};

template <std::size_t N>
std::string broken(const screen_rule (&rules)[N], const trainer& t, const gunnery_screen& s)
{
    for (const screen_rule& r : rules)
        if (!r.holds(t, s)) return s.window.name + ": " + r.words;
    return {};
}

std::string broken_on_screen(const trainer& t, const gunnery_screen& s, const walk_moment& m)
{
    if (s.window.state == form_state::not_loaded || s.resets == 0) return {};
    std::string b = broken(always, t, s);
    if (s.window.state == form_state::hidden)
        return b;   // behind the debrief, or left there by an earlier practice
    if (b.empty() && m.idle) b = broken(when_idle, t, s);
    if (b.empty() && m.idle && m.hands_off) b = broken(with_hands_off, t, s);
    if (b.empty() && m.idle && !m.halted) b = broken(unless_halted, t, s);
    if (b.empty() && m.idle && !m.resumed) b = broken(unless_resumed, t, s);
    return b;
}

// The calibration screen that is loaded ------------------------------------------------------------------

struct calibration_rule {
    const char* words;
    bool (*holds)(const trainer&, const joycal_screen&);
};

bool within_field(double at)
{
    return at >= 120 && at <= 2880;
}

// The steps whose instructions are shown are those up to this one, and FINISH belongs to the last.
bool shows_step(const joycal_screen& s)
{
    const screen_object* all[] = {&s.Lblinfo1, &s.Lblinfo2, &s.Lblinfo3, &s.Lblinfo4};
    for (int n = 1; const screen_object* o : all)
        if (o->Visible != (s.calstep >= n++)) return false;
    return s.Cmdfinish.Enabled == (s.calstep >= 4);
}

constexpr calibration_rule calibration_rules[] = {
    {"steps are taken once START was clicked",
     [](auto&, auto& s) { return s.calstarted == (s.calstep > 0); }},
    {"the instructions are those of the steps", [](auto&, auto& s) { return shows_step(s); }},
    {"the dot stays in its field",
     [](auto&, auto& s) { return within_field(s.dot.Left) && within_field(s.dot.Top); }},
    {"what is said of the joystick is true",
     [](auto& t, auto& s) {
         return one_of(s.Lblstick.Caption, {"JOYSTICK CONNECTED"}) == t.pc.joystick_present();
     }},
};

std::string broken_on_calibration(const trainer& t, const joycal_screen& s, const walk_moment& m)
{
    if (s.window.state == form_state::not_loaded) return {};
    for (const calibration_rule& r : calibration_rules)
        if (!r.holds(t, s)) return s.window.name + ": " + r.words;
    const bool lit = std::any_of(std::begin(s.Lblbutton), std::end(s.Lblbutton),
                                 [](const screen_object& o) { return o.BackColor != colour::darkred; });
    return m.idle && m.hands_off && lit ? "no lamp is lit with everything let go" : "";
}

// The shared state ---------------------------------------------------------------------------------------

bool sane_row(const practice_state& p, std::size_t i)
{
    return one_of(p.recsystem[i], {"", "FULL", "LAZE ONLY", "TLS ONLY"}) &&
           one_of(p.recammo[i], {"", "FIN", "DST", "HESH", "COAX"}) &&
           one_of(p.rechit[i], {"", "YES", "NO"}) &&
           (p.rectarget[i] == 0 || p.rectarget[i] == static_cast<int>(i)) && within(p.recrounds[i], 0, 3) &&
           p.rectime[i] >= 0 && (p.rechit[i] != "NO" || p.rectime[i] == 100) && within(p.recwidth[i], 0, 480);
}

std::string broken_in_state(const practice_state& p)
{
    if (!within(p.engagement, 0, 16)) return "engagement is a row of the record";
    if (!within(p.roundnumber, 0, 4)) return "roundnumber is a row of the record";
    if (!within(p.systemstatus, 0, 3)) return "the system has states 0 to 3";
    if (!within(p.practicemode, 0, 2)) return "a practice is visual or thermal";
    if (!std::isfinite(p.killradius)) return "the kill radius is finite";
    constexpr double end = 65535;   // of the scale of the machine's stick
    for (const double factor : {p.joyxfactor, p.joyyfactor})
        if (factor < 0 || factor > end / 12) return "the dead band comes of the stick's scale";
    if (p.joycalibrated && (p.joyxcentre != end / 2 || p.joyycentre != end / 2))
        return "a calibrated stick has its centre";
    for (std::size_t i = 0; i < engagement_rows; ++i)
        if (!sane_row(p, i)) return "row " + std::to_string(i) + " of the record is sane";
    return {};
}

// Screens, objects and timers ----------------------------------------------------------------------------

bool placed_somewhere(const screen_object& o)
{
    return std::isfinite(o.Left) && std::isfinite(o.Top) && std::isfinite(o.Width) &&
           std::isfinite(o.Height) && o.Width >= 0 && o.Height >= 0;
}

// Whether each group of options on a form has exactly one selected.
bool one_option_each(const form& f)
{
    for (const screen_object* o : f.objects) {
        if (o->kind != object_kind::option) continue;
        const auto chosen =
            std::count_if(f.objects.begin(), f.objects.end(), [&](const screen_object* other) {
                return other->kind == object_kind::option && other->parent == o->parent && other->Value == 1;
            });
        if (chosen != 1) return false;
    }
    return true;
}

std::string broken_on_form(const form& f)
{
    for (const screen_object* o : f.objects) {
        if (!placed_somewhere(*o))
            return f.name + ": an object's place is a number and its size not negative";
        if (o->kind == object_kind::slider && !within(o->Value, o->Min, o->Max))
            return f.name + ": a slider stays within its bounds";
    }
    return one_option_each(f) ? "" : f.name + ": one option of a group is selected";
}

std::string broken_where_not_loaded(const form& f)
{
    const bool runs =
        std::any_of(f.timers.begin(), f.timers.end(), [](const timer* c) { return c->Enabled; });
    return runs && f.state == form_state::not_loaded ? f.name + ": a timer runs on a screen that isn't loaded"
                                                     : "";
}

std::string broken_timer(const form& f, double now, bool settled)
{
    for (const timer* c : f.timers) {
        if (!c->Enabled) continue;
        if (c->ticking) return f.name + ": no timer is in its handler with the machine idle";
        if (c->fresh) continue;
        const double period = std::max(c->Interval / 1000.0, timer_floor);
        if (c->due > now + period + 1e-6) return f.name + ": a timer ticks within its period";
        if (settled && c->due <= now) return f.name + ": no tick is left in the past";
    }
    return {};
}

std::string broken_desk(const desk& d, bool idle)
{
    if (d.shown.empty()) return "a screen is in front";
    for (const form* f : d.shown)
        if (f->state != form_state::shown || std::count(d.loaded.begin(), d.loaded.end(), f) != 1)
            return f->name + ": what is shown is loaded, once";
    for (const form* f : d.loaded)
        if (f->state == form_state::not_loaded) return f->name + ": what is on the desk is loaded";
    if (idle && d.depth != 0) return "no handler is left half-run";
    if (idle && !d.arrivals.empty()) return "no arrival is left waiting";
    return {};
}

std::string broken_author(const rauthor_screen& s, const walk_moment& m)
{
    const bool moves = s.Timex.Enabled || s.Timex1.Enabled || s.Timey.Enabled || s.Timey1.Enabled;
    if (m.idle && m.hands_off && moves) return "rauthor: the view stands still with everything let go";
    if (s.target < 1 || s.target >= positions) return "rauthor: a position is being edited";
    if (!std::isfinite(s.pointx) || !std::isfinite(s.pointy)) return "rauthor: a point is being marked";
    if (s.Image1.Width != 14000 || s.Image1.Height != 5000) return "rauthor: the overview keeps its size";
    return {};
}

std::string broken_roads(const trainer& t)
{
    const auto is_shown = [](const form& f) { return f.state == form_state::shown; };
    const int practices = is_shown(t.simulator.window) + is_shown(t.thermal.window);
    const int others = is_shown(t.intro.window) + is_shown(t.startsim.window) + is_shown(t.results.window);
    return practices + others > 1 ? "one screen is shown at a time, but for those over the set-up" : "";
}

std::string first_of(std::initializer_list<std::string> all)
{
    for (const std::string& s : all)
        if (!s.empty()) return s;
    return {};
}

void describe(std::ostream& out, const gunnery_screen& s)
{
    if (s.window.state == form_state::not_loaded) return;
    out << "\n  " << s.window.name << ": running " << s.simrunning << " target " << s.targetnumber << " up "
        << s.Imgtargets.Visible << " called " << s.targetcalled << " hit " << s.targethit << " nature "
        << s.nature << " ticks " << s.targetticks << '/' << s.targetlife << " wait " << s.pausecount << '/'
        << s.targetwait << " loaded " << s.gunloaded << " armed " << s.ammoarmed << " crew \""
        << s.lblcrew.Caption << '"';
}

}   // namespace

std::string broken_rule(const trainer& t, const walk_moment& m)
{
    std::string b = first_of({broken_desk(t.pc.screens, m.idle), broken_in_state(t.shared),
                              broken_where_not_loaded(t.simulator.window),
                              broken_where_not_loaded(t.thermal.window), broken_on_screen(t, t.simulator, m),
                              broken_on_screen(t, t.thermal, m), broken_author(t.rauthor, m),
                              broken_on_calibration(t, t.joycal, m), m.idle ? broken_roads(t) : ""});
    for (const form* f : t.pc.screens.loaded) {
        if (b.empty()) b = broken_on_form(*f);
        if (b.empty() && m.idle) b = broken_timer(*f, t.pc.now(), m.settled);
    }
    return b;
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
