// The debrief screen after a practice and with records from files, and the practice report.
#include "debrief/report.h"
#include "debrief/resultsfile.h"
#include "drill.h"

namespace vorn {
namespace {

// Two rounds at the first target, 385 twips wide at 1100 metres on the visual sight: one falls 300 twips
// right of the target's left edge and misses, the other hits. The second target is not fired at.
struct debrief : on_setup {
    gunnery_screen& sim = t.simulator;
    results_screen& s = t.results;

    debrief()
    {
        p.engagementtype = 4;
        p.killarea = 4;
        p.targettime = 20;
        pc.type(t.startsim.Txtname, "SMITH");
        d.present(6);
        d.tap('E');
        pc.wait(5);
        d.random(0.5);
        shoot(300, 100);
        pc.wait(3.1);
        shoot(200, 150);
        EXPECT_TRUE(sim.targethit);
        pc.wait(1 + 5 + 1);   // the target goes down, the next order comes
        d.random(draw_of(6));
        pc.wait(21);
        EXPECT_EQ(p.rechit[2], "NO");
        pc.confirm(sim.Cmdstopsim);
    }
    // Fires a round that falls at this offset from the target's upper left corner. The target is moved: FIN
    // falls 64 twips right of the aim point and 560 below (550 at 1100 metres, rounded up to steps of 20).
    void shoot(double across, double down)
    {
        d.target_at(4589 - across, 1700 - down);
        d.tap('A');
        d.tap('D');
    }
    // Opens a record. Returns false if a box reports a failure.
    bool open(const char* name)
    {
        pc.boxes.clear();
        pc.choose(s.Cmdopen, path(name));
        if (pc.boxes.empty()) return true;
        EXPECT_TRUE(pc.boxes.size() == 1 && d.last_box() == "THAT FILE COULD NOT BE OPENED");
        return false;
    }
    void save(const char* name) { pc.choose(s.Cmdsave, path(name)); }
    bool open(const practice_state& record)
    {
        d.data.put("other.vrn", results_file_bytes(record));
        return open("other.vrn");
    }
};

TEST_F(debrief, yes_at_the_end_of_a_practice_shows_its_record)
{
    EXPECT_EQ(shown_screens(pc), "results");
    EXPECT_EQ(s.Txtstudent.Text, "SMITH_000                     ");
    EXPECT_EQ(s.Txtpractype.Text + ' ' + s.Txtrngename.Text, "VISUAL PLAIN               ");
    EXPECT_EQ(
        s.Lblsystem.Caption + ' ' + s.Lblammo.Caption + ' ' + s.Lblrounds.Caption + ' ' + s.Lbltarget.Caption,
        "FULL FIN 2 YES");
    EXPECT_EQ(s.Lbltargetnum.Caption + ' ' + s.lbltargetrange.Caption, "1 1100");
    EXPECT_EQ(s.Lbltime.Caption, std::to_string(p.rectime[1]));
    EXPECT_EQ(s.Imgtargetdetails.Picture, sim.Imgtargetfin.Picture);
    EXPECT_EQ(s.Imgtgtnumber[1].Picture, s.Imgfin.Picture);
    EXPECT_TRUE(s.Imghesh.Picture == sim.Imgtargethesh.Picture &&
                s.Imgcoax.Picture == sim.Imgtargetcoax.Picture);
    EXPECT_EQ(sim.lblcrew.Caption, "");
    EXPECT_TRUE(s.Lbltgtnumber[1].bold && !s.Lbltgtnumber[2].bold && !s.Frmtherm.Visible);
    EXPECT_EQ(s.Lbltgtnumber[1].ForeColor, colour::red);
    EXPECT_FALSE(s.Imagepoa.Pale || s.Imgfos.Pale || s.Imglaze.Pale);
}

TEST_F(debrief, marks_the_aim_and_fall_of_each_round)
{
    expect_at(s.Imgreptarget, 2040, 1560, "centre");
    // Twips. Scale: 1695 / 385, rounded 4. Kill box margin: 385 / 4, at this scale 385. Marks: 480 wide.
    expect_at(s.killbox, 2040 + 240 + 385, 1560 + 240 + 385, "kill box");
    EXPECT_TRUE(s.killbox.Width == 770 && s.killbox.Height == 770);
    EXPECT_GT(s.Imgfos.Left + 240, s.killbox.Left + s.killbox.Width) << "the miss lies outside";
    EXPECT_TRUE(s.Cmdround1.bold && !s.cmdround2.bold && s.Cmdround1.ForeColor == colour::live);
    EXPECT_EQ(s.Cmdround1.AccessibleName + '/' + s.cmdround2.AccessibleName, "On view, round/Round");
    pc.click(s.cmdround2);
    EXPECT_LT(s.Imgfos.Left + 240, s.killbox.Left + s.killbox.Width) << "the hit lies inside";
    EXPECT_TRUE(s.cmdround2.bold && !s.Cmdround1.bold);
    expect_at(s.Imgthermtarget, s.Imgbam.Left + 56, s.Imgbam.Top - 602, "thermal target");
    EXPECT_FALSE(s.Imgthermtarget.Pale);
    p.recfallx[1][2] = p.recfally[1][2] = 0;   // as left by an auto-repeat during a coax burst
    pc.click(s.cmdround2);
    EXPECT_TRUE(s.Imgfos.Pale && !s.Imagepoa.Pale);
    p.recaimx[1][4] = p.recfallx[1][4] = 44;   // as left from an earlier practice
    pc.click(s.Lbltgtnumber[1]);
    EXPECT_TRUE(s.cmdround4.ForeColor == colour::dim && s.cmdround2.ForeColor == colour::text);
    EXPECT_EQ(s.cmdround4.AccessibleName, "Not fired, round");
    pc.click(s.cmdround4);
    EXPECT_TRUE(s.Imgfos.Pale && s.Imagepoa.Pale) << "two rounds were fired";
    p.recrounds[1] = 3;   // 3 means three or more
    pc.click(s.cmdround4);
    EXPECT_FALSE(s.Imgfos.Pale || s.Imagepoa.Pale);
    pc.click(s.Lbltgtnumber[2]);
    EXPECT_TRUE(s.Imgthermtarget.Pale);
    EXPECT_EQ(s.Lbltarget.Caption + s.Lbltime.Caption, "NO100");
    expect_at(s.Imgfos, 2040, 1560, "nothing was fired");
    EXPECT_TRUE(s.Imagepoa.Pale && s.Imgfos.Pale && s.Imglaze.Pale);
    EXPECT_FALSE(s.Cmdround1.Visible);
}

TEST_F(debrief, a_saved_record_is_the_same_when_opened_after_another)
{
    save("SMITH_.vrn");
    EXPECT_EQ(pc.dialogs.back().proposed, "SMITH_.vrn");
    const file_dialog& dialog = pc.dialogs.back();
    EXPECT_EQ(dialog.title + dialog.filter, "SAVEVORN Files (*.vrn)|*.vrn|");
    EXPECT_TRUE(dialog.save && !dialog.picture && dialog.suffix == "vrn" && dialog.folder == d.data.ranges());
    const std::string bytes = d.data.get("SMITH_.vrn");
    practice_state other;
    other.studentdetails = "JONES_007";
    other.resultpicture = "visualrange.vrp";
    other.rectime[1] = 100;
    open(other);
    EXPECT_EQ(s.Txtstudent.Text.substr(0, 9) + s.Lbltarget.Caption, "JONES_007");
    open("SMITH_.vrn");
    EXPECT_EQ(results_file_bytes(p), bytes);
    expect_at(s.Imgfos, 2040 + 4 * 300, 1560 + 4 * 100, "fall of round 1");
    pc.log.clear();
    pc.confirm(s.Cmdprint);
    EXPECT_EQ(pc.of_kind("printed").size(), 15U + 6 * 6);
}

TEST_F(debrief, the_record_decides_which_marks_are_visible)
{
    practice_state r;
    r.targetcount = 15;
    r.resultpicture = "visualrange.vrp";
    r.resultmode = "THERMAL";
    for (const int e : {1, 2, 3, 4, 5, 6, 7, 8, 9, 15}) {
        r.rectime[e] = 10;
        r.recwidth[e] = 160;
        r.recsystem[e] = "FULL";
        r.recammo[e] = "FIN";
    }
    r.recrange[1] = 2200;
    r.recrange[2] = 2201;
    r.recsystem[3] = "TLS ONLY";
    r.recwidth[4] = 0;
    r.recaimx[4][2] = 5;
    r.recaimx[5] = {0, 1, 2, 0, 4};
    r.recsystem[6] = r.recsystem[7] = r.recsystem[8] = "LAZE ONLY";
    r.recammo[7] = "COAX";
    r.recammo[8] = "DST";
    r.rectime[9] = 0;
    r.reclazey[15] = 5;
    r.rectime[15] = 1;
    open(r);
    EXPECT_TRUE(s.Frmtherm.Visible && s.Imagepoa.Visible && !s.Lbltargetvis.Visible);
    EXPECT_EQ(s.markerscale, 11);
    EXPECT_TRUE(s.killbox.Visible && s.killbox.Top == 1560 + 240)
        << "a thermal target has no margin at the top";
    const auto view = [&](int e) { pc.click(s.Lbltgtnumber[e]); };
    view(2);
    EXPECT_TRUE(!s.Imagepoa.Visible && s.Lbltargetvis.Visible);
    view(3);
    EXPECT_FALSE(s.Frame1.Visible);
    view(4);
    EXPECT_TRUE(s.Frame1.Visible);
    for (const screen_object* o : {&s.Imgfos, &s.killbox, &s.Imglaze, &s.Imagepoa, &s.Imgreptarget})
        EXPECT_FALSE(o->Visible) << "width 0: not measured";
    view(5);
    EXPECT_TRUE(s.cmdround2.Visible && !s.Cmdround3.Visible && s.cmdround4.Visible);
    for (const auto& [e, mark] :
         {std::pair{1, &s.Imgbam}, {6, &s.Imgrevfin}, {7, &s.Imgrevhesh}, {8, nullptr}}) {
        view(e);
        for (const screen_object* o : {&s.Imgbam, &s.Imgrevfin, &s.Imgrevhesh})
            EXPECT_EQ(o->Visible, o == mark) << e;
    }
    view(9);
    EXPECT_EQ(d.last_box(), "YOU DID NOT FIRE THIS ROUND ");
    EXPECT_EQ(s.Lbltgtnumber[8].ForeColor, colour::red) << "the display stays";
    EXPECT_TRUE(s.Imglaze.Pale);
    view(15);
    EXPECT_FALSE(s.Imglaze.Pale);
    EXPECT_TRUE(s.Lbltgtnumber[15].bold && s.Imgtgtnumber[15].Picture == s.Imgfin.Picture);
    view(3);
    EXPECT_FALSE(s.Lbltgtnumber[15].bold);
    p.rectime[1] = 0;
    pc.click(s.cmdnew);
    pc.confirm(t.startsim.Cmddebrief);
    EXPECT_TRUE(s.Frame1.Visible) << "shown at each arrival until an engagement is selected";
}

TEST_F(debrief, reports_what_it_cannot_open_save_or_delete)
{
    const std::string before = results_file_bytes(p);
    for (const auto& [button, words] : {std::pair{&s.Cmdopen, "THAT FILE COULD NOT BE OPENED"},
                                        {&s.Cmdsave, "THERE WAS A SERIOUS ERROR SAVING THAT FILE"},
                                        {&s.Cmdprint, "DO YOU WISH TO PRINT A RECORD OF SMITH_.vrn"},
                                        {&s.Cmddelete, "ARE YOU SURE YOU WISH TO DELETE SMITH_.vrn"}}) {
        s.outcome.Caption = "The outcome of the last button";
        pc.click(*button);   // cancelled, or answered no
        EXPECT_EQ(d.last_box() + s.outcome.Caption, words);
    }
    EXPECT_EQ(p.resultsfile, "SMITH_.vrn") << "the proposed name";
    EXPECT_EQ(results_file_bytes(p), before) << "unchanged";
    save("no such folder/own.vrn");
    EXPECT_EQ(d.last_box(), "THERE WAS A SERIOUS ERROR SAVING THAT FILE");
    EXPECT_EQ(s.outcome.Caption, "");
    pc.click(s.Cmdsave);   // resultsfile is the proposed name again
    d.data.put("smith_.vrn", "another's");
    // A name in different case is another file, unless the file system ignores case.
    const bool another = d.data.get("SMITH_.vrn").empty();
    pc.confirm(s.Cmddelete);
    EXPECT_EQ(d.last_box().find("COULD NOT BE DELETED") != std::string::npos, another);
    EXPECT_EQ(!d.data.get("smith_.vrn").empty(), another);
    for (const auto& [count, whole] : {std::pair{"0", true}, {"15", true}, {"16", false}, {"-1", false}}) {
        const std::string head = first_lines(before, 1);
        d.data.put("own.vrn", head + count + before.substr(before.find("\r\n", head.size())));
        EXPECT_EQ(open("own.vrn"), whole) << count;
        EXPECT_EQ(p.targetcount, std::stoi(whole ? count : "15"));
        if (p.targetcount < 15) continue;
        pc.click(s.Lbltgtnumber[15]);
        EXPECT_EQ(d.last_box(), "YOU DID NOT FIRE THIS ROUND ");
    }
    EXPECT_FALSE(open("none.vrn"));
    for (const int lines : {100, 480}) {   // cut among the values of engagements, then among those of rounds
        d.data.put("own.vrn", first_lines(before, lines));
        EXPECT_FALSE(open("own.vrn")) << lines << " of 520 lines";
    }
    EXPECT_TRUE(s.Cmdopen.Enabled);
}

// A record whose picture or icon is missing is shown without it, but reported as not opened. A record that
// names no picture opens.
TEST_F(debrief, never_shows_a_record_with_the_pictures_of_another)
{
    save("own.vrn");
    practice_state r;
    r.targetcount = 6;
    r.rectime[1] = 100;
    r.rectarget[1] = 7;
    r.resultmode = r.recsystem[1] = r.recammo[1] = r.rechit[1] = std::string(99, 'w');
    for (const auto& [picture, icon, opens] :
         {std::tuple<std::string, std::string, bool>{"no such picture.vrp", "target3.ico", false},
          {"", "target3.ico", true},
          {"visualrange.vrp", "none.ico", false}}) {
        SCOPED_TRACE(picture + ' ' + icon);
        open("own.vrn");
        ASSERT_TRUE(s.imgtargetpointer.Visible && s.Imghesh.Picture.width > 0);
        r.resultpicture = picture;
        r.resulticon2 = "/target icons/" + icon;
        EXPECT_EQ(open(r), opens);
        EXPECT_EQ(p.rectarget[1], 7) << "the record has been read";
        const bool strip = picture == "visualrange.vrp";
        EXPECT_EQ(s.Imgrange.Picture.width > 0, strip);
        EXPECT_EQ(s.overviewscalex, strip ? 4 : 3);
        EXPECT_EQ(s.imgtargetpointer.Visible, strip) << "the pointer needs the picture";
        EXPECT_TRUE(icon == "none.ico" ? s.Imghesh.Picture == s.Imghesh.design->Picture
                                       : s.Imghesh.Picture.source.ends_with(icon));
        EXPECT_EQ(s.Txtpractype.Text.size(), 60U);
        for (const screen_object* o : {&s.Lblsystem, &s.Lblammo, &s.Lbltarget})
            EXPECT_EQ(o->Caption.size(), 20U) << "long texts are cut";
    }
    r.resulticon2 = "/target icons/target3.ico";
    for (const int targets : {1, 0}) {
        r.targetcount = targets;
        open(r);
        EXPECT_TRUE(s.imgtargetpointer.Visible);
        pc.event(s.window.arrival);
        EXPECT_EQ(s.imgtargetpointer.Visible, targets > 0) << "there is no engagement to show";
    }
    r.targetcount = 6;
    for (const auto& [width, height, pointer] : {std::tuple{1003U, 200U, true}, {400U, 200U, false}}) {
        d.data.put("small.vrp", picture_head(width, height));
        r.resultpicture = "small.vrp";
        open(r);
        EXPECT_EQ(s.imgtargetpointer.Visible, pointer) << "a scale of 0 gives the pointer no place";
    }
}

TEST_F(debrief, print_and_delete_need_a_file_and_a_confirmation)
{
    pc.click(s.Cmdprint);
    EXPECT_EQ(d.last_box(), "NO FILE IS OPEN TO PRINT");
    pc.click(s.Cmddelete);
    EXPECT_EQ(d.last_box(), "NO FILE IS OPEN TO DELETE");
    save("own.vrn");
    EXPECT_EQ(s.outcome.Caption, path("own.vrn") + " is saved");
    pc.answers = {{true}};
    pc.click(s.Cmdprint);
    EXPECT_EQ(s.outcome.Caption, "The report is printed");
    pc.log.clear();
    pc.click(s.Cmdprint);
    EXPECT_EQ(s.outcome.Caption, "");
    EXPECT_EQ(pc.boxes.back().on_return, default_button::yes);
    EXPECT_EQ(d.last_box(), "DO YOU WISH TO PRINT A RECORD OF " + path("own.vrn"));
    pc.click(s.Cmddelete);
    EXPECT_EQ(d.last_box(), "ARE YOU SURE YOU WISH TO DELETE " + path("own.vrn"));
    EXPECT_EQ(pc.boxes.back().on_return, default_button::no);
    EXPECT_TRUE(pc.of_kind("printed").empty() && d.data.get("own.vrn") != "");
    pc.printer = false;
    pc.confirm(s.Cmdprint);
    EXPECT_NE(d.last_box().find("There is no printer."), std::string::npos);
    pc.confirm(s.Cmddelete);
    EXPECT_EQ(d.data.get("own.vrn") + p.resultsfile + s.Txtstudent.Text, "");
    EXPECT_EQ(s.outcome.Caption, path("own.vrn") + " is deleted");
    EXPECT_EQ(s.Lbltarget.Caption, "YES") << "the rest of the screen stays";
}

TEST_F(debrief, leads_to_a_replay_or_a_new_practice)
{
    pc.event(s.Cmdreplay.MouseMove);
    pc.wait(2);
    EXPECT_TRUE(s.lblhelp.Visible && s.lblhelp.Top == s.Cmdreplay.Top + 350);
    pc.event(s.Imgrange.MouseMove);
    EXPECT_FALSE(s.lblhelp.Visible);
    pc.click(s.Cmdreplay);
    EXPECT_EQ(shown_screens(pc), "simulator");
    pc.click(sim.Cmdstartsim);
    pc.wait(9);
    s.outcome.Caption = "The outcome of the last button";
    pc.confirm(sim.Cmdstopsim);
    EXPECT_EQ(shown_screens(pc) + s.outcome.Caption, "results");
    pc.click(s.cmdnew);
    EXPECT_EQ(shown_screens(pc), "startsim");
    pc.click(t.startsim.Cmddebrief);   // the question answered no
    EXPECT_EQ(shown_screens(pc), "startsim");
}

using debrief_alone = on_setup;

TEST_F(debrief_alone, without_a_practice_cannot_replay)
{
    results_screen& s = t.results;
    pc.confirm(t.startsim.Cmddebrief);
    pc.wait(1);
    EXPECT_EQ(shown_screens(pc), "results");
    pc.click(s.cmdnew);
    pc.confirm(t.startsim.Cmddebrief);
    EXPECT_FALSE(s.Cmdreplay.Enabled);
    EXPECT_EQ(s.Lblsystem.Caption, "") << "no practice to show";
}

// The report -----------------------------------------------------------------------------------------------

struct fired {
    const char *system, *ammo, *hit;
    int time;
};

practice_state practice_of(const std::vector<fired>& engagements)
{
    practice_state p;
    p.studentdetails = "Trooper_24";
    p.targetcount = static_cast<int>(engagements.size());
    int e = 1;
    for (const fired& f : engagements) {
        p.rectarget[e] = f.time > 0 ? e : 0;
        p.recsystem[e] = f.system;
        p.recammo[e] = f.ammo;
        p.rechit[e] = f.hit;
        p.rectime[e] = f.time;
        e += 1;
    }
    // Rows of an earlier, longer practice.
    for (; e < engagement_rows; ++e) {
        p.rechit[e] = "YES";
        p.rectime[e] = 5;
    }
    return p;
}

// The last three lines of the report: hits, average and score.
texts summary_of(const practice_state& p)
{
    texts last;
    for (const printed_line& l : report_lines(p)) last.push_back(l.text);
    return {last.end() - 3, last.end()};
}

TEST(report, sums_up_hits_average_and_score)
{
    const fired ten_seconds{"FULL", "COAX", "YES", 10};
    const struct {
        practice_state practice;
        const char *hits, *average, *score;
    } cases[] = {
        {practice_of(std::vector<fired>(6, ten_seconds)), "6 OUT OF 6", "10", "360"},
        {practice_of({{"FULL", "FIN", "YES", 20}, {"FULL", "FIN", "YES", 30}, {"FULL", "FIN", "YES", 24}}),
         "3 OUT OF 3", "24.6666666666667", "36.4864864864865"},
        {practice_of({{"FULL", "", "NO", 100}, {"FULL", "FIN", "yes", 8}}), " OUT OF 2", "54", "0"},
        {practice_of({{"FULL", "", "", 0}, {"FULL", "FIN", "YES", 8}}), "1 OUT OF 2", "4", "50"},
        {practice_of({{"FULL", "", "", 0}, {"", "", "YES", 0}}), "1 OUT OF 2", "0", "0"},
        {practice_of({}), " OUT OF 0", "0", "0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(summary_of(c.practice), (texts{"NUMBER OF HITS............." + std::string(c.hits),
                                                 "AVERAGE TIME..............." + std::string(c.average),
                                                 "SCORE......................" + std::string(c.score)}));
}

TEST(report, the_text_file_labels_the_number_of_an_engagement_differently)
{
    const data_folder data;
    headless_machine pc;
    pc.working_directory = from_utf8(data.ranges());
    data.put("printtest.txt", std::string(9000, 'x'));
    const practice_state two = practice_of({{"FULL", "FIN", "YES", 12}, {"LAZE ONLY", "DST", "NO", 100}});
    ASSERT_EQ(write_text_report(pc, two), "");
    std::string expected;
    for (const printed_line& l : report_lines(two)) {
        const bool number = l.text.find("TARGET NUMBER") == 0;
        expected += (number ? "ENGAGEMENT NUMBER.........." + l.text.substr(27) : l.text) + "\r\n";
    }
    EXPECT_EQ(data.get("printtest.txt"), expected);
    data.remove("printtest.txt");
    std::filesystem::create_directory(from_utf8(data.path("printtest.txt")));
    EXPECT_NE(write_text_report(pc, two), "") << "printtest.txt is a folder";
}

}   // namespace
}   // namespace vorn
