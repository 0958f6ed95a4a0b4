#include "ranges/rauthor.h"

#include "flow/boxes.h"
#include "flow/hints.h"
#include "ranges/ranges.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

hint_panel hints_of(rauthor_screen& s)
{
    constexpr const char* bare_text = "Place cursor over a frame or button to see its function";
    return {.window = s.window,
            .bar = s.Lblinfo,
            .label = s.lblhelp,
            .clock = s.Timhelp,
            .ticks = s.hintticks,
            .below = 350,
            .bare_text = bare_text};
}

void rauthor_load(rauthor_screen& s)
{
    scaleoverview(s);
    placeholderband(s);
}

// Shows the icons of the open range, which SAVE RANGE would store. An icon that can't be loaded
// leaves the shown one unchanged.
void rauthor_arrival(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    end_hint(hints_of(s));                // one may be left from the last time on this screen
    s.targetsize = t.shared.targetsize;   // the option may have changed
    showmiddle(s);
    for (int icon = 1; icon <= 3; ++icon) loadicon(t, icon);
}

void cmdstart_click(trainer& t)
{
    hide(t.pc, t.rauthor.window);
    show(t.pc, t.startsim.window);
}

void make_rauthor_hints(rauthor_screen& s)
{
    make_hints(hints_of(s),
               {{&s.Frame1, "Shows view of whole range and target placings"},
                {&s.Frame2, "Shows the veiw through the sight, target grid locations and distance to target"},
                {&s.Frame3, "Used to select location and picture of the chosen target"},
                {&s.Frame4, "Gives name of the range selected and if a taget has been placed"},
                {&s.Frame5, "Gives instructions on authoring a range"}},
               {{&s.cmdnew, "Create new range"},
                {&s.Cmdopen, "Open a range"},
                {&s.Cmdsave, "Save current range"},
                {&s.Cmdstart, "return to practice editor"},
                {&s.Cmdexit, "Exit from VORN"},
                {&s.Command1, "Open help file"}});
    end_hint_over(hints_of(s), {&s.Frame2, &s.Frame3, &s.Frame4, &s.Frame5});
}

}   // namespace

void make_rauthor(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    make_view(s);
    make_targets(t);
    make_rangedisk(t);
    design_rauthor(s);
    s.window.load = [&s] { rauthor_load(s); };
    s.window.arrival = [&t] { rauthor_arrival(t); };
    s.Cmdstart.Click = [&t] { cmdstart_click(t); };
    s.Cmdexit.Click = [&t] { confirmexit(t, program_heading, "SIMULATOR"); };
    s.Command1.Click = [&t] { openhelp(t); };
    make_rauthor_hints(s);
}

}   // namespace vorn
