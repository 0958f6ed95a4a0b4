#include "flow/boxes.h"
#include "platform/files.h"
#include "ranges/author.h"
#include "ranges/rangefile.h"
#include "ranges/rauthor.h"
#include "state/item_text.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr const char* range_filter = "Range Files (*.arf)|*.arf|";
constexpr const char* picture_filter = "VRP/TRP thermal & visual picture files (*.vrp)|*.vrp|(*.trp)|*.trp|";
constexpr const char* standby_picture = "range1.vrp";

// A smaller picture would leave the sights of a practice without room to move, twips.
constexpr double too_narrow = 20000;
constexpr double high_enough = 6000;

// The path as it was chosen, as long as the range file can hold it; a longer one from the folder of the
// ranges on, which the practice finds as well. False where the file can hold neither.
bool keeppicturepath(trainer& t)
{
    const std::string& path = t.rauthor.authorfile;
    auto& kept = t.shared.rangepicture;
    kept = path;
    if (kept.trimmed() == path) return true;
    const auto below = below_folder(t.pc, t.shared.rootpath, path);
    if (below) kept = *below;
    return below && kept.trimmed() == *below;
}

enum class taken { yes, no, unsuitable };

// A picture that can't be loaded leaves the sight window without one.
taken loadpicture(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    s.Imagerange.Visible = false;
    loaded_picture loaded = t.pc.load_picture(s.authorfile);
    if (!loaded.result) {
        s.outcome.Caption = s.authorfile + " could not be loaded. " + loaded.reason;
        return taken::no;
    }
    const bool held = keeppicturepath(t);
    if (loaded.result->height < high_enough || loaded.result->width <= too_narrow) {
        hangpicture(s, std::move(*loaded.result));
        return taken::unsuitable;
    }
    putpicture(s, std::move(*loaded.result));
    s.Imagerange.Visible = true;
    s.outcome.Caption.clear();
    if (!held)
        t.pc.message_box({lines({"THE PATH OF THAT PICTURE IS TOO LONG FOR A RANGE FILE",
                                 "COPY THE PICTURE INTO THE FOLDER OF THE RANGES FIRST"}),
                          "PICTURE FAULT"});
    return taken::yes;
}

// True when the user wants to choose another picture. The standby picture is tried once: when it is
// unsuitable too, a second no is an end to it.
bool takepicture(trainer& t)
{
    for (const bool standby : {false, true}) {
        if (loadpicture(t) != taken::unsuitable) return false;
        if (asked(t, lines({"THE DIMENSIONS OF THAT PICTURE ARE UNSUITABLE", "DO YOU WANT TO TRY ANOTHER ?"}),
                  "PICTURE FAULT"))
            return true;
        if (!standby) t.rauthor.authorfile = standby_picture;
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
    file_dialog dialog{"OPEN PICTURE FOR RANGE", picture_filter, t.shared.rootpath, "", false};
    dialog.picture = true;
    const auto chosen = t.pc.choose_file(dialog);
    if (!chosen) return false;
    s.authorfile = *chosen;
    return takepicture(t);
}

void cmdnew_click(trainer& t)
{
    while (newrange(t)) {
    }
}

constexpr const char* breaks_off = "It breaks off.";

// Both give the reason when the read fails, empty when it doesn't.
std::string readhead(trainer& t, item_reader& items)
{
    rauthor_screen& s = t.rauthor;
    if (!take_range_name(items, t.shared)) return breaks_off;
    set_text(s.Textname, t.shared.rangename.trimmed());
    if (!take_range_picture(items, t.shared)) return breaks_off;
    const std::string file = t.shared.rangepicture.trimmed();
    loaded_picture loaded = t.pc.load_picture(file);
    if (!loaded.result) return "Its picture " + file + " could not be loaded. " + loaded.reason;
    putpicture(s, std::move(*loaded.result));
    s.Imagerange.Visible = true;
    proposerange(s);
    if (!take_range_type(items, t.shared)) return breaks_off;
    s.Lblrangetype.Caption = t.shared.rangetype;
    showtarget(s);
    return take_range_icons(items, t.shared) ? "" : breaks_off;
}

// Everything is shown as it is read: a file that breaks off has shown what it had.
std::string readrange(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    const file_text file = read_file(t.pc, s.authorfile);
    if (!file.text) return file.reason;
    item_reader items(*file.text);
    std::string failed = readhead(t, items);
    if (!failed.empty()) return failed;
    for (int i = 0; i < positions; ++i) {
        if (!take_range_entry(items, i, t.shared)) return breaks_off;
        if (i == 0) continue;   // has neither number nor marker
        const area at = overviewplace(s, t.shared.targetx[i], t.shared.targety[i]);
        s.Img[i].Left = at.Left;
        s.Img[i].Top = at.Top;
        showplaced(s, i);
    }
    for (int icon = 1; icon <= 3; ++icon)
        if (!loadicon(t, icon)) return "One of its icons could not be loaded.";
    t.shared.rangefile = s.authorfile;
    return {};
}

void cmdopen_click(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    const auto chosen = t.pc.choose_file({"OPEN", range_filter, t.shared.rootpath, "", false});
    if (!chosen) return;
    s.authorfile = *chosen;
    const std::string failed = readrange(t);
    s.outcome.Caption = s.authorfile + (failed.empty() ? " is open" : " could not be opened. " + failed);
}

bool allplaced(const rauthor_screen& s)
{
    for (int i = 1; i < positions; ++i)
        if (s.Lbltargetnum[i].BackColor == colour::darkred) return false;
    return true;
}

void saverange(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    t.shared.rangename = s.Textname.Text;
    t.shared.rangetype = s.Lblrangetype.Caption;
    const std::string failed = write_range(t.pc, s.authorfile, t.shared);
    s.outcome.Caption = s.authorfile + (failed.empty() ? " is saved" : " could not be saved. " + failed);
}

void cmdsave_click(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    if (s.Textname.Text.empty()) {
        t.pc.message_box({"YOU MUST GIVE THE FILE A VALID NAME", ""});
        return;
    }
    if (!allplaced(s)) {
        t.pc.message_box({"NOT ALL TARGETS ARE ALLOCATED", ""});
        return;
    }
    s.authorfile = left(s.Textname.Text, 6) + ".arf";
    const auto chosen =
        t.pc.choose_file({"SAVE", range_filter, t.shared.rootpath, s.authorfile, true, "arf"});
    if (!chosen) return;
    s.authorfile = *chosen;
    saverange(t);
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
