#include "flow/boxes.h"
#include "platform/files.h"
#include "ranges/rangefile.h"
#include "ranges/rauthor.h"
#include "setup/setup.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

void cmdopenrange_click(trainer& t)
{
    const auto chosen =
        t.pc.choose_file({.title = "OPEN RANGE SETUP", .filter = range_filter, .folder = t.shared.rootpath});
    if (!chosen) return;
    t.shared.rangefile = *chosen;
    readrangehead(t);
    t.startsim.Frmmode.Enabled = false;   // the type of the range now decides the mode
}

void optmode_click(trainer& t, int mode, const char* range, const char* summary)
{
    t.shared.practicemode = mode;
    t.shared.rangefile = t.shared.rootpath + path_separator + range;
    t.startsim.lblprac[6].Caption = summary;
    readrangehead(t);
}

void command3_click(trainer& t)
{
    t.startsim.Frmmode.Enabled = true;
    select_option(t.startsim.Optmode1);
}

// Disables the mode, since the range author may change the range and with it the mode.
void cmdeditrange_click(trainer& t)
{
    if (!asked_with_name(t, {" LOAD THE RANGE EDITOR ?"})) return;
    show(t.pc, t.rauthor.window);
    t.startsim.Frmmode.Enabled = false;
}

void askforrange(trainer& t)
{
    if (!asked_with_name(t, {"CANT FIND CORRECT RANGE FILE DO YOU WISH TO LOCATE ONE ?",
                             "(Selecting NO will terminate VORN)"}))
        t.pc.end_program();
    cmdopenrange_click(t);
}

}   // namespace

void readrangehead(trainer& t)
{
    if (!read_range_head(t.pc, t.shared.rangefile, t.shared).empty()) return askforrange(t);
    t.startsim.Lblrangename.Caption = t.shared.rangename.text();
    t.startsim.lblrangetype.Caption = t.shared.rangetype;
    t.shared.practicemode = t.shared.rangetype == "THERMAL" ? 2 : 1;
}

void make_rangechoice(trainer& t)
{
    startsim_screen& s = t.startsim;
    s.Optmode1.Click = [&t] { optmode_click(t, 1, "visualrange.arf", "VISUAL"); };
    s.Optmode2.Click = [&t] { optmode_click(t, 2, "Thermalrange.arf", "THERMAL"); };
    s.Cmdopenrange.Click = [&t] { cmdopenrange_click(t); };
    s.cmdeditrange.Click = [&t] { cmdeditrange_click(t); };
    s.Command3.Click = [&t] { command3_click(t); };
}

}   // namespace vorn
