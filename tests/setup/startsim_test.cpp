// The set-up screen: options and what they set, hints, programmed practices, practice files, choice of range.
#include "drill.h"
#include "setup/setup.h"

namespace vorn {
namespace {

struct setup : on_setup {
    data_folder& data = d.data;
    startsim_screen& s = t.startsim;

    texts summary() const
    {
        texts all;
        for (const screen_object& l : s.lblprac) all.push_back(l.Caption);
        return all;
    }
    void open(const std::string& name) { pc.choose(s.cmdopenset, path(name)); }
    void save(const std::string& name) { pc.choose(s.cmdsaveset, path(name)); }
};

// The options of a practice, for comparing two states.
auto settings(const practice_state& p)
{
    return std::tuple(p.practicemode, p.targetauto, int(p.targetblocks), int(p.targettime),
                      int(p.engagementtype), int(p.systemstatus), p.selfdegrading, p.coaxbursts, p.windbias);
}

TEST_F(setup, a_switch_has_two_states)
{
    const struct {
        screen_object &on, &off;
        bool practice_state::*setting;
    } switches[] = {{s.optcontroller1, s.Optcontroller2, &practice_state::fulldebrief},
                    {s.opthesh1, s.Opthesh2, &practice_state::heshcorrectall},
                    {s.Optvoice1, s.Optvoice2, &practice_state::voiceson},
                    {s.Optsound1, s.Opsound2, &practice_state::soundson},
                    {s.Optscreen1, s.Optscreen2, &practice_state::plainscreen},
                    {s.Optcon3, s.Optcon2, &practice_state::mouseselected},
                    {s.Optcon1, s.Optcon3, &practice_state::joyselected},
                    {s.Chkinfo1, s.Chkinfo1, &practice_state::infosystem},
                    {s.Chkinfo2, s.Chkinfo2, &practice_state::infocontrol},
                    {s.chkinfo3, s.chkinfo3, &practice_state::infocrew},
                    {s.Chkgunlight, s.Chkgunlight, &practice_state::gunlight},
                    {s.Chkcoax, s.Chkcoax, &practice_state::coaxlight}};
    for (const auto& w : switches) {
        EXPECT_EQ(p.*w.setting, w.on.Value == 1) << "as shown at the start";
        if (p.*w.setting) pc.click(w.off);
        EXPECT_FALSE(p.*w.setting);
        pc.click(w.on);
        EXPECT_TRUE(p.*w.setting && p.keyboardselected) << w.on.Caption;
        pc.click(w.off);
        EXPECT_FALSE(p.*w.setting) << w.off.Caption;
    }
}

TEST_F(setup, the_engagements_enable_wind_and_bursts)
{
    pc.slide(s.HScrwind, 2);
    pc.click(s.Option4);
    pc.click(s.Opteng3);
    pc.click(s.Option3);
    EXPECT_EQ(p.coaxbursts, 4) << "the frame of Option3 is disabled";
    pc.click(s.Opteng1);
    EXPECT_EQ(s.lblprac[7].Caption, "4 KILL BURSTS ON COAX TARGETS");
    EXPECT_TRUE(s.Frame6.Enabled && s.Frame10.Enabled);
    pc.click(s.Opteng4);
    EXPECT_FALSE(s.Frame6.Enabled || s.Frame10.Enabled);
    pc.slide(s.HScrwind, -3);
    pc.click(s.Opteng2);
    EXPECT_EQ(p.coaxbursts, 2) << "set by the option COAX, without a click on Option2";
    EXPECT_EQ(s.Option2.Value, 1);
    EXPECT_TRUE(s.Frame10.Enabled && !s.Frame6.Enabled);
    EXPECT_EQ(p.windbias, 2);
}

TEST_F(setup, each_option_writes_its_line_of_the_summary)
{
    for (screen_object* o : {&s.Optsys4, &s.Opteng3, &s.Opttargets4, &s.Opttime4, &s.Opttarg2, &s.Optmode2})
        pc.click(*o);
    EXPECT_TRUE(s.Frame6.Enabled && !s.Frame10.Enabled) << "only HESH: wind, but no coax bursts";
    EXPECT_EQ(summary(), (texts{"A DEGRADING ", "NORMAL / REV MODES PRACTICE", "USING ONLY HESH AMMUNITION",
                                "15 TARGETS", "UP FOR 40 SECS", "TARGETS APPEAR ON DEMAND", "THERMAL",
                                "THERE ARE NO COAX TARGETS"}));
    for (screen_object* o :
         {&s.Optsys2, &s.Opteng2, &s.Opttargets1, &s.Opttime1, &s.Opttarg1, &s.Optmode1, &s.Option3})
        pc.click(*o);
    EXPECT_EQ(settings(p), std::tuple(1, true, 2, 500, 2, 2, false, 3, 0));
    EXPECT_EQ(summary(), (texts{"A LAZE ONLY ", "A REV MODES PRACTICE SHOOT", "USING ONLY COAX AMMUNITION",
                                "6 TARGETS", "UP TILL DESTROYED", "TARGETS APPEAR AUTOMATICALLY", "VISUAL",
                                "3 KILL BURSTS ON COAX TARGETS"}));
}

TEST_F(setup, an_option_for_a_number_writes_it_into_its_own_line)
{
    const struct {
        std::size_t line;
        std::vector<screen_object*> options;
        std::function<std::string()> words;   // in the summary, for the number that is set
    } groups[] = {{3,
                   {&s.Opttargets2, &s.Opttargets3, &s.Opttargets4, &s.Opttargets1},
                   [&] { return std::to_string(3 * p.targetblocks) + " TARGETS"; }},
                  {4,
                   {&s.Opttime2, &s.Opttime3, &s.Opttime4},
                   [&] { return "UP FOR " + std::to_string(p.targettime); }},
                  {7, {&s.Option3, &s.Option4, &s.Option2}, [&] {
                       return std::to_string(p.coaxbursts) + " KILL BURST";
                   }}};
    pc.click(s.Opttime1);
    for (const auto& g : groups)
        for (screen_object* o : g.options) {
            texts before = summary(), after;
            pc.click(*o);
            after = summary();
            EXPECT_TRUE(after[g.line].starts_with(g.words())) << after[g.line];
            before[g.line] = after[g.line];
            EXPECT_EQ(after, before) << "the other lines stay";
        }
}

TEST_F(setup, sliders_set_a_value_only_when_they_move)
{
    EXPECT_EQ(s.HSccoax.Value, 200);
    pc.slide(s.HSccoax, 200);
    EXPECT_EQ(p.coaxerror, 20);
    pc.slide(s.HSccoax, 210);
    EXPECT_EQ(p.coaxerror, 210);
    EXPECT_DOUBLE_EQ(p.coaxerrorwide, 140);
    pc.slide(s.HSctgt, 99);
    EXPECT_EQ(p.targetsize, 10);
    pc.slide(s.hsctarget, -1);
    EXPECT_EQ(p.killarea, 4);
    for (const auto& [position, words] : {std::pair{-3, "Left Strong"},
                                          {-1, "Left Mild"},
                                          {0, "None None"},
                                          {1, "Right Mild"},
                                          {2, "Right Fresh"}}) {
        pc.slide(s.HScrwind, position);
        EXPECT_EQ(p.windbias, position);
        EXPECT_EQ(s.lblwinddir.Caption + ' ' + s.Lblwindstr.Caption, words);
    }
}

TEST_F(setup, hints_for_frames_appear_at_once_and_for_buttons_after_a_rest)
{
    pc.event(s.Frame9.MouseMove);
    EXPECT_EQ(s.Lblinfo.Caption, "Selects and displays the range to be used");
    pc.event(s.cmdsaveset.MouseMove);
    pc.wait(1.599);
    EXPECT_FALSE(s.Lblhelp.Visible);
    pc.wait(0.002);
    EXPECT_TRUE(s.Lblhelp.Visible);
    EXPECT_EQ(s.Lblhelp.Caption, "Save current setup");
    EXPECT_DOUBLE_EQ(s.Lblhelp.Width, 80 * (18 + 2));
    expect_at(s.Lblhelp, s.cmdsaveset.Left + 800, s.cmdsaveset.Top + 495, "hint");
    pc.event(s.Cmdexit.MouseMove);
    EXPECT_LE(s.Lblhelp.Left + s.Lblhelp.Width, form_width);
    pc.event(s.window.MouseMove);
    EXPECT_FALSE(s.Lblhelp.Visible || s.Timhelp.Enabled);
    EXPECT_EQ(s.Lblinfo.Caption, s.Lblinfo.design->Caption);
    pc.event(s.cmdgame.MouseMove);
    pc.wait(0.5);
    EXPECT_FALSE(s.Lblhelp.Visible) << "the delay has started again";
    pc.wait(1.5);
    EXPECT_TRUE(s.Lblhelp.Visible);
    pc.event(s.Frame13.MouseMove);
    EXPECT_FALSE(s.Lblhelp.Visible);
}

TEST_F(setup, options_stay_after_a_practice)
{
    pc.click(s.Optcon2);
    pc.click(s.Optcontroller2);
    pc.click(s.Opttargets2);
    pc.event(s.Cmdstart.MouseMove);
    pc.wait(2);
    s.outcome.Caption = "The outcome of the last button";
    pc.confirm(s.Cmdstart);
    EXPECT_EQ(p.targetcount, 9);
    pc.click(t.simulator.Cmdmain);
    EXPECT_EQ(s.outcome.Caption, "");
    EXPECT_FALSE(s.Lblhelp.Visible || s.Timhelp.Enabled) << "the click ended the hint";
    EXPECT_TRUE(p.fulldebrief) << "set by the arrival";
    EXPECT_TRUE(s.Optcontroller2.Value == 1 && s.Opttargets2.Value == 1);
}

// Programmed practices -------------------------------------------------------------------------------------

// The practices are FIN, HESH and COAX on each sight; the same with LAZE ONLY, but without thermal COAX; and
// a mixed practice.
TEST_F(setup, a_programmed_practice_selects_its_options_and_writes_its_summary)
{
    pc.click(s.Optsys4);
    pc.click(s.Opttarg2);
    pc.click(s.Option4);
    for (int n = 1; n <= 12; ++n) {
        SCOPED_TRACE(n);
        pc.click(s.Lblpractice[n]);
        const bool mixed = n == 12, visual = (n - 1) / 3 % 2 == 0 || mixed, laze = n > 6 && !mixed;
        const int type = mixed ? 1 : 4 - (n - 1) % 3, wind = type != 3 ? 0 : visual ? 2 : -2;
        EXPECT_EQ(settings(p),
                  std::tuple(visual ? 1 : 2, true, 3, n < 11 ? 40 : 30, type, laze ? 2 : 1, false, 2, wind));
        static constexpr const char* rounds[] = {"ALL NATURES OF AMMO", "ONLY COAX AMMUNITION",
                                                 "ONLY HESH AMMUNITION", "ONLY FIN AMMUNITION"};
        const std::string coax = mixed       ? "2 KILL BURSTS ON"
                                 : type == 2 ? "2 KILL BURSTS FOR"
                                 : n == 1    ? "YOU WILL RECEIVE NO"
                                             : "THERE WILL BE NO";
        EXPECT_EQ(summary(),
                  (texts{laze ? "A  LAZE ONLY " : "A FULL SYSTEM",
                         laze ? "SPECIAL PRACTICE SHOOT" : "STANDARD PRACTICE SHOOT",
                         std::string("USING ") + rounds[type - 1], mixed ? "NINE TARGETS" : "SIX TARGETS",
                         n <= 2 ? " UP FOR 30 SECS " : "UP FOR 30 SECS ",
                         mixed ? "TARGETS APPEAR AUTOMATICALLY" : "ALL TARGETS APPEAR AUTOMATICALLY",
                         visual ? "VISUAL PRACTICE" : "THERMAL PRACTICE", coax + " COAX TARGETS"}));
        EXPECT_EQ(p.practicenumber, n);
        for (int other = 1; other <= 12; ++other) {
            EXPECT_EQ(s.Lblpractice[other].ForeColor == colour::red, other == n);
            EXPECT_EQ(s.Lblpractice[other].bold, other == n);
        }
    }
    pc.click(s.Opttime2);
    EXPECT_EQ(s.lblprac[4].Caption, "UP FOR 20 SECS");
    EXPECT_EQ(s.Lblpractice[12].ForeColor, colour::red) << "stays marked when an option changes";
}

// Practice files -------------------------------------------------------------------------------------------

TEST_F(setup, a_practice_file_is_saved_with_a_word_below)
{
    save("own.prf");
    EXPECT_EQ(data.get("own.prf"), practice_file_bytes(s));
    const file_dialog& d = pc.dialogs.back();
    EXPECT_EQ(d.title + d.filter, "SAVE PRACTICE SETUPPractice Files (*.prf)|*.prf|");
    EXPECT_TRUE(d.save && d.folder == p.rootpath);
    EXPECT_TRUE(s.outcome.Caption.ends_with("own.prf is saved"));
    EXPECT_EQ(s.practicefile, path("own.prf"));
    open("other.prf");
    EXPECT_EQ(s.practicefile, path("other.prf")) << "the file chosen last";
    save("no such folder/own.prf");
    EXPECT_EQ(s.outcome.Caption, "");
}

TEST_F(setup, a_practice_file_applies_as_far_as_it_can_be_read)
{
    save("whole.prf");
    const std::string bytes = data.get("whole.prf");
    pc.click(s.Opttarg2);
    pc.click(s.Optsys3);
    pc.click(s.Opttime4);
    data.put("cut.prf", first_lines(bytes, 24));
    open("cut.prf");
    EXPECT_EQ(settings(p), std::tuple(1, true, 2, 30, 1, 1, false, 2, 0));
    EXPECT_EQ(s.lblprac[5].Caption, "TARGETS APPEAR AUTOMATICALLY");
    EXPECT_EQ(s.lblprac[4].Caption, "UP FOR 30 SECS ") << "the option has written it";

    const std::string last = s.lblprac[7].Caption;
    data.put("words.prf", std::string(bytes).replace(bytes.rfind(last), last.size(), "OWN WORDS"));
    open("words.prf");
    EXPECT_EQ(s.lblprac[7].Caption, "OWN WORDS");
    pc.click(s.Opttarg2);
    data.put("wrong.prf", first_lines(bytes, 1) + "TRUE\r\n" + bytes.substr(first_lines(bytes, 2).size()));
    open("wrong.prf");
    EXPECT_FALSE(p.targetauto) << "not read: it follows a wrong item";
    for (const char* beyond : {"4\r\n", "-4\r\n"}) {
        pc.click(s.Opttarg2);
        pc.click(s.Optsys3);
        data.put("wind.prf", first_lines(bytes, 7) + beyond + "#TRUE#\r\n");
        open("wind.prf");
        EXPECT_TRUE(p.targetauto);
        EXPECT_EQ(p.windbias, 0);
        EXPECT_EQ(p.systemstatus, 3) << "not read: it follows a wind out of bounds";
    }
    data.put("wind.prf", first_lines(bytes, 7) + "3\r\n" + "#TRUE#\r\n");
    open("wind.prf");
    EXPECT_EQ(p.windbias, 3) << "the end of the slider";
}

TEST_F(setup, a_cancelled_dialog_or_a_wrong_file_changes_nothing)
{
    const auto was = settings(p);
    const auto words = summary();
    const std::size_t boxes = pc.boxes.size();
    for (screen_object* o : {&s.cmdopenset, &s.cmdsaveset}) {
        s.outcome.Caption = "The outcome of the last button";
        pc.click(*o);   // cancelled
        EXPECT_EQ(s.outcome.Caption, "");
    }
    data.put("bad.prf", "TRUE\r\n");
    for (const char* name : {"bad.prf", "none.prf", "target icons"}) open(name);
    save("no such folder/own.prf");
    EXPECT_EQ(settings(p), was);
    EXPECT_EQ(summary(), words);
    EXPECT_EQ(pc.boxes.size(), boxes);
    data.put("none.prf", "#FALSE#\r\n#FALSE#\r\n");
    open("none.prf");
    EXPECT_EQ(s.Optmode1.Value + s.Optmode2.Value, 0);
    EXPECT_EQ(settings(p), was) << "clearing an option runs no action";
}

// The range ------------------------------------------------------------------------------------------------

TEST_F(setup, an_opened_range_decides_the_mode_until_it_is_cancelled)
{
    pc.choose(s.Cmdopenrange, path("Thermalrange.arf"));
    EXPECT_EQ(p.practicemode, 2);
    EXPECT_EQ(s.Lblrangename.Caption, "PLAIN THERMAL       ");
    EXPECT_EQ(s.Optmode1.Value, 1);
    EXPECT_EQ(s.lblprac[6].Caption, "VISUAL PRACTICE");
    pc.click(s.Optmode2);
    EXPECT_EQ(s.Optmode1.Value, 1) << "the frame of the mode is disabled";
    pc.click(s.Lblpractice[1]);
    EXPECT_EQ(p.practicemode, 2) << "the mode is selected already, so the range stays";
    EXPECT_FALSE(s.Frmmode.Enabled);
    pc.click(s.Command3);
    EXPECT_TRUE(s.Frmmode.Enabled);
    EXPECT_EQ(p.practicemode, 2) << "Visual is selected already";
    pc.click(s.Optmode2);
    pc.click(s.Command3);
    EXPECT_EQ(p.practicemode, 1);
    EXPECT_EQ(s.lblrangetype.Caption, "VISUAL");
    for (const char* type : {"Visual", "thermal"}) {
        practice_state r = plain_range(sight_kind::thermal);
        r.rangetype = type;
        data.put_range("own.arf", r);
        pc.choose(s.Cmdopenrange, path("own.arf"));
        EXPECT_EQ(p.practicemode, 1);
        EXPECT_EQ(s.lblrangetype.Caption, type);
    }
}

TEST_F(setup, asks_for_another_range_until_one_can_be_read)
{
    data.remove("Thermalrange.arf");
    data.put("two.arf", "\"NAME\"\r\n\"picture\"\r\n");
    pc.answers = {{true}, {true}, {true}};
    pc.files = {path("target icons"), path("two.arf"), path("visualrange.arf")};
    pc.click(s.Optmode2);
    EXPECT_EQ(
        d.last_box(),
        "V.O.R N.\n\r                   \n\rCANT FIND CORRECT RANGE FILE DO YOU WISH TO LOCATE ONE ?\n\r"
        "(Selecting NO will terminate VORN)");
    EXPECT_EQ(p.rangefile, path("visualrange.arf"));
    EXPECT_EQ(p.practicemode, 1);
    EXPECT_FALSE(s.Frmmode.Enabled) << "the type of the range decides the mode";
    pc.click(s.Command3);
    pc.confirm(s.Optmode2);   // cancelled
    EXPECT_EQ(p.practicemode, 2);
    EXPECT_EQ(s.lblrangetype.Caption, "VISUAL") << "the labels stay";
    EXPECT_FALSE(pc.ended);
    data.remove("visualrange.arf");
    pc.confirm(s.Optmode1);   // cancelled
    EXPECT_EQ(p.practicemode, 1);
    pc.click(s.Optmode2);   // the question answered no
    EXPECT_TRUE(pc.ended);
}

}   // namespace
}   // namespace vorn
