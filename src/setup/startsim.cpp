#include "setup/startsim.h"

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/boxes.h"
#include "flow/hints.h"
#include "gunnery/screen.h"
#include "platform/files.h"
#include "ranges/rauthor.h"
#include "setup/setup.h"
#include "trainer.h"

namespace vorn {

namespace {

// Leaves the set-up for another screen. Closes the calibration screen and the range author. From an open
// range author the user could return to the set-up and start a second practice.
void leavefor(trainer& t, form& next)
{
    show(t.pc, next);
    hide(t.pc, t.rauthor.window);
    unload(t.pc, t.joycal.window);
    hide(t.pc, t.startsim.window);
}

// Shows a box and returns true when the joystick is selected but not calibrated.
bool joystickrefused(trainer& t)
{
    if (!t.shared.joyselected || t.shared.joycalibrated) return false;
    tell(t, "YOU NEED TO EITHER SELECT A DIFFERENT CONTROL METHOD OR CALIBRATE YOUR CONTROLLER FIRST");
    return true;
}

void cmdstart_click(trainer& t)
{
    startsim_screen& s = t.startsim;
    if (!asked_with_name(t, {"     START SIMULATOR ?    ", "", " (THIS WILL TAKE A MOMENT) "})) return;
    if (joystickrefused(t)) return;
    t.shared.studentdetails = s.Txtname.Text + "_" + s.Txtnum.Text;
    t.shared.targetcount = t.shared.targetblocks * 3;
    t.shared.quickstart = false;
    leavefor(t, practice_screen(t).window);
}

void cmdgame_click(trainer& t)
{
    if (joystickrefused(t)) return;
    t.shared.quickstart = true;
    leavefor(t, t.simulator.window);
}

void cmddebrief_click(trainer& t)
{
    if (!asked_with_name(t, {"STARTING THE DEBRIEF SCREEN !"})) return;
    leavefor(t, t.results.window);
    t.shared.debriefonly = true;
}

void startsim_arrival(trainer& t)
{
    t.startsim.outcome.Caption.clear();
    t.shared.fulldebrief = true;   // a quick start clears it, but doesn't change the option
    if (!change_directory(t.pc, t.shared.rootpath))
        inform(t, lines({"THE FOLDER OF THE RANGES CAN'T BE OPENED", t.shared.rootpath}), name_title);
    readrangehead(t);
}

void make_startsim_hints(startsim_screen& s)
{
    const hint_panel hints{.window = s.window,
                           .bar = s.Lblinfo,
                           .label = s.Lblhelp,
                           .clock = s.Timhelp,
                           .ticks = s.hintticks,
                           .below = 495};
    make_hints(
        hints,
        {{&s.Frame1, "Selects number of targets engaged during the chosen practice"},
         {&s.Frame10, "Selects number of coaxburst to kill a target"},
         {&s.Frame13, "Selects a previously programmed practice"},
         {&s.Frame2, "Used to enter and hold current students details"},
         {&s.Frame3, "Displays either instructions or programme information"},
         {&s.Image1, "Displays either user instructions or program information"},
         {&s.Frame5, "Turns selected  info on simulator screens on or off"},
         {&s.Frame6, "Selects the amount of wind affecting HESH practices"},
         {&s.Frame7, "Used to select advanced VORN options as displayed in the frame "},
         {&s.Frame8, "Turns all info on simulator screens on or off"},
         {&s.Frame9, "Selects and displays the range to be used"},
         {&s.Frmcontrols, "Selects control, sound and score functions for chosen practice"},
         {&s.Frmmode, "Selects either a VISUAL or THERMAL practice"},
         {&s.Frmoptions, "Selects firing options for selected practice"},
         {&s.Frmsystem, "Selects condition of IFCS system during practice"},
         {&s.Frmtargetry, "Selects if targetry appears automatically or on demand"},
         {&s.FrmTiming, "Selects the amount of time you have on each engagement to destroy the target"}},
        {{&s.cmdopenset, "Open a previous setup file"},
         {&s.cmdsaveset, "Save current setup"},
         {&s.Cmdstart, "Start VORN with selected options"},
         {&s.cmdgame, "Quick starts with standard options"},
         {&s.Cmddebrief, "Debrief a practice"},
         {&s.Cmdabout, "Info on the program"},
         {&s.Cmdexit, "Exit from VORN"}});
    end_hint_over(hints, {&s.Frame2, &s.Frame13, &s.Frame9});
}

}   // namespace

void make_startsim(trainer& t)
{
    startsim_screen& s = t.startsim;
    design_startsim(s);
    make_options(t);
    make_practices(t);
    make_practicefile(t);
    make_rangechoice(t);
    s.window.arrival = [&t] { startsim_arrival(t); };
    s.Cmdstart.Click = [&t] { cmdstart_click(t); };
    s.cmdgame.Click = [&t] { cmdgame_click(t); };
    s.Cmddebrief.Click = [&t] { cmddebrief_click(t); };
    s.cmdstick.Click = [&t] { show(t.pc, t.joycal.window); };
    s.Cmdabout.Click = [&s] { s.Image1.Visible = !s.Image1.Visible; };
    s.Cmdhelpon.Click = [&t] { openhelp(t); };
    s.Cmdexit.Click = [&t] { confirmexit(t, name_heading, name_title); };
    make_startsim_hints(s);
}

}   // namespace vorn
