#include "flow/intro.h"

#include <filesystem>
#include <string>

#include "debrief/results.h"
#include "flow/boxes.h"
#include "platform/files.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

void unhighlight(intro_screen& s)
{
    for (screen_object* o : {&s.lblstart, &s.lblabout, &s.lblhelp, &s.lblexit}) o->ForeColor = colour::text;
}

}   // namespace

void make_intro(trainer& t)
{
    intro_screen& s = t.intro;
    design_intro(s);
    s.lblstart.Click = [&t, &s] {
        hide(t.pc, s.window);
        show(t.pc, t.startsim.window);
    };
    s.lblabout.Click = [&s] { s.Lblabout1.Visible = !s.Lblabout1.Visible; };
    s.lblhelp.Click = [&t] { openhelp(t); };
    s.lblexit.Click = [&t] { confirmexit(t, program_heading, program_title); };
    for (screen_object* o : {&s.lblstart, &s.lblabout, &s.lblhelp, &s.lblexit})
        o->MouseMove = [&s, o] {
            unhighlight(s);
            o->ForeColor = colour::highlight;
        };
    s.Image1.MouseMove = s.window.MouseLeave = [&s] { unhighlight(s); };
    s.window.arrival = [&t, &s] {
        unhighlight(s);   // the word that was clicked is still highlighted
        finddata(t);
    };
}

void start_program(trainer& t)
{
    inform(t, lines({"MOBILE TURRET DRILL CONSOLE ", "                         by",
                     "                    H N VARLEY"}));
    show(t.pc, t.intro.window);
    load(t.pc, t.startsim.window);
    load(t.pc, t.results.window);
}

// The program directory to which a chosen file belongs. The user may also choose a file in its folder
// "ranges", since the directory itself sometimes contains only folders. A program directory that is itself
// named "ranges" is recognised by its "ranges/vorn.HLP".
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
    t.pc.default_directory = to_utf8(t.pc.working_directory);   // the title screen need not ask again
}

void finddata(trainer& t)
{
    if (!enter_program_directory(t, t.pc.default_directory)) askfordata(t);
}

}   // namespace vorn
