#include <algorithm>
#include <iterator>

#include "flow/boxes.h"
#include "platform/files.h"
#include "ranges/rangefile.h"
#include "ranges/ranges.h"
#include "ranges/rauthor.h"
#include "state/item_text.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr const char* picture_filter = "VRP/TRP thermal & visual picture files (*.vrp)|*.vrp|(*.trp)|*.trp|";
constexpr const char* standby_picture = "range1.vrp";

// Limits in twips. Smaller pictures leave the sights of a practice too little room to move.
constexpr double too_narrow = 20000;
constexpr double high_enough = 6000;

// Keeps the chosen path if it fits into a range file, otherwise the path relative to the folder of the
// ranges; a practice finds the picture by either. Returns false if neither fits.
bool keeppicturepath(trainer& t, const std::string& path)
{
    auto& kept = t.shared.rangepicture;
    kept = path;
    if (kept.trimmed() == path) return true;
    const auto below = below_folder(t.pc, t.shared.rootpath, path);
    if (below) kept = *below;
    return below && kept.trimmed() == *below;
}

enum class taken { yes, no, unsuitable };

// The sight window is empty when the picture can't be loaded or is unsuitable.
taken loadpicture(trainer& t, const std::string& path)
{
    rauthor_screen& s = t.rauthor;
    s.Imagerange.Visible = false;
    loaded_picture loaded = t.pc.load_picture(path);
    if (!loaded.result) {
        s.outcome.Caption = path + " could not be loaded. " + loaded.reason;
        return taken::no;
    }
    const bool kept = keeppicturepath(t, path);
    if (loaded.result->height < high_enough || loaded.result->width <= too_narrow) {
        hangpicture(s, std::move(*loaded.result));
        return taken::unsuitable;
    }
    putpicture(s, std::move(*loaded.result));
    s.outcome.Caption.clear();
    if (!kept)
        tell(t,
             lines({"THE PATH OF THAT PICTURE IS TOO LONG FOR A RANGE FILE",
                    "COPY THE PICTURE INTO THE FOLDER OF THE RANGES FIRST"}),
             "PICTURE FAULT");
    return taken::yes;
}

// Loads the chosen picture. If its size is unsuitable, asks whether the user wants to choose another, and if
// not tries the standby picture. Returns true if the user wants to choose another.
bool takepicture(trainer& t, const std::string& chosen)
{
    for (const std::string& path : {chosen, std::string(standby_picture)}) {
        if (loadpicture(t, path) != taken::unsuitable) return false;
        if (asked(t, lines({"THE DIMENSIONS OF THAT PICTURE ARE UNSUITABLE", "DO YOU WANT TO TRY ANOTHER ?"}),
                  "PICTURE FAULT"))
            return true;
    }
    return false;
}

bool newrange(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    const auto name = t.pc.input_box("NEW RANGE", "ENTER NAME FOR RANGE (Max 20 letters)", "NO NAME");
    if (!name) return false;
    set_text(s.Textname, *name);
    s.Lblrangetype.Caption = asked(t, "WILL THIS BE A THERMAL RANGE ?", "NEW RANGE") ? "THERMAL" : "VISUAL";
    showtarget(s);
    const auto chosen = t.pc.choose_file({.title = "OPEN PICTURE FOR RANGE",
                                          .filter = picture_filter,
                                          .folder = t.shared.rootpath,
                                          .picture = true});
    return chosen && takepicture(t, *chosen);
}

void cmdnew_click(trainer& t)
{
    while (newrange(t)) {
    }
}

std::string showpicture(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    const std::string file = t.shared.rangepicture.trimmed();
    loaded_picture loaded = t.pc.load_picture(file);
    if (!loaded.result) return "Its picture " + file + " could not be loaded. " + loaded.reason;
    putpicture(s, std::move(*loaded.result));
    proposerange(s);
    return {};
}

void showposition(const practice_state& p, rauthor_screen& s, int position)
{
    if (position == 0) return;   // it has no number and no marker
    const area at = overviewplace(s, p.targetx[position], p.targety[position]);
    place_at(s.Img[position], at.Left, at.Top);
    showplaced(s, position);
}

// Shows a part of a range that has just been read. Returns the reason for a failure.
std::string showpart(trainer& t, range_part part, int position)
{
    rauthor_screen& s = t.rauthor;
    if (part == range_part::name) set_text(s.Textname, t.shared.rangename.trimmed());
    if (part == range_part::picture) return showpicture(t);
    if (part == range_part::type) {
        s.Lblrangetype.Caption = t.shared.rangetype;
        showtarget(s);
    }
    if (part == range_part::entry) showposition(t.shared, s, position);
    return {};
}

// Opens a range and shows each part as it is read, even if the file ends early. Returns the reason for a
// failure.
std::string openrange(trainer& t, const std::string& path)
{
    const file_text file = read_file(t.pc, path);
    if (!file.text) return file.reason;
    item_reader items(*file.text);
    std::string failed;
    const bool whole = take_range(items, t.shared, [&](range_part part, int position) {
        failed = showpart(t, part, position);
        return failed.empty();
    });
    if (!failed.empty()) return failed;
    if (!whole) return "It is incomplete.";
    for (int icon = 1; icon <= 3; ++icon)
        if (!loadicon(t, icon)) return "One of its icons could not be loaded.";
    t.shared.rangefile = path;
    return {};
}

void cmdopen_click(trainer& t)
{
    const auto chosen =
        t.pc.choose_file({.title = "OPEN", .filter = range_filter, .folder = t.shared.rootpath});
    if (!chosen) return;
    const std::string failed = openrange(t, *chosen);
    t.rauthor.outcome.Caption = *chosen + (failed.empty() ? " is open" : " could not be opened. " + failed);
}

void saverange(trainer& t, const std::string& path)
{
    rauthor_screen& s = t.rauthor;
    t.shared.rangename = s.Textname.Text;
    t.shared.rangetype = s.Lblrangetype.Caption;
    const std::string failed = write_range(t.pc, path, t.shared);
    s.outcome.Caption = path + (failed.empty() ? " is saved" : " could not be saved. " + failed);
}

void cmdsave_click(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    if (s.Textname.Text.empty()) return tell(t, "YOU MUST GIVE THE FILE A VALID NAME");
    const auto unplaced = [](const screen_object& number) { return number.BackColor == colour::darkred; };
    if (std::any_of(std::begin(s.Lbltargetnum) + 1, std::end(s.Lbltargetnum), unplaced))
        return tell(t, "NOT ALL TARGETS ARE ALLOCATED");
    const auto chosen = t.pc.choose_file({.title = "SAVE",
                                          .filter = range_filter,
                                          .folder = t.shared.rootpath,
                                          .proposed = left(s.Textname.Text, 6) + ".arf",
                                          .save = true,
                                          .suffix = "arf"});
    if (chosen) saverange(t, *chosen);
}

}   // namespace

void make_rangedisk(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    s.cmdnew.Click = [&t] { cmdnew_click(t); };
    s.Cmdopen.Click = [&t] { cmdopen_click(t); };
    s.Cmdsave.Click = [&t] { cmdsave_click(t); };
    s.Textname.Change = [&t] { t.shared.rangename = t.rauthor.Textname.Text; };
}

}   // namespace vorn
