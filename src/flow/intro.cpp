#include "flow/intro.h"

#include <filesystem>
#include <string>

#include "debrief/results.h"
#include "flow/boxes.h"
#include "platform/design.h"
#include "platform/files.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr const char* title = "MOBILE TURRET DRILL CONSOLE CHALLENGER 1 (VER 2.0)";
constexpr const char* about =
    "V.O.R.N. trains the gunner of a main battle tank at his own station: orders, laying, lasing, fire and "
    "correction, on the visual and on the thermal sight, with a score and a debrief of each round.\n\n"
    "Free software under the MIT licence. All pictures, voices and ranges were made for it.";

void unhighlight(intro_screen& s)
{
    for (screen_object* o : {&s.lblstart, &s.lblabout, &s.lblhelp, &s.lblexit}) o->ForeColor = colour::text;
}

void lblstart_click(trainer& t)
{
    hide(t.pc, t.intro.window);
    show(t.pc, t.startsim.window);
}

object_fields menu_label(double left, const char* caption)
{
    return bold(label({left, 10350, 2400, 600}, caption, colour::text, text_size::large, alignment::centre));
}

void lay_out(intro_screen& s)
{
    form& f = s.window;
    f.name = "intro";
    f.Caption = "V. O. R. N.";
    // As wide as the widest usual screens, 21:9; a narrower window shows its middle.
    s.Image1.docked = dock::backdrop;
    add(f, s.Image1, image({-6000, 0, form_width + 12000, form_height}, ":title"));
    add(f, s.Label2,
        bold(label({645, 645, 14100, 600}, title, colour::black, text_size::large, alignment::centre)));
    add(f, s.Label1,
        bold(label({630, 630, 14100, 600}, title, colour::text, text_size::large, alignment::centre)));
    object_fields text =
        hidden(label({3150, 2400, 9060, 1470}, about, colour::text, text_size::normal, alignment::centre));
    text.BackColor = colour::black;
    add(f, s.Lblabout1, std::move(text));
    add(f, s.lblstart, menu_label(1080, "START"));
    add(f, s.lblabout, menu_label(4680, "ABOUT"));
    add(f, s.lblhelp, menu_label(8280, "HELP"));
    add(f, s.lblexit, menu_label(11880, "EXIT"));
    f.exit_button = &s.lblexit;
}

}   // namespace

void make_intro(trainer& t)
{
    intro_screen& s = t.intro;
    lay_out(s);
    s.lblstart.Click = [&t] { lblstart_click(t); };
    s.lblabout.Click = [&s] { s.Lblabout1.Visible = !s.Lblabout1.Visible; };
    s.lblhelp.Click = [&t] { openhelp(t); };
    s.lblexit.Click = [&t] { confirmexit(t, "V. O. R. N. ", "V. O. R. N."); };
    for (screen_object* o : {&s.lblstart, &s.lblabout, &s.lblhelp, &s.lblexit})
        o->MouseMove = [&s, o] {
            unhighlight(s);
            o->ForeColor = colour::highlight;
        };
    s.Image1.MouseMove = s.window.MouseLeave = [&s] { unhighlight(s); };
    s.window.arrival = [&t, &s] {
        unhighlight(s);   // a word that was clicked to leave the screen
        finddata(t);
    };
}

void start_program(trainer& t)
{
    t.shared.debriefonly = false;
    t.pc.message_box({lines({"MOBILE TURRET DRILL CONSOLE ", "                         by",
                             "                    H N VARLEY"}),
                      "V. O. R. N.", box_buttons::ok, box_sign::information});
    show(t.pc, t.intro.window);
    load(t.pc, t.startsim.window);
    load(t.pc, t.results.window);
}

// The user may choose a file in the folder "ranges" instead: the program directory itself may contain no
// file. A program directory can also be named "ranges"; the manual is then in the folder "ranges" in it.
static std::filesystem::path directory_of(const std::string& file)
{
    const std::filesystem::path folder = from_utf8(file).parent_path();
    std::error_code failed;
    const bool inside = folder.filename() == "ranges" && !exists(folder / "ranges" / "vorn.HLP", failed);
    return inside ? folder.parent_path() : folder;
}

// Makes the program directory the working directory. The data is in its folder "ranges".
static bool enter_program_directory(trainer& t, const std::string& folder)
{
    if (!change_directory(t.pc, folder)) return false;
    t.shared.rootpath = to_utf8(t.pc.working_directory) + path_separator + "ranges";
    return true;
}

static void askfordata(trainer& t)
{
    if (!asked_with_name(t, {"THE PROGRAM DIRECTORY CAN'T BE FOUND", "DO YOU WISH TO LOOK FOR IT ?"}))
        t.pc.end_program();
    const auto chosen = t.pc.choose_file({.title = "CHOOSE A FILE IN THE PROGRAM DIRECTORY",
                                          .filter = "All Files (*.*)|*|",
                                          .folder = t.shared.rootpath});
    if (!chosen || !enter_program_directory(t, to_utf8(directory_of(*chosen)))) return;
    t.pc.default_directory = to_utf8(t.pc.working_directory);   // the title screen asks only once
}

void finddata(trainer& t)
{
    if (!enter_program_directory(t, t.pc.default_directory)) askfordata(t);
}

}   // namespace vorn
