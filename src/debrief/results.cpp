#include "debrief/results.h"

#include <string>

#include "debrief/debrief.h"
#include "debrief/report.h"
#include "debrief/resultsfile.h"
#include "flow/boxes.h"
#include "flow/hints.h"
#include "gunnery/screen.h"
#include "platform/files.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr const char* filter = "VORN Files (*.vrn)|*.vrn|";

void results_arrival(trainer& t)
{
    results_screen& s = t.results;
    if (t.shared.debriefonly) s.Cmdreplay.Enabled = false;   // nothing enables it again
    s.Frame1.Visible = true;
    s.outcome.Caption.clear();
    showdetails(t);
    showrange(t);
    if (t.shared.targetcount <= 0) return;
    loadstock(t);
    fillengagements(t);
}

void cmdsave_click(trainer& t)
{
    t.results.outcome.Caption.clear();
    t.shared.resultsfile = left(t.shared.studentdetails.text(), 6) + ".vrn";
    const auto chosen = t.pc.choose_file({.title = "SAVE",
                                          .filter = filter,
                                          .folder = t.shared.rootpath,
                                          .proposed = t.shared.resultsfile,
                                          .save = true,
                                          .suffix = "vrn"});
    if (!chosen) return tell(t, "THERE WAS A SERIOUS ERROR SAVING THAT FILE");
    t.shared.resultsfile = *chosen;
    if (!write_file(t.pc, t.shared.resultsfile, results_file_bytes(t.shared)).empty())
        return tell(t, "THERE WAS A SERIOUS ERROR SAVING THAT FILE");
    t.results.outcome.Caption = t.shared.resultsfile + " is saved";
}

// Reads the record and shows it. Returns false if the record, its picture or one of its icons can't be
// loaded.
bool read_record(trainer& t)
{
    results_screen& s = t.results;
    const file_text file = read_file(t.pc, t.shared.resultsfile);
    if (!file.text) return false;
    item_reader items(*file.text);
    if (!take_results(items, t.shared,
                      [&] { s.Frmtherm.Visible = sight_of(t.shared.resultmode) == sight_kind::thermal; }))
        return false;
    showdetails(t);
    // Icons are loaded even if the picture fails, since the record is shown all the same.
    const bool range = showrange(t), icons = loadstock(t);
    fillengagements(t);
    return range && icons;
}

void cmdopen_click(trainer& t)
{
    results_screen& s = t.results;
    s.outcome.Caption.clear();
    s.Cmdopen.Enabled = false;
    const auto chosen = t.pc.choose_file({.title = "OPEN", .filter = filter, .folder = t.shared.rootpath});
    if (chosen) t.shared.resultsfile = *chosen;
    if (!chosen || !read_record(t)) tell(t, "THAT FILE COULD NOT BE OPENED");
    s.Cmdopen.Enabled = true;
}

void cmdprint_click(trainer& t)
{
    t.results.outcome.Caption.clear();
    if (t.shared.resultsfile.empty()) return tell(t, "NO FILE IS OPEN TO PRINT");
    if (!asked(t, "DO YOU WISH TO PRINT A RECORD OF " + t.shared.resultsfile, program_title)) return;
    const print_outcome done = t.pc.print(report_lines(t.shared), t.shared.studentdetails.trimmed());
    if (!done.reason.empty())
        return tell(t, lines({"THE RECORD COULD NOT BE PRINTED", done.reason}), program_title);
    if (done.cancelled) return;
    t.results.outcome.Caption = done.file.empty() ? "The report is printed" : done.file + " is saved";
}

// After a cancelled save, resultsfile is the proposed name. Usually there is no such file, and the failure to
// delete it is reported.
void cmddelete_click(trainer& t)
{
    t.results.outcome.Caption.clear();
    if (t.shared.resultsfile.empty()) return tell(t, "NO FILE IS OPEN TO DELETE");
    if (!asked(t, "ARE YOU SURE YOU WISH TO DELETE " + t.shared.resultsfile, program_title,
               default_button::no))
        return;
    const std::string reason = delete_file(t.pc, t.shared.resultsfile);
    if (!reason.empty())
        return tell(t, lines({"THAT FILE COULD NOT BE DELETED", t.shared.resultsfile, reason}),
                    program_title);
    t.results.outcome.Caption = t.shared.resultsfile + " is deleted";
    t.shared.resultsfile.clear();
    t.results.Txtstudent.Text.clear();
}

void cmdnew_click(trainer& t)
{
    hide(t.pc, t.results.window);
    show(t.pc, t.startsim.window);
}

void cmdreplay_click(trainer& t)
{
    show(t.pc, practice_screen(t).window);
    hide(t.pc, t.results.window);
}

void make_results_hints(results_screen& s)
{
    const hint_panel hints{.window = s.window,
                           .bar = s.Lblinfo,
                           .label = s.lblhelp,
                           .clock = s.Timhelp,
                           .ticks = s.hintticks,
                           .below = 350};
    make_hints(hints,
               {{&s.Frame1, "THIS DISPLAYS THE TARGET AND POINT OF AIM FOR THE CHOSEN ENGAGEMENT"},
                {&s.Frame2, "DISPLAYS INFORMATION ON THE CHOSEN ENGAGEMENT"},
                {&s.Frame3, "THIS GIVES DETAILS OF THE STUDENT, ENGAGEMENT AND RANGE USED"},
                {&s.Frame4, "CLICK ON A NUMBER IN THIS FRAME TO SEE THE DETAILS OF THAT ENGAGEMENT"},
                {&s.Imgrange, "DISPLAYS A VEIW OF THE RANGE USED FOR THE ENGAGEMENTS"}},
               {{&s.Cmdsave, "Save current record"},
                {&s.Cmdopen, "Open a record"},
                {&s.Cmdprint, "Print current record"},
                {&s.Cmddelete, "Delete an open file"},
                {&s.cmdnew, "Start a new practice"},
                {&s.Cmdreplay, "Replay last practice"},
                {&s.Cmdexit, "Exits from VORN"}});
    end_hint_over(hints, {&s.Imgrange});
}

}   // namespace

void showdetails(trainer& t)
{
    results_screen& s = t.results;
    s.Txtstudent.Text = t.shared.studentdetails.text();
    constexpr std::size_t longest = 60;   // a file can contain texts of any length
    s.Txtpractype.Text = left(t.shared.resultmode, longest);
    s.Txtrngename.Text = left(t.shared.resultrange, longest);
}

bool showrange(trainer& t)
{
    results_screen& s = t.results;
    const std::string file = without_padding(t.shared.resultpicture);
    loaded_picture found;
    if (!file.empty()) found = t.pc.load_picture(file);
    static_cast<object_fields&>(s.originalrange) = *s.originalrange.design;   // drops the previous picture
    s.imgtargetpointer.Visible = false;
    if (found.result) {
        s.originalrange.Picture = std::move(*found.result);
        take_natural_size(s.originalrange);
    }
    s.Imgrange.Picture = s.originalrange.Picture;
    s.overviewscalex = static_cast<std::int32_t>(rounded(s.originalrange.Width / s.Imgrange.Width));
    s.overviewscaley = static_cast<std::int32_t>(rounded(s.originalrange.Height / s.Imgrange.Height));
    return found.result || file.empty();
}

void make_results(trainer& t)
{
    results_screen& s = t.results;
    design_results(s);
    make_engagements(t);
    s.window.arrival = [&t] { results_arrival(t); };
    s.Cmdsave.Click = [&t] { cmdsave_click(t); };
    s.Cmdopen.Click = [&t] { cmdopen_click(t); };
    s.Cmdprint.Click = [&t] { cmdprint_click(t); };
    s.Cmddelete.Click = [&t] { cmddelete_click(t); };
    s.cmdnew.Click = [&t] { cmdnew_click(t); };
    s.Cmdreplay.Click = [&t] { cmdreplay_click(t); };
    s.Cmdexit.Click = [&t] { confirmexit(t, program_heading, program_title); };
    s.Cmdhelpon.Click = [&t] { openhelp(t); };
    make_results_hints(s);
}

}   // namespace vorn
