#include "setup/startsim.h"

#include "flow/intro.h"
#include "platform/design.h"
#include "platform/files.h"
#include "ranges/rangefile.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr const char* instructions =
    "INSTRUCTIONS\n"
    "1.Enter the students details\n"
    "2.Select either a practice or desired options\n"
    "3.Select the desired range and type(therm or vis)\n"
    "4.Select any info and controls required\n"
    "5.Press start to begin chosen practice\n"
    "6.For further information click on HELP";

void lay_out_buttons(startsim_screen& s)
{
    form& f = s.window;
    add(f, s.Lbltitle,
        bold(label({360, 240, 14640, 540}, "V.O.R.N.  PRACTICE EDITOR", colour::text, text_size::large,
                   alignment::centre)));
    add(f, s.Cmdstart, button({1980, 1020, 2700, 600}, "START PRACTICE", "STARTING PRACTICES"));
    add(f, s.cmdgame, button({4860, 1020, 2700, 600}, "QUICK START", "QUICK START"));
    add(f, s.Cmdhelpon, button({7740, 1020, 2700, 600}, "HELP"));
    add(f, s.Cmdexit, button({10620, 1020, 2700, 600}, "EXIT"));
    f.exit_button = &s.Cmdexit;
}

void lay_out_student(startsim_screen& s)
{
    form& f = s.window;
    add(f, s.Frame3, frame({360, 1920, 4680, 3300}, "Instructions"));
    add(f, s.Label3, label({180, 420, 4320, 2700}, instructions), &s.Frame3);
    add(f, s.Frame2, frame({5220, 1920, 4680, 1560}, "Student Details", "STUDENT DETAILS"));
    add(f, s.Lblname, label({180, 480, 1080, 330}, "Name"), &s.Frame2);
    add(f, s.Txtname, textbox({1260, 420, 3180, 405}, "nameless"), &s.Frame2);
    add(f, s.Lblnum, label({180, 1000, 1080, 330}, "Last 3"), &s.Frame2);
    add(f, s.Txtnum, textbox({1260, 945, 1200, 405}, "000"), &s.Frame2);
}

void lay_out_options(startsim_screen& s)
{
    form& f = s.window;
    add(f, s.Frmmethod, frame({5220, 3660, 2250, 1560}, "Method"));
    add(f, s.Optcon1, option({180, 360, 1900, 345}, "Joystick", true), &s.Frmmethod);
    add(f, s.Optcon2, option({180, 720, 1900, 345}, "KBoard"), &s.Frmmethod);
    add(f, s.Optcon3, option({180, 1080, 1900, 345}, "Mouse"), &s.Frmmethod);
    add(f, s.Frmmode, frame({7650, 3660, 2250, 1560}, "Mode"));
    add(f, s.Optmode1, option({180, 360, 1900, 345}, "Visual", true), &s.Frmmode);
    add(f, s.Optmode2, option({180, 720, 1900, 345}, "Thermal"), &s.Frmmode);
    add(f, s.Frame9, frame({10080, 1920, 4920, 3300}, "Range"));
    add(f, s.Lblcurrent, label({180, 480, 1620, 330}, "Current range", colour::dim), &s.Frame9);
    add(f, s.Lblrangename, label({1860, 480, 2880, 330}, ""), &s.Frame9);
    add(f, s.Lbltype, label({180, 960, 1620, 330}, "Rangetype", colour::dim), &s.Frame9);
    add(f, s.lblrangetype, label({1860, 960, 2880, 330}, ""), &s.Frame9);
    add(f, s.Cmdopenrange, button({180, 1560, 1980, 480}, "Load Range", "LOAD RANGE"), &s.Frame9);
}

void cmdopenrange_click(trainer& t)
{
    const auto chosen =
        t.pc.choose_file({"OPEN RANGE SETUP", "Range Files (*.arf)|*.arf|", t.shared.rootpath, "", false});
    if (!chosen) return;
    t.shared.rangefile = *chosen;
    readrangehead(t);
    t.startsim.Frmmode.Enabled = false;   // from now on the range's own type gives the mode
}

void select_mode(trainer& t, int mode, const char* range)
{
    t.shared.practicemode = mode;
    t.shared.rangefile = t.shared.rootpath + path_separator + range;
    readrangehead(t);
}

void select_method(trainer& t, bool joystick, bool keyboard, bool mouse)
{
    t.shared.joyselected = joystick;
    t.shared.keyboardselected = keyboard;
    t.shared.mouseselected = mouse;
}

void cmdstart_click(trainer& t)
{
    startsim_screen& s = t.startsim;
    if (!t.pc.message_box(
            {lines({"V.O.R N.", blankline, "     START SIMULATOR ?    ", "", " (THIS WILL TAKE A MOMENT) "}),
             "V.O.R.N.", box_buttons::yes_no, box_sign::question}))
        return;
    if (joystickrefused(t)) return;
    t.shared.studentdetails = s.Txtname.Text + "_" + s.Txtnum.Text;
    t.shared.targetcount = t.shared.targetblocks * 3;
    t.shared.quickstart = false;
    t.shared.debriefonly = false;
    show(t.pc, t.shared.practicemode == 2 ? t.thermal.window : t.simulator.window);
    hide(t.pc, s.window);
}

void cmdgame_click(trainer& t)
{
    if (joystickrefused(t)) return;
    t.shared.quickstart = true;
    show(t.pc, t.simulator.window);
    hide(t.pc, t.startsim.window);
}

void startsim_arrival(trainer& t)
{
    t.shared.fulldebrief = true;   // whatever the option shows: a quick start has switched it off
    if (!change_directory(t.pc, t.shared.rootpath))
        t.pc.message_box({lines({"THE FOLDER OF THE RANGES CAN'T BE OPENED", t.shared.rootpath}), "V.O.R.N.",
                          box_buttons::ok, box_sign::information});
    readrangehead(t);
}

}   // namespace

void make_startsim(trainer& t)
{
    startsim_screen& s = t.startsim;
    s.window.name = "startsim";
    s.window.Caption = "  V.O.R.N.  PRACTICE EDITOR   ( CHALLENGER 1 )";
    lay_out_buttons(s);
    lay_out_student(s);
    lay_out_options(s);
    s.window.load = [&t] { set_defaults(t.shared); };
    s.window.arrival = [&t] { startsim_arrival(t); };
    s.Cmdstart.Click = [&t] { cmdstart_click(t); };
    s.cmdgame.Click = [&t] { cmdgame_click(t); };
    s.Cmdhelpon.Click = [&t] { openhelp(t); };
    s.Cmdexit.Click = [&t] { confirmexit(t, "V.O.R N.", "V.O.R.N."); };
    s.Cmdopenrange.Click = [&t] { cmdopenrange_click(t); };
    s.Optmode1.Click = [&t] { select_mode(t, 1, "visualrange.arf"); };
    s.Optmode2.Click = [&t] { select_mode(t, 2, "Thermalrange.arf"); };
    s.Optcon1.Click = [&t] { select_method(t, true, true, false); };
    s.Optcon2.Click = [&t] { select_method(t, false, true, false); };
    s.Optcon3.Click = [&t] { select_method(t, false, t.shared.keyboardselected, true); };
}

static void askforrange(trainer& t)
{
    const bool locate = t.pc.message_box(
        {lines({"V.O.R N.", blankline, "CANT FIND CORRECT RANGE FILE DO YOU WISH TO LOCATE ONE ?",
                "(Selecting NO will terminate VORN)"}),
         "V.O.R.N.", box_buttons::yes_no, box_sign::question});
    if (!locate) t.pc.end_program();
    cmdopenrange_click(t);
}

void readrangehead(trainer& t)
{
    if (!read_range_head(t.pc, t.shared.rangefile, t.shared).empty()) return askforrange(t);
    t.startsim.Lblrangename.Caption = t.shared.rangename.text();
    t.startsim.lblrangetype.Caption = t.shared.rangetype;
    t.shared.practicemode = t.shared.rangetype == "THERMAL" ? 2 : 1;
}

}   // namespace vorn
