// Practices from the start to the last target with nobody at the gun, and what disturbs them.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "drill.h"
#include "gunnery/gunnery.h"
#include "setup/startsim.h"

namespace vorn {
namespace {

using moments = std::vector<double>;

TEST(visual_practice, six_targets_come_at_their_times_and_go_down_as_misses)
{
    drill d(sight_kind::visual);
    d.start();
    EXPECT_EQ(d.crew(), "COMMANDER:- ACTION !!");
    EXPECT_EQ(d.t.shared.targetcount, 6);
    EXPECT_NEAR(d.to_the_end(), 206, 1.1);
    EXPECT_EQ(d.moments("FIN TANK "), (moments{7, 109}));
    EXPECT_EQ(d.moments("HESH BMP "), (moments{41, 143}));
    EXPECT_EQ(d.moments("COAX TRANSPORT "), (moments{75, 177}));
    EXPECT_EQ(d.moments("STOP DESELECT !!"), (moments{36, 70, 104, 138, 172}));
    EXPECT_EQ(d.moments("TARGET STOP...STOP CLEAR GUNS !!"), moments{206});
    EXPECT_EQ(d.moments("LOADED....  FIRE").size(), 6U);
    for (int i = 1; i <= 6; ++i) {
        EXPECT_EQ(d.t.shared.rectarget[i], static_cast<int>(i));
        EXPECT_EQ(d.t.shared.rechit[i], "NO");
        EXPECT_EQ(d.t.shared.rectime[i], 100);
        EXPECT_EQ(d.t.shared.recsystem[i], "FULL");
        EXPECT_TRUE(d.t.shared.recx[i] == 51000 && d.t.shared.recy[i] == 15500);
        const int range = d.t.shared.recrange[i];
        EXPECT_EQ(d.t.shared.recwidth[i],
                  static_cast<int>(range < 2200 ? std::min(480.0, rounded(660 - range / 4.0)) : 160));
    }
    EXPECT_EQ(d.t.shared.recsystem[0], "") << "no practice fills row 0";
    EXPECT_EQ(d.crew(), "");
    EXPECT_TRUE(d.screen().Cmdstartsim.Enabled && !d.screen().Cmdstopsim.Enabled);
}

TEST(visual_practice, one_engagement_second_by_second)
{
    drill d(sight_kind::visual);
    d.t.random.source = [] { return draw_of(6); };   // 1100 metres
    gunnery_screen& s = d.screen();
    d.start();
    d.pc.advance(7);
    EXPECT_EQ(d.crew(), "FIN TANK ");
    EXPECT_FALSE(s.Imgtargets.Visible);
    d.pc.advance(1);
    EXPECT_TRUE(s.Imgtargets.Visible);
    EXPECT_EQ(d.crew(), "FIN TANK ON !!");
    EXPECT_EQ(s.Imgtargets.Picture.source, s.Imgtargetfin.Picture.source);
    EXPECT_EQ(s.Label2.Caption, "1");
    EXPECT_EQ(s.Label1.Caption, "28");
    EXPECT_DOUBLE_EQ(s.Imgtargets.Width, 385);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Height, 385);
    // From 5400 across and 3500 down in steps of 350 and 250 to ends at 3943 and 2972; the picture goes a
    // step further.
    EXPECT_DOUBLE_EQ(s.Imgtargets.Left, 4000);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, -45600 - 5 * 350);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Top, 3000);
    EXPECT_DOUBLE_EQ(s.Imgrange.Top, -12000 - 3 * 250);
    d.pc.advance(27);
    EXPECT_TRUE(s.Imgtargets.Visible && s.Label1.Caption == "1");
    d.pc.advance(1);
    EXPECT_TRUE(!s.Imgtargets.Visible && s.Label1.Caption == "0");
    EXPECT_EQ(d.pc.of_kind("sound"),
              (std::vector<std::string>{"action.wav", "fin1.wav", "on.wav", "loadfire.wav", "deselect.wav"}));
}

TEST(thermal_practice, six_targets_with_waits_of_three_to_seven_seconds)
{
    drill d(sight_kind::thermal);
    d.start();
    d.to_the_end();
    const moments misses = d.moments("STOP DESELECT !!");
    ASSERT_EQ(misses.size(), 6U);
    EXPECT_DOUBLE_EQ(misses[0], 36);
    std::set<double> waits;
    for (std::size_t i = 1; i < misses.size(); ++i) waits.insert(std::round(misses[i] - misses[i - 1] - 29));
    EXPECT_GE(*waits.begin(), 3);
    EXPECT_LE(*waits.rbegin(), 7);
    EXPECT_GT(waits.size(), 1U);
    EXPECT_EQ(d.moments("COMMANDER :- FIN TANK  !!").size(), 2U);
    EXPECT_EQ(d.moments("COMMADER :- HESH BMP !!ON !!").size(), 2U);
    EXPECT_EQ(d.t.shared.recsystem[1], "FULL");
    EXPECT_TRUE(d.screen().Cmdstopsim.Enabled);
}

TEST(thermal_practice, the_order_the_lay_and_the_crew_line_differ)
{
    drill d(sight_kind::thermal);
    d.t.random.source = [] { return draw_of(6); };
    gunnery_screen& s = d.screen();
    d.start();
    d.pc.advance(7);
    EXPECT_EQ(s.Lblrange.Caption, "1000S");
    EXPECT_TRUE(s.Timloading.Enabled);
    d.pc.advance(1);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Width, 560 - 1100 / 4.0);
    // From 2400 across and 1900 down in steps of 50 to 2000 - Int(800 x 5.5 / 19) and 1800 - Int(300 x 5.5 /
    // 19).
    EXPECT_DOUBLE_EQ(s.Imgtargets.Left, 1800);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, -7080 - 13 * 50);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Top, 1750);
    EXPECT_DOUBLE_EQ(s.Imgrange.Top, -3720 - 4 * 50);
    EXPECT_EQ(d.crew(), "COMMANDER :- FIN TANK  !!ON !!");
    EXPECT_EQ(d.t.shared.recwidth[1], 0);
    d.pc.advance(4);   // the loader reports on his fifth tick, and from the sixth on the line is cleared
    EXPECT_EQ(d.crew(), "LOADER :- LOADED !!");
    d.pc.advance(1);
    EXPECT_EQ(d.crew(), "");
    d.pc.advance(23);
    d.pc.advance(s.targetwait);
    EXPECT_EQ(s.Lblrange.Caption, number_text(Int((draw_of(6) * 3 + 3) * 220)) + "S");
}

TEST(practice, near_targets_in_the_visual_sight_count_as_600_metres_and_far_ones_draw_again)
{
    drill d(sight_kind::visual);
    d.t.shared.engagementtype = 2;
    practice_state range = plain_range(sight_kind::visual);
    range.targetrange[2] = 300;
    range.targetrange[3] = 1300;
    d.data.put_range("visualrange.arf", range);
    double draw = draw_of(3);
    int turn = 0;
    d.t.random.source = [&] { return draw >= 0 ? draw : draw_of(turn++ % 2 == 0 ? 15 : 2); };
    d.start();
    d.pc.advance(8);
    EXPECT_EQ(d.t.shared.recrange[1], 1300);   // exactly at the limit, and it was there already
    draw = -1;                                 // now at 15, too far; the draws give 15 again and 2
    d.pc.advance(34);
    EXPECT_EQ(d.t.shared.recrange[2], 300);
    EXPECT_EQ(d.screen().currentrange, 600);
    EXPECT_DOUBLE_EQ(d.screen().Imgtargets.Width, 480);
}

TEST(practice, on_demand_each_target_waits_for_the_instructor)
{
    for (const sight_kind kind : {sight_kind::visual, sight_kind::thermal}) {
        drill d(kind);
        d.t.shared.targetauto = false;
        d.set_up();
        gunnery_screen& s = d.screen();
        EXPECT_TRUE(s.Cmdtarget.Visible && !s.Cmdtarget.Enabled);
        d.start();
        d.pc.advance(100);
        EXPECT_EQ(d.crew(), "COMMANDER:- ACTION !!");
        d.pc.click(s.Cmdtarget);
        EXPECT_FALSE(s.Cmdtarget.Enabled);
        d.pc.advance(7 + 29);
        EXPECT_FALSE(s.Imgtargets.Visible);
        EXPECT_TRUE(s.Cmdtarget.Enabled);
        d.pc.advance(100);
        EXPECT_EQ(s.targetnumber, 1);
        // Stopped here the button stays enabled, and works with no practice running.
        d.pc.click(s.Cmdstopsim);
        d.pc.click(s.Cmdtarget);
        d.pc.advance(8);
        EXPECT_TRUE(s.Imgtargets.Visible && !s.simrunning);
    }
}

struct pause : testing::Test {
    drill d{sight_kind::visual};
    gunnery_screen& s = d.screen();
    void pause_after(double seconds)
    {
        d.start();
        d.pc.advance(seconds);
        d.pc.click(s.Cmdpausesim);
    }
};

TEST_F(pause, in_the_wait_resuming_presents_a_target_without_an_order)
{
    pause_after(3);
    d.pc.advance(60);
    EXPECT_EQ(s.targetnumber, 0);
    d.pc.click(s.Cmdpausesim);
    EXPECT_EQ(s.Cmdpausesim.Caption, "PAUSE SIM");
    EXPECT_TRUE(s.Cmdfire.Enabled);
    d.pc.advance(1);
    EXPECT_EQ(s.targetnumber, 1);
    EXPECT_EQ(d.moments("FIN TANK ").size(), 0U);
}

TEST_F(pause, with_a_target_up_the_wait_runs_beside_it_and_gives_a_fresh_order)
{
    pause_after(20);
    EXPECT_FALSE(s.Cmdfire.Enabled);
    const int ticks = s.targetticks;
    d.pc.advance(50);
    EXPECT_EQ(s.targetticks, ticks);
    d.pc.click(s.Cmdpausesim);
    const double left = s.Imgtargets.Left;
    d.pc.advance(7);
    EXPECT_EQ(d.crew().substr(0, 9), "HESH BMP ");
    EXPECT_EQ(s.targetnumber, 1);
    EXPECT_LE(s.targetticks, 2);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Left, left);
}

TEST_F(pause, a_count_that_the_resume_has_brought_past_the_wait_still_leads_to_an_order)
{
    pause_after(5);
    d.pc.click(s.Cmdpausesim);
    d.pc.advance(1);   // the target of no order goes down with the same tick, and the wait of 5 s begins at 6
    EXPECT_EQ(d.crew(), "STOP DESELECT !!");
    d.pc.advance(2);
    EXPECT_EQ(d.crew().substr(0, 9), "FIN TANK ");
}

TEST_F(pause, one_left_over_holds_nothing_and_its_button_says_what_a_click_will_do)
{
    for (const bool unload : {false, true}) {
        pause_after(0);
        d.pc.click(unload ? s.Cmdmain : s.Cmdstopsim);
        d.start();
        EXPECT_EQ(s.Cmdpausesim.Caption, "PAUSE OFF");
        d.pc.advance(8 + 5);
        EXPECT_TRUE(s.Imgtargets.Visible);
        EXPECT_EQ(d.crew(), "LOADED....  FIRE");
        d.pc.click(s.Cmdpausesim);
        EXPECT_FALSE(d.t.shared.paused);
        d.pc.click(s.Cmdstopsim);
    }
}

TEST(degrading, nine_targets_worsen_by_thirds)
{
    for (const auto& [kind, expected] :
         {std::pair{sight_kind::visual, "FFFFFLLLT"}, {sight_kind::thermal, "FFFFLLLTT"}}) {
        drill d(kind);
        d.t.shared.selfdegrading = true;
        d.t.shared.targetblocks = 3;
        d.start();
        d.to_the_end();
        std::string got;
        for (int i = 1; i <= 9; ++i) got += d.t.shared.recsystem[i].front();
        EXPECT_EQ(got, expected);
        EXPECT_EQ(d.screen().Lblsystem.Caption, "T");
    }
}

TEST(degrading, the_commander_reports_by_the_system_and_calls_the_range_when_the_laser_is_gone)
{
    const struct {
        int status, type;
        bool voices;
        const char* line;
        const char* file;
        bool held;
    } cases[] = {{1, 4, true, "FIN TANK ON !!", "on.wav", false},
                 {0, 4, true, "FIN TANK ON !!", "on.wav", false},
                 {1, 4, false, "FIN TANK ON !!", "", false},
                 {0, 4, false, "FIN TANK ", "", false},
                 {2, 4, true, "FIN TANK ON LAZE !!", "onlaze.wav", false},
                 {2, 4, false, "FIN TANK ON LAZE!!", "", false},
                 {3, 4, true, "FIN TANK ON 1100 !!!", "on1100.wav", true},
                 {3, 4, false, "FIN TANK ON 1100 !!!", "", false},
                 {1, 2, true, "COAX TRANSPORT ON 1100 !!!", "on1100.wav", true}};
    for (const auto& c : cases) {
        drill d(sight_kind::visual);
        d.t.shared.systemstatus = c.status;
        d.t.shared.engagementtype = c.type;
        d.t.shared.voiceson = false;   // of the order, which would be held too
        d.t.random.source = [] { return draw_of(6); };
        d.start();
        d.pc.advance(7.5);
        d.t.shared.voiceson = c.voices;
        d.pc.advance(0.5);
        EXPECT_EQ(d.crew(), c.line);
        const auto sounds = d.pc.of_kind("sound");
        EXPECT_EQ(sounds.empty() ? "" : sounds.back(), c.file);
        EXPECT_EQ(d.screen().voicebusy, c.held) << c.line;
    }
}

TEST(commander, calls_the_range_in_hundreds_and_a_near_one_in_two_hundreds)
{
    const struct {
        int range;
        const char* call;
    } cases[] = {{0, "600"},     {699, "600"},   {700, "800"},   {899, "800"},   {900, "900"},
                 {999, "900"},   {1000, "1000"}, {1199, "1100"}, {1200, "1200"}, {1399, "1300"},
                 {1400, "1400"}, {1599, "1500"}, {1600, "1600"}, {1799, "1700"}, {1800, "1800"},
                 {1899, "1800"}, {1900, "2000"}, {2500, "2000"}};
    drill d(sight_kind::visual);
    d.set_up();
    gunnery_screen& s = d.screen();
    for (const auto& c : cases) {
        d.t.shared.targetrange[s.currenttarget] = c.range;
        s.lblcrew.Caption = "FIN TANK ";
        d.pc.event([&] { callrange(d.t, s); });
        EXPECT_EQ(d.crew(), "FIN TANK ON " + std::string(c.call) + " !!!") << c.range;
        EXPECT_EQ(d.pc.of_kind("sound").back(), "on" + std::string(c.call) + ".wav") << c.range;
    }
}

TEST(mixed, the_cycle_goes_on_across_practices_and_screens_and_ends_in_fin)
{
    drill d(sight_kind::visual);
    for (const int blocks : {3, 3, 5}) {
        d.t.shared.targetblocks = blocks;
        d.start();
        d.to_the_end();
        d.pc.click(d.screen().Cmdmain);
    }
    EXPECT_EQ(d.t.shared.rectarget[15], 15);
    EXPECT_EQ(d.t.shared.rectarget[16], 0) << "the row that it moved on to after its last target";
    std::string natures;
    for (const logged& l : d.pc.log)
        if (l.text == "FIN TANK " || l.text == "HESH BMP " || l.text == "COAX TRANSPORT ")
            natures += l.text.front();
    EXPECT_EQ(natures,
              "FHCFHCFHC"
              "FHCFHCFHC"
              "CFFFFFFFFFFFFFF");
}

TEST(target_time, till_destroyed_shows_no_time_until_the_last_fifty_seconds)
{
    drill d(sight_kind::visual);
    d.t.shared.targettime = 500;
    d.start();
    d.pc.advance(7 + 449);
    EXPECT_EQ(d.screen().Label1.Caption, "NA");
    d.pc.advance(1);
    EXPECT_EQ(d.screen().Label1.Caption, "49");
    d.pc.advance(49);
    EXPECT_FALSE(d.screen().Imgtargets.Visible);
}

TEST(score, hits_count_from_the_order_and_the_box_tells_them)
{
    drill d(sight_kind::visual);
    d.t.shared.fulldebrief = false;
    d.start();
    d.pc.advance(7 + 11);
    d.pc.event([&] { recordhit(d.t, d.screen()); });
    EXPECT_EQ(d.screen().Lblavetime.Caption, "12");
    d.pc.advance(1);
    EXPECT_FALSE(d.screen().Imgtargets.Visible);
    EXPECT_EQ(d.moments("STOP DESELECT !!").size(), 0U);
    EXPECT_EQ(d.t.shared.rectime[1], 12);
    d.pc.click(d.screen().Cmdstopsim);
    EXPECT_EQ(d.pc.boxes.back().text,
              "WELL DONE YOUR SCORE IS..\n\rNUMBER OF TARGETS = 1\n\rNUMBER OF HITS = 1\n\r"
              "AVERAGE TIME = 12\n\rSCORE = 400");
}

TEST(score, a_stop_in_the_second_after_a_hit_takes_no_miss_off_the_next_practice)
{
    for (const sight_kind kind : {sight_kind::visual, sight_kind::thermal}) {
        drill d(kind);
        d.start();
        d.pc.advance(7 + 11);
        d.pc.event([&] { recordhit(d.t, d.screen()); });
        d.pc.click(d.screen().Cmdstopsim);
        d.start();
        d.pc.advance(7 + 30);
        EXPECT_EQ(d.crew(), "STOP DESELECT !!");
        EXPECT_EQ(d.t.shared.rechit[1], "NO");
    }
}

TEST(score, a_stop_at_once_is_safe_on_both_sights)
{
    for (const sight_kind kind : {sight_kind::visual, sight_kind::thermal}) {
        drill d(kind);
        d.start();
        d.pc.click(d.screen().Cmdstopsim);
        const std::string brackets = kind == sight_kind::visual ? ")" : "";
        EXPECT_EQ((d.pc.boxes.end() - 2)->text, "DEBRIEF FIRER ?");
        EXPECT_EQ(d.pc.boxes.back().text, "NUMBER OF TARGETS = 1\n\rNUMBER " + brackets +
                                              "OF HITS = 0\n\rAVERAGE TIME = 1\n\rSCORE = 0");
        if (kind == sight_kind::thermal) d.pc.click(d.screen().Cmdstopsim);   // it stays enabled there
        d.pc.advance(60);
        EXPECT_EQ(d.screen().targetnumber, 0);
    }
}

TEST(score, a_quick_start_is_rated_in_whole_numbers)
{
    const struct {
        int average, hits;
        const char* score;
        const char* rating;
    } cases[] = {{200, 1, "100", "FORGET IT"},
                 {201, 1, "100.5", ""},
                 {202, 1, "101", "CADET"},
                 {5996, 1, "2998", "CADET"},
                 {5998, 1, "2999", "GUNNER"},
                 {7600, 1, "3800", "GUNNER"},
                 {7602, 1, "3801", "GUNNER MECH"},
                 {9400, 1, "4700", "GUNNER MECH"},
                 {9402, 1, "4701", "GUNNERY INSTRUCTOR"},
                 {20000, 10, "100000", "GUNNERY INSTRUCTOR"},
                 {20001, 10, "100005", ""}};
    drill d(sight_kind::visual);
    gunnery_screen& s = d.screen();
    d.pc.click(d.t.startsim.cmdgame);
    for (const auto& c : cases) {
        d.start();
        s.targetnumber = 1;
        s.hittime = c.average;
        s.hits = c.hits;
        s.targetlife = 2000;   // half a point for a second of a hit
        d.pc.click(s.Cmdstopsim);
        const std::string end = "SCORE = " + std::string(c.score) + "\n\r\n\rYOUR RATING IS.." + c.rating;
        EXPECT_TRUE(d.pc.boxes.back().text.ends_with(end)) << end << " in " << d.pc.boxes.back().text;
    }
}

// What the user does in the midst of the visual lay.
struct mid_lay : testing::Test {
    drill d{sight_kind::visual};
    gunnery_screen& s = d.screen();

    void act(const std::function<void()>& action)
    {
        d.start();
        d.pc.later(8.02, action);
        d.pc.advance(8);
    }
};

TEST_F(mid_lay, a_stop_leaves_the_screen_reset)
{
    act([&] { d.pc.click(s.Cmdstopsim); });
    EXPECT_FALSE(s.Imgtargets.Visible || s.Timloading.Enabled);
    EXPECT_EQ(d.crew(), "");
    d.start();
    EXPECT_NEAR(d.to_the_end(), 206, 1.1);
}

TEST_F(mid_lay, a_return_to_the_set_up_leaves_nothing_running)
{
    act([&] { d.pc.click(s.Cmdmain); });
    EXPECT_EQ(s.window.state, form_state::not_loaded);
    d.pc.advance(60);
    EXPECT_EQ(d.moments("STOP DESELECT !!").size(), 0U);
    d.start();
    EXPECT_FALSE(s.voicebusy) << "the call that was cut off holds back nothing";
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, -45600);
    d.pc.advance(8);
    EXPECT_TRUE(s.Imgtargets.Visible);
}

TEST_F(mid_lay, a_pause_holds_the_loader_too)
{
    act([&] { d.pc.click(s.Cmdpausesim); });
    EXPECT_TRUE(s.targetcalled);
    EXPECT_FALSE(s.Timloading.Enabled || s.Timtarget.Enabled);
    d.pc.advance(30);
    EXPECT_EQ(d.crew(), "FIN TANK ON !!");
    d.pc.click(s.Cmdpausesim);
    d.pc.advance(4);
    EXPECT_EQ(d.crew(), "LOADED....  FIRE");
}

TEST_F(mid_lay, an_exit_runs_nothing_after_it)
{
    d.pc.answers = {{true}, {true}};
    act([&] { d.pc.click(s.CMDEXIT); });
    EXPECT_TRUE(d.pc.ended && !s.targetcalled);
}

TEST_F(mid_lay, an_exit_thought_better_of_goes_on)
{
    d.pc.answers = {{true}, {false, 20}};
    act([&] { d.pc.click(s.CMDEXIT); });
    d.pc.advance(15);
    EXPECT_TRUE(s.Imgtargets.Visible && s.targetcalled);
}

TEST(hostile_range, a_practice_runs_to_its_end)
{
    for (const sight_kind kind : {sight_kind::visual, sight_kind::thermal}) {
        drill d(kind);
        practice_state range = plain_range(kind);
        range.targetx.fill(2'000'000'000);
        range.targety.fill(-2'147'483'647);
        range.targetrange.fill(32767);
        range.targetrange[7] = 5000;   // too far for FIN and COAX alike, but the nearest there is
        d.data.put_range(kind == sight_kind::visual ? "visualrange.arf" : "Thermalrange.arf", range);
        d.start();
        d.to_the_end();
        EXPECT_TRUE(d.t.shared.recrange[1] == 5000 && d.t.shared.recrange[3] == 5000);
    }
}

}   // namespace
}   // namespace vorn
