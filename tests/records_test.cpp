// The files of earlier versions. Beside each one, NAME.txt says what the screens show of it.
#include "debrief/report.h"
#include "debrief/resultsfile.h"
#include "drill.h"
#include "setup/setup.h"

namespace vorn {

namespace {

std::string line(std::initializer_list<std::string> words)
{
    std::string text;
    for (const std::string& w : words) text += (text.empty() ? "" : " | ") + w;
    return text + '\n';
}

// What the set-up screen shows after a practice file has been opened: the options selected, the wind, the
// range and the summary. After these, the variables that the file has set.
std::string practice_of(drill& d, const std::string& file)
{
    startsim_screen& s = d.t.startsim;
    const practice_state& p = d.t.shared;
    d.pc.choose(s.cmdopenset, file);
    std::string text;
    for (const screen_object* o : s.window.objects)
        if (o->kind == object_kind::option && o->Value == 1) text += line({o->parent->Caption, o->Caption});
    text += line({s.Frame6.Caption, s.lblwinddir.Caption, s.Lblwindstr.Caption, s.Lblrangename.Caption});
    for (const screen_object& l : s.lblprac) text += line({l.Caption});
    for (const int n :
         {p.practicemode, int(p.targetauto), int(p.targetblocks), int(p.targettime), int(p.engagementtype),
          int(p.systemstatus), int(p.selfdegrading), p.coaxbursts, p.windbias})
        text += number_text(n) + ' ';
    return text;
}

// The texts and positions of a range file that the range author has opened.
std::string range_of(drill& d, const std::string& file)
{
    rauthor_screen& s = d.t.rauthor;
    const practice_state& p = d.t.shared;
    d.pc.confirm(d.t.startsim.cmdeditrange);
    d.pc.choose(s.Cmdopen, file);
    std::string text = line({s.Textname.Text, s.Lblrangetype.Caption, p.rangepicture.trimmed()}) +
                       line({p.targeticon1, p.targeticon2, p.targeticon3});
    for (int i = 0; i < positions; ++i)
        text += line({number_text(p.targetx[i]), number_text(p.targety[i]), number_text(p.targetrange[i])});
    return text;
}

std::string place_of(const results_screen& s, const screen_object& mark)
{
    return number_text(mark.Left - s.Shape1.Left) + ' ' + number_text(mark.Top - s.Shape1.Top);
}

// Details of the practice and each engagement, the places of the marks for each round, and the report.
std::string record_of(drill& d, const std::string& file)
{
    results_screen& s = d.t.results;
    d.pc.confirm(d.t.startsim.Cmddebrief);
    d.pc.choose(s.Cmdopen, file);
    std::string text = line({s.Txtstudent.Text, s.Txtpractype.Text, s.Txtrngename.Text});
    for (int e = 1; e <= d.t.shared.targetcount; ++e) {
        d.pc.click(s.Lbltgtnumber[e]);
        text += line({s.Lbltargetnum.Caption, s.Lblsystem.Caption, s.Lblammo.Caption,
                      s.lbltargetrange.Caption, s.Lbltarget.Caption, s.Lbltime.Caption, s.Lblrounds.Caption,
                      number_text(s.imgtargetpointer.Left) + ' ' + number_text(s.imgtargetpointer.Top)});
        for (screen_object* round : {&s.Cmdround1, &s.cmdround2, &s.Cmdround3, &s.cmdround4}) {
            if (!round->Visible && round != &s.Cmdround1) continue;
            d.pc.click(*round);
            text += line({"    " + round->Caption, place_of(s, s.Imglaze), place_of(s, s.Imagepoa),
                          place_of(s, s.Imgfos)});
        }
    }
    for (const printed_line& l : report_lines(d.t.shared))
        text += line({number_text(l.size) + (l.bold && l.underline ? " bold" : ""), l.text});
    return text;
}

TEST(records, of_earlier_versions_are_read_and_would_be_written_the_same)
{
    int files = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(VORN_SOURCE_DIR "/tests/records")) {
        const std::string file = entry.path().string(), kind = entry.path().extension().string();
        if (!entry.is_regular_file() || kind == ".txt") continue;
        SCOPED_TRACE(file);
        drill d(sight_kind::visual, VORN_SOURCE_DIR "/data");
        const bool practice = kind == ".prf", range = kind == ".arf";
        d.pc.boxes.clear();
        EXPECT_EQ(practice ? practice_of(d, file)
                  : range  ? range_of(d, file)
                           : record_of(d, file),
                  bytes_of(file + ".txt"));
        for (const message& box : d.pc.boxes) EXPECT_EQ(box.buttons, box_buttons::yes_no) << box.text;
        EXPECT_EQ(practice ? practice_file_bytes(d.t.startsim)
                  : range  ? range_file_bytes(d.t.shared)
                           : results_file_bytes(d.t.shared),
                  bytes_of(file));
        files += 1;
    }
    EXPECT_GE(files, 10);
}

}   // namespace

}   // namespace vorn
