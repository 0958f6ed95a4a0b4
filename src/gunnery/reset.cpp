#include <initializer_list>
#include <string>
#include <utility>

#include "flow/boxes.h"
#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "ranges/rangefile.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

// A quick start always has the visual sight, nine targets, working keys, voices, and a score with a rating.
// Info, Screen and Mouse have no effect. The other options, such as Joystick, are those of the set-up.
void setupquickstart(trainer& t, gunnery_screen& s)
{
    t.shared.voiceson = true;
    t.shared.fulldebrief = false;
    t.shared.keyboardselected = true;
    t.shared.targetblocks = 3;
    s.lbltargetnum.Caption = "TARGET 0 OF 9";
    for (screen_object* o : {&s.lbltargetnum, &s.Imgname}) o->Visible = true;
    for (screen_object* o : {&s.Frmcon, &s.Frmsys, &s.Frmmousecon}) o->Visible = false;
}

// A panel hidden here, except Frmcon and Frmmousecon, stays hidden until the next load of the screen.
void hidepanels(const practice_state& p, gunnery_screen& s)
{
    const auto hide_if = [](bool hides, std::initializer_list<screen_object*> panels) {
        if (!hides) return;
        for (screen_object* o : panels) o->Visible = false;
    };
    hide_if(!p.infosystem, {&s.Frmsys});
    hide_if(!p.infocrew, {&s.lblcrew});
    hide_if(!p.coaxlight, {s.visual() ? &s.Frame5 : &s.Frame4});
    hide_if(!p.gunlight, {&s.Frame4});
    if (s.visual()) hide_if(p.plainscreen, {&s.Frame3, &s.Frmmousecon, &s.Frmsys, &s.Frmcon, &s.lblcrew});
}

void setuppanels(trainer& t, gunnery_screen& s)
{
    const practice_state& p = t.shared;
    if (s.visual() && p.quickstart) return setupquickstart(t, s);
    if (!p.targetauto) s.Cmdtarget.Visible = true;
    s.Frmcon.Visible = p.keyboardselected && !p.joyselected && !p.mouseselected && p.infocontrol;
    s.Frmmousecon.Visible = p.mouseselected;
    hidepanels(p, s);
}

// A key and its button, for keynote. A line can be broken after this text, but not inside it.
std::string key_line(const std::string& key, const std::string& button)
{
    const std::string fixed = "\u00a0";
    std::string line = key + fixed + fixed;
    for (const char c : button) line += c == ' ' ? fixed : std::string(1, c);
    return line + "   ";
}

// While the panel of the practice's buttons is hidden, shows their keys instead, until the practice starts.
void showkeynote(gunnery_screen& s)
{
    s.keynote.Visible = !s.Frame3.Visible;
    s.keynote.Caption =
        key_line("Alt+S", "START SIM") + key_line("Alt+T", "STOP SIM") + key_line("Alt+P", "PAUSE SIM");
    if (s.Cmdtarget.Visible) s.keynote.Caption += key_line("Alt+G", "SHOW NEXTTARGET");
    s.keynote.Caption += key_line("Esc", "RETURNT TO SETUP");
}

void resetcontrols(gunnery_screen& s)
{
    s.Cmdstartsim.Enabled = true;
    for (screen_object* o :
         {&s.Cmdcoax, &s.Cmdselectmain, &s.Cmdmaingun, &s.Cmdautolay, &s.Cmdlaze, &s.Cmdoff, &s.Cmdfire})
        o->Enabled = false;
    // The thermal screen leaves these two enabled once a practice has run.
    if (s.visual())
        for (screen_object* o : {&s.Cmdstopsim, &s.Cmdpausesim}) o->Enabled = false;
    for (timer* clock : {&s.Timcoax, &s.Timloading, &s.Timtarget, &s.Timleft, &s.Timright, &s.Timup,
                         &s.Timdown, &s.Timpause})
        stop(*clock);
}

void resetreadouts(gunnery_screen& s)
{
    for (screen_object* o : {&s.Label1, &s.Label2, &s.lblhits}) o->Caption = "0";
    s.Lblavetime.Caption.clear();
    for (screen_object* o : {&s.laze, &s.ammo, &s.Imgtargets, &s.Imgloaded}) o->Visible = false;
    s.Imghesh.Visible = true;
    if (!s.visual()) return;
    s.Imgcoax.Visible = true;
    showammo(s, ammo_shown::nothing);
    s.Lblrange.Caption.clear();
    stop(s.Timchrg);
    s.Lblcharge.Visible = false;
}

void resetstate(gunnery_screen& s)
{
    ++s.resets;
    static_cast<since_reset&>(s) = {};
    if (!s.visual()) return;
    s.layspeed = s.HScspeed.Value;
    s.windoffset = 0;
}

// Writes FULL as the system: on the visual screen into the row that was current before the reset, which after
// a whole practice is the row after the last target; on the thermal screen into row 1.
void resetrecord(trainer& t, gunnery_screen& s)
{
    t.shared.recsystem[s.visual() ? row(t) : 1] = "FULL";
    t.shared.engagement = 1;
    if (!s.visual()) s.rangesuffix = "C";
}

// A file that can't be used.
struct fault {
    std::string file;
    std::string reason;   // empty: no fault
};

fault loadinto(trainer& t, screen_object& o, const std::string& file)
{
    loaded_picture loaded = t.pc.load_picture(file);
    if (!loaded.result) return {file, loaded.reason};
    o.Picture = std::move(*loaded.result);
    return {};
}

fault loadicons(trainer& t, gunnery_screen& s)
{
    const std::pair<screen_object*, const std::string*> holders[] = {
        {&s.Imgtargetcoax, &t.shared.targeticon3},
        {&s.Imgtargetfin, &t.shared.targeticon1},
        {&s.Imgtargethesh, &t.shared.targeticon2}};
    for (const auto& [holder, stored] : holders) {
        if (stored->empty()) continue;
        fault f = loadinto(t, *holder, icon_path(t.pc, t.shared.rootpath, *stored));
        if (!f.reason.empty()) return f;
    }
    return {};
}

fault loadrange(trainer& t, gunnery_screen& s)
{
    const std::string reason = read_range(t.pc, t.shared.rangefile, t.shared);
    if (!reason.empty()) return {t.shared.rangefile, reason};
    const std::string picturefile = t.shared.rangepicture.trimmed();
    if (picturefile.empty()) return {t.shared.rangefile, "It names no picture."};
    fault f = loadinto(t, s.Imgrange, picturefile);
    if (!f.reason.empty()) return f;
    take_natural_size(s.Imgrange);
    return loadicons(t, s);
}

void copyheader(trainer& t, const gunnery_screen& s)
{
    practice_state& p = t.shared;
    p.resultrange = p.rangename.text();
    p.resultpicture = p.rangepicture.text();
    p.resultmode = s.numbers.resultmode;
    p.resulticon1 = p.targeticon1;
    p.resulticon2 = p.targeticon2;
    p.resulticon3 = p.targeticon3;
}

void leavefor(trainer& t, gunnery_screen& s, form& next)
{
    unload(t.pc, s.window);
    show(t.pc, next);
}

void giveup(trainer& t, gunnery_screen& s, const fault& f)
{
    inform(t, headed(program_heading, {"THE PRACTICE CAN'T BE SET UP ON THIS RANGE", f.file, f.reason}));
    leavefor(t, s, t.startsim.window);
}

void make_reset(trainer& t, gunnery_screen& s)
{
    s.window.load = [&s] {
        ++s.resets;
        static_cast<since_load&>(s) = {};
        start(s.Timer1);
    };
    s.window.arrival = [&t, &s] { screenreset(t, s); };
    s.HScspeed.Change = [&s] {
        if (s.visual()) s.layspeed = s.HScspeed.Value;
    };
    s.Cmdhelpon.Click = [&t] { openhelp(t); };
    s.Cmdmain.Click = [&t, &s] {
        leavefor(t, s, s.visual() && t.shared.quickstart ? t.intro.window : t.startsim.window);
    };
    s.CMDEXIT.Click = [&t, &s] {
        confirmexit(t, s.visual() ? program_heading : "GUNNERY SIMULATOR", "SIMULATOR");
    };
}

}   // namespace

bool screenreset(trainer& t, gunnery_screen& s)
{
    t.pc.clear_strikes();
    setuppanels(t, s);
    showkeynote(s);
    s.window.takes_focus = s.Frame3.Visible ? &s.Cmdstartsim : &s.Picrange;
    resetrecord(t, s);
    resetcontrols(s);
    showpause(s, t.shared.paused);
    resetstate(s);
    resetreadouts(s);
    const fault f = loadrange(t, s);
    if (!f.reason.empty()) {
        giveup(t, s, f);
        return false;
    }
    copyheader(t, s);
    return true;
}

void make_gunnery(trainer& t, gunnery_screen& s)
{
    design_gunnery(s);
    make_reset(t, s);
    make_sequencer(t, s);
    make_traverse(s);
    make_laser(s);
    make_autolay(t, s);
    make_armament(t, s);
    make_flight(s);
    make_coax(t, s);
    make_crew(t, s);
    make_input(t, s);
}

}   // namespace vorn
