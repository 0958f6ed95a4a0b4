// The layout of the set-up screen, in twips. It follows the order in which an instructor works: student on
// the left, practice and options in the middle, range and controls on the right. The numbers in the upper
// right corners of the frames are the steps of the instructions. The Tab order follows these steps and ends
// at the buttons along the top.
#include "platform/design.h"
#include "flow/hints.h"
#include "setup/setup.h"
#include "setup/startsim.h"

namespace vorn {

namespace {

using S = startsim_screen;

constexpr double edge = 90;        // from the edge of a frame to its objects
constexpr double header = 330;     // from the top of a frame to its first row
constexpr double row_step = 420;   // from option to option
constexpr double row_height = 330;

constexpr const char* instructions =
    "INSTRUCTIONS\n"
    "1.Enter the students details\n"
    "2.Select either a practice or desired options\n"
    "3.Select the desired range and type(therm or vis)\n"
    "4.Select any info and controls required\n"
    "5.Press start to begin chosen practice\n"
    "6.For further information click on HELP";
constexpr const char* choosing =
    "To select a different practice either click on the numbered targets in the next box or select open "
    "practice and choose from the list given. Details will be displayed in the details box.";

// Shows the number of a step of the instructions in the upper right corner of a frame.
void step(const panel<S>& in, const char* number)
{
    in.caption(readout({in.frame->Width - 420, 45, 300, 270}, number, text_size::normal, alignment::right));
}

// One option of a column.
struct option_row {
    screen_object S::*option;
    const char* caption;
    bool chosen = false;
    const char* tip = "";
    bool shown = true;
};
// Adds a frame with a column of options.
void options(const panel<S>& parent, screen_object& group, area at, const char* title,
             std::initializer_list<option_row> rows, const char* tip = "")
{
    const auto in = add_frame(parent.s, group, frame(at, title, tip), parent.frame);
    double top = header;
    for (const option_row& r : rows) {
        object_fields f =
            with_tip(option({edge, top, at.Width - 2 * edge, row_height}, r.caption, r.chosen), r.tip);
        f.Visible = r.shown;
        in.add(in.s.*r.option, std::move(f));
        if (r.shown) top += row_step;
    }
}

void student(S& s)
{
    const auto in =
        add_frame(s, s.Frame2, frame({120, 870, 3480, 1560}, "Student Details", "STUDENT DETAILS"));
    step(in, "1");
    in.caption(label({180, 510, 780, 330}, "Name"));
    in.add(s.Txtname, named(textbox({960, 450, 2340, 420}, "nameless"), "Name"));
    in.caption(label({180, 1020, 780, 330}, "Last 3"));
    in.add(s.Txtnum, named(textbox({960, 960, 1080, 420}, "000"), "Last 3"));
}

void instructions_frame(S& s)
{
    const auto in = add_frame(s, s.Frame3, frame({120, 2550, 3480, 3300}));
    in.add(s.Label3, label({180, 240, 3150, 2940}, instructions));
    in.add(s.Image1, hidden(image({edge, 150, 3300, 3060}, ":program")));
}

void practice_targets(const panel<S>& in)
{
    constexpr double lefts[] = {3600, 4200, 4800, 5400}, tops[] = {240, 795, 1320}, side = 465;
    for (int n = 1; n <= 12; ++n) {
        const area at{lefts[(n - 1) % 4], tops[(n - 1) / 4], side, side};
        const bool last = n == 12;
        in.add(in.s.Imgpractice[n], image(at, last ? ":stop" : ":practice"));
        const object_fields number =
            label(at, last ? "" : std::to_string(n), colour::darkred, text_size::normal, alignment::centre);
        in.add(in.s.Lblpractice[n],
               named(with_tip(number, n == 1 ? "PRACTICES" : ""), last ? "Practice 12" : "Practice"));
    }
}

// Two rows of the summary have two lines side by side.
void summary(const panel<S>& in)
{
    static constexpr struct {
        int number;
        double left, row;
        const char* text;
    } lines[] = {{1, 180, 0, "A STANDARD SHOOT"},
                 {0, 180, 1, "A FULL SYTEM "},
                 {6, 3360, 1, "VISUAL PRACTICE"},
                 {2, 180, 2, "USING ALL NATURES OF AMMUNITION"},
                 {7, 180, 3, "2 KILL BURSTS FOR COAX TARGETS"},
                 {3, 180, 4, "SIX TARGETS"},
                 {4, 3360, 4, "UP FOR 30 SECONDS"},
                 {5, 180, 5, "TARGETS APPEAR AUTOMATICALLY"}};
    in.caption(shape({edge, 1860, 5940, 1530}, shape_kind::rectangle, colour::black, colour::black));
    for (const auto& l : lines) {
        const bool half = l.number == 0 || l.number == 3 || l.number == 4 || l.number == 6;
        in.add(in.s.lblprac[l.number],
               label({l.left, 1890 + 243 * l.row, half ? 2600.0 : 5700.0, 240}, l.text, colour::live));
    }
}

void practice_buttons(S& s)
{
    const auto in = add_frame(s, s.Frame13, frame({3720, 870, 6120, 3480}, "Practices"));
    step(in, "2");
    in.add(s.Label14, label({180, 330, 3300, 1440}, choosing, colour::dim, text_size::small));
    practice_targets(in);
    summary(in);
}

void wind(S& s)
{
    const auto in =
        add_frame(s, s.Frame6, frame({edge, 4410, 7620, 1950}, "Wind Bias", "WIND BIAS"), &s.Frmoptions);
    in.add(s.HScrwind, named(slider({240, 480, 7140, 330}, -3, 3, 0), "Wind Bias"));
    in.caption(label({240, 1080, 1080, 300}, "Direction =", colour::dim));
    in.add(s.lblwinddir, named(readout({1320, 1080, 1200, 300}, "None"), "Direction"));
    in.caption(label({3900, 1080, 1080, 300}, "Strenght =", colour::dim));
    in.add(s.Lblwindstr, named(readout({4980, 1080, 1200, 300}, "None"), "Strength"));
}

void firing_options(S& s)
{
    const auto in = add_frame(s, s.Frmoptions, frame({3720, 4470, 7800, 6480}, "OPTIONS"));
    step(in, "2");
    constexpr double four = header + 4 * row_step + edge, three = four - row_step;
    constexpr double upper_top = 390, lower_top = upper_top + four + 120;
    const auto upper = [](int column) { return area{edge + column * 1920, upper_top, 1860, four}; };
    const auto lower = [](int column) { return area{edge + column * 2560, lower_top, 2500, three}; };
    options(in, s.Frmsystem, upper(0), "System",
            {{&S::Optsys1, "Full System", true},
             {&S::Optsys2, "Lazer only"},
             {&S::Optsys3, "TLS only"},
             {&S::Optsys4, "Self degrading"}});
    options(in, s.Frmengagements, upper(1), "Engagements",
            {{&S::Opteng1, "Mixed", true, "ENGAGEMENTS"},
             {&S::Opteng2, "Coax"},
             {&S::Opteng3, "Hesh"},
             {&S::Opteng4, "DST / Fin"}});
    options(in, s.Frame1, upper(2), "Targets",
            {{&S::Opttargets1, "6 Targets", true},
             {&S::Opttargets2, "9 Targets"},
             {&S::Opttargets3, "12 Targets"},
             {&S::Opttargets4, "15 Targets"}});
    options(in, s.FrmTiming, upper(3), "Target timings",
            {{&S::Opttime1, "Till destroyed"},
             {&S::Opttime2, "Up for 20 secs"},
             {&S::Opttime3, "Up for 30 secs", true},
             {&S::Opttime4, "Up for 40 secs"}},
            "TARGET TIMINGS");
    options(in, s.Frmmode, lower(0), "Mode", {{&S::Optmode1, "Visual", true}, {&S::Optmode2, "Thermal"}});
    options(in, s.Frmtargetry, lower(1), "Targetry",
            {{&S::Opttarg1, "Automatic", true}, {&S::Opttarg2, "Manual"}}, "TARGETRY");
    options(in, s.Frame10, lower(2), " Coax Bursts",
            {{&S::Option2, "2", true},
             {&S::Option3, "3"},
             {&S::Option4, "4"},
             {.option = &S::Option1, .caption = "5", .shown = false}},
            "COAX KILLING BURSTS");
    wind(s);
}

void range_frame(S& s)
{
    const auto in = add_frame(s, s.Frame9, frame({9960, 870, 5280, 1740}, "Range"));
    step(in, "3");
    in.caption(label({180, 360, 1380, 300}, "Current range", colour::dim));
    in.add(s.Lblrangename, named(readout({1620, 360, 3480, 300}), "Current range"));
    in.caption(label({180, 720, 1380, 300}, "Rangetype", colour::dim));
    in.add(s.lblrangetype, named(readout({1620, 720, 3480, 300}), "Range type"));
    const auto at = [](int n) { return area{edge + n * 1710.0, 1170, 1650, 450}; };
    in.add(s.Cmdopenrange, button(at(0), "Load Range", "LOAD RANGE"));
    in.add(s.cmdeditrange, button(at(1), "Edit Range", "EDIT RANGE"));
    in.add(s.Command3, button(at(2), "Cancel"));
}

void screen_info(S& s)
{
    const auto info = add_frame(s, s.Frame5, frame({9960, 2730, 3480, 1620}, "Info"));
    step(info, "4");
    constexpr double box_step = 390;   // three rows fill the frame
    static constexpr struct {
        screen_object S::*box;
        const char* caption;
        double left, width;
        int row;
    } boxes[] = {{&S::Chkinfo1, "System", edge, 1260, 0},
                 {&S::Chkinfo2, "Control", edge, 1260, 1},
                 {&S::chkinfo3, "Crew", edge, 1260, 2},
                 {&S::Chkgunlight, "Gun light", 1380, 2010, 0},
                 {&S::Chkcoax, "Coax hesh light", 1380, 2010, 1}};
    for (const auto& b : boxes) {
        object_fields f = placed(object_kind::checkbox,
                                 {b.left, header + b.row * box_step, b.width, row_height}, b.caption);
        f.Value = 1;
        info.add(s.*b.box, std::move(f));
    }
    const auto screen = add_frame(s, s.Frame8, frame({13560, 2730, 1680, 1620}, "Screen"));
    screen.add(s.Optscreen1,
               with_tip(option({edge, header, 1530, row_height}, "Plain Screen"), "SCREEN INFO"));
    screen.add(s.Optscreen2, option({edge, header + row_step, 1530, row_height}, "Screen info", true));
}

void controls(S& s)
{
    const auto in = add_frame(s, s.Frmcontrols, frame({11640, 4470, 3600, 6480}, "Controls"));
    step(in, "4");
    constexpr double two = header + 2 * row_step + edge, three = two + row_step;
    constexpr double first = 390, second = first + three + 1020, third = second + two + 210;
    const auto at = [](int column, double top, double height) {
        return area{edge + column * 1740, top, 1680, height};
    };
    options(in, s.Frmmethod, {edge, first, 3420, three}, "Method",
            {{&S::Optcon1, "Joystick", true},
             {&S::Optcon2, "KBoard"},
             {&S::Optcon3, "Mouse"},
             {.option = &S::Optcon4, .caption = "Stand", .shown = false}});
    in.add(s.cmdstick, button({edge, first + three + 210, 3420, 540}, "calibrate joystick"));
    options(in, s.Frmvoices, at(0, second, two), "Voices",
            {{&S::Optvoice1, "On", true, "VOICES"}, {&S::Optvoice2, "Off"}});
    options(in, s.Frmsounds, at(1, second, two), "Sounds",
            {{&S::Optsound1, "On", true}, {.option = &S::Opsound2, .caption = "Off", .tip = "SOUNDS"}});
    options(in, s.Frmresults, at(0, third, two), "Results",
            {{&S::optcontroller1, "Full debrief", true}, {&S::Optcontroller2, "Quick score"}});
    options(in, s.Frmhesh, at(1, third, two), "Hesh Correct",
            {{.option = &S::opthesh1, .caption = "All targets", .tip = "HESH CORRECTIONS"},
             {&S::Opthesh2, "Till correct", true}});
}

void advanced_options(S& s)
{
    add(s.window, s.Frame7, frame({120, 5970, 3480, 4980}, "Advanced Options"));
    const struct {
        screen_object& group;
        screen_object& bar;
        const char* title;
        int from, to, first, page;
    } rows[] = {{s.Frmtgtsize, s.HSctgt, "TARGET SIZE", 4, 10, 4, 1},
                {s.Frmkillarea, s.hsctarget, "TARGET KILL AREA", 4, 20, 15, 1},
                {s.Frmcoaxerror, s.HSccoax, "COAX ERROR", 50, 500, 200, 10}};
    double top = 360;
    for (const auto& r : rows) {
        const auto in = add_frame(s, r.group, frame({edge, top, 3300, 1410}, r.title), &s.Frame7);
        in.add(r.bar, with_tip(slider({180, 420, 2940, 330}, r.from, r.to, r.first, r.page), r.title));
        in.caption(label({180, 900, 1200, 270}, "Small", colour::dim));
        in.caption(label({1920, 900, 1200, 270}, "Large", colour::dim, text_size::normal, alignment::right));
        top += 1515;
    }
}

void buttons(S& s)
{
    put_buttons(s.window, {120, 165, 1800, 540}, 1875,
                {{s.cmdopenset, "OPEN PRACTICE", "SETTING UP PRACTICES"},
                 {s.cmdsaveset, "SAVE PRACTICE", "SAVING PRACTICES"},
                 {s.Cmdstart, "START PRACTICE", "STARTING PRACTICES"},
                 {s.cmdgame, "QUICK START", "QUICK START"},
                 {s.Cmddebrief, "DEBRIEF", "DEBRIEF"},
                 {s.Cmdabout, "ABOUT", ""},
                 {s.Cmdhelpon, "HELP", ""},
                 {s.Cmdexit, "EXIT", ""}});
    s.Cmdstart.bold = s.Cmdstart.design->bold = true;
    s.window.exit_button = &s.Cmdexit;
    s.window.spreads = true;
}

}   // namespace

void design_startsim(startsim_screen& s)
{
    s.window.name = "startsim";
    s.window.Caption = "  V.O.R.N.  PRACTICE EDITOR   ( CHALLENGER 1 )";
    student(s);
    instructions_frame(s);
    practice_buttons(s);
    firing_options(s);
    range_frame(s);
    screen_info(s);
    controls(s);
    advanced_options(s);
    buttons(s);
    add(s.window, s.outcome,
        label({120, 11250, 15120, 240}, "", colour::live, text_size::small, alignment::centre));
    lay_out_hints(s.window, s.Lblinfo, {120, 10980, 15120, 270}, s.Lblhelp);
}

}   // namespace vorn
