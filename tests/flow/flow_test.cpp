// From the first box to a gunnery screen and back, and the messages when something is missing.
#include "drill.h"

namespace vorn {
namespace {

struct program : testing::Test {
    data_folder data;
    headless_machine pc;
    trainer t{pc};

    void begin(const std::string& directory)
    {
        pc.default_directory = directory;
        pc.event([this] { start_program(t); });
    }
};

using from_the_set_up = on_setup;

TEST_F(program, starts_with_a_box_and_the_title_screen)
{
    begin(data.program());
    EXPECT_EQ(
        pc.boxes.back().text,
        "MOBILE TURRET DRILL CONSOLE \n\r                         by\n\r                    H N VARLEY");
    EXPECT_EQ(pc.boxes.back().title, "V. O. R. N.");
    EXPECT_EQ(shown_screens(pc), "intro");
    EXPECT_EQ(t.startsim.window.state, form_state::hidden);
    EXPECT_EQ(t.results.window.state, form_state::hidden);
    EXPECT_EQ(t.shared.rootpath, data.ranges());
    EXPECT_EQ(t.shared.rangefile, "Visualrange.arf");
    EXPECT_EQ(t.shared.targeticon1, "target icons\\target1.ico");
    pc.click(t.intro.lblabout);
    EXPECT_TRUE(t.intro.Lblabout1.Visible);
    pc.click(t.intro.lblabout);
    EXPECT_FALSE(t.intro.Lblabout1.Visible);
    for (const auto& leave : {t.intro.window.MouseLeave, t.intro.lblexit.MouseMove, t.intro.Image1.MouseMove,
                              t.intro.window.arrival}) {
        pc.event(t.intro.lblhelp.MouseMove);
        EXPECT_EQ(t.intro.lblhelp.ForeColor, colour::highlight);
        pc.event(leave);
        EXPECT_EQ(t.intro.lblhelp.ForeColor, colour::text);
    }
    pc.click(t.intro.lblhelp);
    EXPECT_EQ(pc.of_kind("help"), texts{data.path("vorn.HLP")});
}

TEST_F(program, takes_the_directory_of_a_file_that_the_user_chooses)
{
    const std::string nested = data.path("ranges");
    std::filesystem::create_directory(from_utf8(nested));
    for (const auto& [chosen, rootpath] : {std::pair{data.program() + "/anything.txt", data.ranges()},
                                           {data.ranges() + "/visualrange.arf", data.ranges()},
                                           {data.ranges() + "/visualrange.arf", nested}}) {
        if (rootpath == nested) data.put("ranges/vorn.HLP", "a manual");
        headless_machine m;
        trainer u(m);
        m.default_directory = data.program() + "/none";
        m.answers = {{true}, {true}};
        m.files = {chosen};
        m.event([&] { start_program(u); });
        EXPECT_EQ(u.shared.rootpath, rootpath);
        m.click(u.intro.lblstart);
        EXPECT_EQ(m.boxes.size(), rootpath == nested ? 3U : 2U) << "one box more if there is no range";
        EXPECT_EQ(native(m.default_directory + "/ranges"), rootpath) << "the user is asked only once";
    }
}

TEST_F(program, without_its_directory_reports_the_folder_of_the_ranges)
{
    pc.answers = {{true}, {true}};
    begin("/none");
    EXPECT_EQ(pc.dialogs.size(), 1U) << "the dialog was cancelled";
    EXPECT_EQ(t.shared.rootpath, "");
    pc.click(t.intro.lblexit);   // the question is answered No, since the test gives no answer
    EXPECT_FALSE(pc.ended);
    const std::size_t boxes = pc.boxes.size();
    pc.answers = {{true}, {true}};
    pc.click(t.intro.lblstart);
    EXPECT_EQ(pc.boxes[boxes].text.substr(0, 40), "THE FOLDER OF THE RANGES CAN'T BE OPENED");
}

TEST_F(program, ends_when_the_user_declines_to_look_for_the_directory)
{
    pc.answers = {{true}, {false}};
    begin("/none");
    EXPECT_TRUE(pc.ended);
    EXPECT_TRUE(pc.dialogs.empty());
}

TEST_F(from_the_set_up, help_and_exit_are_on_each_screen)
{
    const auto look = [&](screen_object& help, screen_object& exit, const char* heading, const char* title) {
        SCOPED_TRACE(shown_screens(pc));
        pc.log.clear();
        pc.click(help);
        pc.click(exit);   // answered no
        EXPECT_EQ(pc.of_kind("help").size(), 1U);
        EXPECT_EQ(d.last_box(),
                  std::string(heading) + "\n\r                   \n\rARE YOU SURE YOU WANT TO EXIT ?");
        const message& box = pc.boxes.back();
        EXPECT_EQ(box.title, title);
        EXPECT_TRUE(box.on_return == default_button::no && box.sign == box_sign::question && !pc.ended);
    };
    look(t.startsim.Cmdhelpon, t.startsim.Cmdexit, "V.O.R N.", "V.O.R.N.");
    pc.click(t.startsim.Cmdabout);
    EXPECT_TRUE(t.startsim.Image1.Visible);
    pc.confirm(t.startsim.cmdeditrange);
    look(t.rauthor.Command1, t.rauthor.Cmdexit, "V. O. R. N. ", "SIMULATOR");
    pc.click(t.rauthor.Cmdstart);
    pc.confirm(t.startsim.Cmdstart);
    look(t.simulator.Cmdhelpon, t.simulator.CMDEXIT, "V. O. R. N. ", "SIMULATOR");
    pc.click(t.simulator.Cmdmain);
    pc.confirm(t.startsim.Cmddebrief);
    look(t.results.Cmdhelpon, t.results.Cmdexit, "V. O. R. N. ", "V. O. R. N.");
    pc.click(t.results.cmdnew);
    pc.click(t.startsim.Command3);
    pc.click(t.startsim.Optmode2);
    pc.confirm(t.startsim.Cmdstart);
    look(t.thermal.Cmdhelpon, t.thermal.CMDEXIT, "GUNNERY SIMULATOR", "SIMULATOR");
    pc.answers = {{true}};
    pc.close_window(t.thermal.window);
    EXPECT_TRUE(pc.ended);
}

TEST_F(program, an_uncalibrated_joystick_prevents_a_start_and_a_quick_start)
{
    begin(data.program());
    pc.click(t.intro.lblstart);
    pc.confirm(t.startsim.Cmdstart);
    EXPECT_EQ(pc.boxes.back().text,
              "YOU NEED TO EITHER SELECT A DIFFERENT CONTROL METHOD OR CALIBRATE YOUR CONTROLLER FIRST");
    pc.click(t.startsim.cmdgame);
    EXPECT_EQ(shown_screens(pc), "startsim");
    EXPECT_FALSE(t.shared.quickstart);
    pc.click(t.startsim.Optcon2);
    pc.click(t.startsim.Cmdstart);   // the question answered no
    EXPECT_EQ(shown_screens(pc), "startsim");
    pc.type(t.startsim.Txtname, "SMITH");
    pc.type(t.startsim.Txtnum, "123");
    pc.confirm(t.startsim.Cmdstart);
    EXPECT_EQ(shown_screens(pc), "simulator");
    EXPECT_EQ(t.shared.studentdetails.text(), "SMITH_123                     ");
}

TEST_F(from_the_set_up, a_quick_start_is_a_visual_practice_that_returns_to_the_title)
{
    pc.click(t.startsim.Optmode2);
    p.voiceson = p.keyboardselected = false;
    pc.click(t.startsim.cmdgame);
    gunnery_screen& s = t.simulator;
    EXPECT_EQ(shown_screens(pc), "simulator");
    EXPECT_EQ(s.lbltargetnum.Caption, "TARGET 0 OF 9");
    EXPECT_EQ(p.targetblocks, 3) << "of three targets each";
    EXPECT_TRUE(s.lbltargetnum.Visible && s.Imgname.Visible && s.Frame3.Visible);
    EXPECT_FALSE(s.Frmcon.Visible || s.Frmsys.Visible || s.Frmmousecon.Visible);
    EXPECT_TRUE(p.voiceson && p.keyboardselected);
    pc.click(s.Cmdstartsim);
    pc.advance(8);
    EXPECT_EQ(s.lbltargetnum.Caption, "TARGET 1 OF 9");
    pc.click(s.Cmdstopsim);
    EXPECT_EQ(d.last_box(),
              "NUMBER OF TARGETS = 1\n\rNUMBER OF HITS = 0\n\rAVERAGE TIME = 1\n\rSCORE = 0\n\r\n\rYOUR "
              "RATING IS..FORGET IT");
    EXPECT_EQ(shown_screens(pc), "simulator");
    pc.click(s.Cmdmain);
    EXPECT_EQ(shown_screens(pc), "intro");
    EXPECT_FALSE(p.fulldebrief);
    pc.click(t.intro.lblstart);
    EXPECT_TRUE(p.fulldebrief);
    pc.click(t.startsim.Optmode1);
    pc.confirm(t.startsim.Cmdstart);
    EXPECT_FALSE(s.lbltargetnum.Visible || p.quickstart) << "an ordinary practice";
}

TEST_F(from_the_set_up, a_data_directory_without_ranges_is_reported)
{
    const std::size_t boxes = pc.boxes.size();
    std::filesystem::remove_all(from_utf8(d.data.ranges()));
    pc.answers.assign(4, {true});
    pc.click(t.startsim.cmdgame);
    ASSERT_EQ(pc.boxes.size(), boxes + 3) << "one each for the practice, the folder and the range";
    EXPECT_NE(pc.boxes[boxes].text.find("Visualrange.arf"), std::string::npos);
    EXPECT_NE(pc.boxes[boxes + 1].text.find(d.data.ranges()), std::string::npos);
    EXPECT_EQ(shown_screens(pc), "startsim");
}

}   // namespace
}   // namespace vorn
