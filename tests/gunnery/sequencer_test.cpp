// The sequence of a practice: orders, targets, waits, pauses and score. No round is fired.
#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <utility>

#include "drill.h"
#include "gunnery/gunnery.h"

namespace vorn {
namespace {

using times = std::vector<double>;

struct visual_practice : on_visual {};
struct thermal_practice : on_thermal {};
struct practice_on : each_sight {};
INSTANTIATE_TEST_SUITE_P(sights, practice_on, testing::ValuesIn(both_sights), sight_name);

TEST_F(visual_practice, six_missed_targets)
{
    d.start();
    EXPECT_EQ(d.crew(), "COMMANDER:- ACTION !!");
    EXPECT_EQ(p.targetcount, 6);
    EXPECT_NEAR(d.to_the_end(), 206, 1.1);
    EXPECT_EQ(d.times_of("FIN TANK "), (times{7, 109}));
    EXPECT_EQ(d.times_of("HESH BMP "), (times{41, 143}));
    EXPECT_EQ(d.times_of("COAX TRANSPORT "), (times{75, 177}));
    EXPECT_EQ(d.times_of("STOP DESELECT !!"), (times{36, 70, 104, 138, 172}));
    EXPECT_EQ(d.times_of("TARGET STOP...STOP CLEAR GUNS !!"), times{206});
    EXPECT_EQ(d.times_of("LOADED....  FIRE").size(), 6U);
    for (int i = 1; i <= 6; ++i) {
        EXPECT_EQ(p.rectarget[i], i);
        EXPECT_EQ(p.rechit[i], "NO");
        EXPECT_EQ(p.rectime[i], 100);
        EXPECT_EQ(p.recsystem[i], "FULL");
        EXPECT_TRUE(p.recx[i] == 51000 && p.recy[i] == 15500);
    }
    EXPECT_EQ(p.recsystem[0] + p.recsystem[7], "FULL") << "set by the reset in the row after the last target";
    EXPECT_EQ(d.crew(), "");
    const message& question = d.pc.boxes[d.pc.boxes.size() - 2];
    EXPECT_EQ(question.text + '|' + question.title, "DEBRIEF FIRER ?|DEBRIEF");
    EXPECT_TRUE(question.buttons == box_buttons::yes_no && question.sign == box_sign::question);
    EXPECT_EQ(d.pc.boxes.back().title, "V. O. R. N.");
    EXPECT_EQ(d.pc.boxes.back().sign, box_sign::information);
    EXPECT_TRUE(s.Cmdstartsim.Enabled && !s.Cmdstopsim.Enabled);
}

TEST_F(visual_practice, one_engagement_second_by_second)
{
    d.random(draw_of(6));   // 1100 metres
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
    EXPECT_TRUE(s.Imgtargets.Width == 385 && s.Imgtargets.Height == 385 && p.recwidth[1] == 385);
    // From (5400, 3500) towards (3943, 2972) in steps of 350 and 250; the picture moves one step more.
    expect_at(s.Imgtargets, 4000, 3000, "target");
    expect_at(s.Imgrange, -45600 - 5 * 350, -12000 - 3 * 250, "picture");
    EXPECT_NEAR(d.times_of("FIN TANK ON !!").at(0), 8 + (5 + 3) / 60.0, 1e-6) << "60 steps a second";
    d.pc.advance(27);
    EXPECT_TRUE(s.Imgtargets.Visible && s.Label1.Caption == "1");
    d.pc.advance(1);
    EXPECT_TRUE(!s.Imgtargets.Visible && s.Label1.Caption == "0");
    d.to_the_end();
    texts calls{"action.wav"};
    for (int target = 0; target < 6; ++target) {
        const bool coax = target % 3 == 2;
        const char* orders[] = {"fin1.wav", "hesh1.wav", "coaxon1.wav"};
        for (const char* call :
             {orders[target % 3], coax ? "on1100.wav" : "on.wav", "loadfire.wav", "deselect.wav"})
            calls.push_back(call);
    }
    calls.push_back("cleargun.wav");
    EXPECT_EQ(d.sounds(), calls);
}

TEST_F(thermal_practice, six_targets_with_waits_of_three_to_seven_seconds)
{
    d.start();
    d.to_the_end();
    const times misses = d.times_of("STOP DESELECT !!");
    ASSERT_EQ(misses.size(), 6U);
    EXPECT_DOUBLE_EQ(misses[0], 36);
    std::set<double> waits;
    for (std::size_t i = 1; i < misses.size(); ++i) waits.insert(std::round(misses[i] - misses[i - 1] - 29));
    EXPECT_GE(*waits.begin(), 3);
    EXPECT_LE(*waits.rbegin(), 7);
    EXPECT_GT(waits.size(), 1U);
    EXPECT_EQ(d.times_of("COMMANDER :- FIN TANK  !!").size(), 2U);
    EXPECT_EQ(d.times_of("COMMADER :- HESH BMP !!ON !!").size(), 2U);
    EXPECT_EQ(p.recsystem[1], "FULL");
    EXPECT_TRUE(s.Cmdstopsim.Enabled);
}

TEST_F(thermal_practice, one_engagement_second_by_second)
{
    p.targetsize = 5;
    d.random(draw_of(6));
    d.start();
    d.pc.advance(7);
    EXPECT_EQ(s.Lblrange.Caption, "1000S");
    EXPECT_TRUE(s.Timloading.Enabled);
    d.pc.advance(1);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Width, 560 - 1100 / 5.0);
    // From (2400, 1900) towards (2000 - Int(800 x 5.5 / 19), 1800 - Int(300 x 5.5 / 19)) in steps of 50.
    expect_at(s.Imgtargets, 1800, 1750, "target");
    expect_at(s.Imgrange, -7080 - 13 * 50, -3720 - 4 * 50, "picture");
    EXPECT_EQ(d.crew(), "COMMANDER :- FIN TANK  !!ON !!");
    EXPECT_EQ(s.Imgstadia.Picture.source, ":stadia1") << "for a target of this size";
    EXPECT_EQ(d.sounds().back(), "on.wav");
    EXPECT_EQ(p.recwidth[1], 0);
    d.pc.advance(4);   // the fifth tick clears the line, then the loader reports
    EXPECT_EQ(d.crew(), "LOADER :- LOADED !!");
    d.pc.advance(1);
    EXPECT_EQ(d.crew(), "");
    d.random(0.999);
    d.pc.advance(23);
    EXPECT_EQ(s.targetwait, 7);
    d.pc.advance(7);
    EXPECT_EQ(s.Lblrange.Caption, "1319S") << "0.6 to 1.2 times the last range";
    d.pc.advance(4);
    EXPECT_NE(d.crew(), "");
    d.pc.advance(1);
    EXPECT_EQ(d.crew(), "") << "the gun was loaded already, so the loader reported earlier";
}

TEST(target, nearer_than_600_metres_counts_as_600_and_one_too_far_is_drawn_again)
{
    for (const auto& [type, limit] : {std::pair{2, 1300}, {4, 1600}}) {
        drill d(sight_kind::visual);
        practice_state& p = d.t.shared;
        p.engagementtype = type;
        practice_state range = plain_range(sight_kind::visual);
        range.targetrange[18] = 300;
        range.targetrange[3] = limit;
        range.targetrange[15] = limit + 1;
        d.data.put_range("visualrange.arf", range);
        d.present(3);
        EXPECT_EQ(p.recrange[1], limit);   // a candidate exactly at the limit is kept
        d.t.random.source = [turn = 2U]() mutable {
            return draw_of(std::array{15, 3, 18}[turn++ % 3]);
        };   // the candidate, 15, is too far; what replaces it must be nearer than the limit
        d.pc.advance(34);
        EXPECT_EQ(p.recrange[2], 300);
        EXPECT_EQ(d.screen().currentrange, 600);
        EXPECT_DOUBLE_EQ(d.screen().Imgtargets.Width, 480);
        for (int i = 1; i < positions; ++i) range.targetrange[i] = limit + i % 2;
        range.targetrange[15] = limit + 1;
        d.pc.click(d.screen().Cmdmain);
        d.data.put_range("visualrange.arf", range);
        d.present(15);
        EXPECT_EQ(p.recrange[1], limit) << "no position is nearer than the limit";
    }
}

// A target with a Left below 2040 is moved right, one with a Top below 960 down. At 2040 and 960 it isn't.
TEST(target, place_decides_the_direction_of_the_lay)
{
    for (const auto& [left, top] : {std::pair{2039, 959}, {2040, 960}}) {
        drill d(sight_kind::visual);
        practice_state range = plain_range(sight_kind::visual);
        range.targetx[6] = 45600 + left;
        range.targety[6] = 12000 + top;
        d.data.put_range("visualrange.arf", range);
        d.present(6);
        EXPECT_EQ(d.screen().Imgtargets.Left, left == 2039 ? 2039 + 5 * 350 : 2040);
        EXPECT_EQ(d.screen().Imgtargets.Top, top == 959 ? 959 + 8 * 250 : 960);
    }
}

TEST(target, has_its_smallest_width_from_2200_metres_on)
{
    EXPECT_DOUBLE_EQ(target_width(visualsight, 2199, 8), 660 - 2199 / 8.0);
    EXPECT_DOUBLE_EQ(target_width(visualsight, 2200, 8), 160);
}

TEST_P(practice_on, demand)
{
    p.targetauto = false;
    d.set_up();
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
    d.pc.click(s.Cmdstopsim);   // leaves Cmdtarget enabled, which still works
    d.pc.click(s.Cmdtarget);
    d.pc.advance(8);
    EXPECT_TRUE(s.Imgtargets.Visible && !s.simrunning);
}

struct pause : visual_practice {
    void pause_after(double seconds)
    {
        d.start();
        d.pc.advance(seconds);
        d.pc.click(s.Cmdpausesim);
    }
};

TEST_F(pause, resumed_in_the_wait_presents_a_target_without_an_order)
{
    pause_after(3);
    d.pc.advance(60);
    EXPECT_EQ(s.targetnumber, 0);
    d.pc.click(s.Cmdpausesim);
    EXPECT_EQ(s.Cmdpausesim.Caption, "PAUSE SIM");
    EXPECT_TRUE(s.Cmdfire.Enabled);
    d.pc.advance(1);
    EXPECT_EQ(s.targetnumber, 1);
    EXPECT_EQ(d.times_of("FIN TANK ").size(), 0U);
}

TEST_F(pause, resumed_with_a_target_up_leads_to_a_new_order)
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

TEST_F(pause, a_count_past_the_wait_still_leads_to_an_order)
{
    pause_after(5);
    d.pc.click(s.Cmdpausesim);
    d.pc.advance(1);   // the target without an order goes down with this tick; the next wait counts on from 6
    EXPECT_EQ(d.crew(), "STOP DESELECT !!");
    d.pc.advance(2);
    EXPECT_EQ(d.crew().substr(0, 9), "FIN TANK ");
}

TEST_F(pause, left_over_from_an_earlier_practice_stops_nothing)
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
        EXPECT_FALSE(p.paused);
        d.pc.click(s.Cmdstopsim);
    }
}

TEST_P(practice_on, degrading_by_thirds)
{
    p.selfdegrading = true;
    p.targetblocks = 3;
    d.start();
    d.to_the_end();
    std::string got;
    for (int i = 1; i <= 9; ++i) got += p.recsystem[i].front();
    EXPECT_EQ(got, visual ? "FFFFFLLLT" : "FFFFLLLTT");
    EXPECT_EQ(s.Lblsystem.Caption, "T");
}

TEST(commander, report_by_system_status)
{
    const struct {
        int status, type;
        bool voices;
        const char* line;
        const char* file;
        bool busy;
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
        d.t.shared.voiceson = false;   // during the order
        d.random(draw_of(6));
        d.start();
        d.pc.advance(7.5);
        d.t.shared.voiceson = c.voices;
        d.pc.advance(0.5);
        EXPECT_EQ(d.crew(), c.line);
        EXPECT_EQ(d.sounds().empty() ? "" : d.sounds().back(), c.file);
        EXPECT_EQ(d.screen().voicebusy, c.busy) << c.line;
    }
}

TEST_F(visual_practice, the_commander_calls_the_range_in_hundreds)
{
    const struct {
        int range, call;
    } calls[] = {{0, 600},     {699, 600},   {700, 800},   {899, 800},   {900, 900},  {999, 900},
                 {1000, 1000}, {1199, 1100}, {1899, 1800}, {1900, 2000}, {2500, 2000}};
    d.set_up();
    for (const auto& c : calls) {
        p.targetrange[s.currenttarget] = c.range;
        s.lblcrew.Caption = "FIN TANK ";
        d.pc.event([&] { callrange(d.t, s); });
        EXPECT_EQ(d.crew(), "FIN TANK ON " + std::to_string(c.call) + " !!!") << c.range;
        EXPECT_EQ(d.sounds().back(), "on" + std::to_string(c.call) + ".wav") << c.range;
    }
}

TEST_F(visual_practice, the_mixed_order_continues_across_practices_and_ends_in_fin)
{
    for (const int blocks : {3, 3, 5}) {
        p.targetblocks = blocks;
        d.start();
        d.to_the_end();
        d.pc.click(s.Cmdmain);
    }
    EXPECT_EQ(p.rectarget[15], 15);
    EXPECT_EQ(p.rectarget[16], 0) << "the row after the last target";
    std::string natures;
    for (const logged& l : d.pc.log)
        if (l.text == "FIN TANK " || l.text == "HESH BMP " || l.text == "COAX TRANSPORT ")
            natures += l.text.front();
    EXPECT_EQ(natures, "FHCFHCFHCFHCFHCFHCCFFFFFFFFFFFFFF");
}

TEST_F(visual_practice, the_time_left_is_not_shown_until_50_seconds)
{
    p.targettime = 500;
    d.start();
    d.pc.advance(7 + 449);
    EXPECT_EQ(s.Label1.Caption, "NA");
    d.pc.advance(1);
    EXPECT_EQ(s.Label1.Caption, "49");
    d.pc.advance(49);
    EXPECT_FALSE(s.Imgtargets.Visible);
}

TEST_F(visual_practice, a_hit_is_timed_from_the_order)
{
    p.fulldebrief = false;
    d.start();
    d.pc.advance(7 + 11);
    d.pc.event([&] { recordhit(d.t, s); });
    EXPECT_EQ(s.Lblavetime.Caption, "12");
    d.pc.advance(1);
    EXPECT_FALSE(s.Imgtargets.Visible);
    EXPECT_EQ(d.times_of("STOP DESELECT !!").size(), 0U);
    EXPECT_EQ(p.rectime[1], 12);
    d.pc.click(s.Cmdstopsim);
    EXPECT_EQ(d.last_box(),
              "WELL DONE YOUR SCORE IS..\n\rNUMBER OF TARGETS = 1\n\rNUMBER OF HITS = 1\n\r"
              "AVERAGE TIME = 12\n\rSCORE = 400");
}

TEST_P(practice_on, a_stop_just_after_a_hit_clears_it)
{
    d.start();
    d.pc.advance(7 + 11);
    d.pc.event([&] { recordhit(d.t, s); });
    d.pc.click(s.Cmdstopsim);
    d.start();
    d.pc.advance(7 + 30);
    EXPECT_EQ(d.crew(), "STOP DESELECT !!");
    EXPECT_EQ(p.rechit[1], "NO");
}

TEST_P(practice_on, stop_before_the_first_target)
{
    d.start();
    d.pc.click(s.Cmdstopsim);
    EXPECT_EQ((d.pc.boxes.end() - 2)->text, "DEBRIEF FIRER ?");
    EXPECT_EQ(d.last_box(), "NUMBER OF TARGETS = 1\n\rNUMBER " + std::string(visual ? ")" : "") +
                                "OF HITS = 0\n\rAVERAGE TIME = 1\n\rSCORE = 0");
    if (!visual) d.pc.click(s.Cmdstopsim);   // still enabled
    d.pc.advance(60);
    EXPECT_EQ(s.targetnumber, 0);
}

TEST_F(visual_practice, a_quick_start_is_rated_in_whole_numbers)
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
                 {7602, 1, "3801", "GUNNER MECH"},
                 {9402, 1, "4701", "GUNNERY INSTRUCTOR"},
                 {20001, 10, "100005", ""}};
    d.pc.click(d.t.startsim.cmdgame);
    for (const auto& c : cases) {
        d.start();
        s.targetnumber = 1;
        s.hittime = c.average;
        s.hits = c.hits;
        s.targetlife = 2000;   // half a point per second and hit
        d.pc.click(s.Cmdstopsim);
        const std::string end = "SCORE = " + std::string(c.score) + "\n\r\n\rYOUR RATING IS.." + c.rating;
        EXPECT_TRUE(d.last_box().ends_with(end)) << end << " in " << d.last_box();
    }
}

TEST_P(practice_on, an_unload_while_a_box_is_open_ends_it)
{
    for (const std::deque<box_answer>& answers :
         {std::deque<box_answer>{{true, 5}}, {{false, 5}}, {{false}, {true, 5}}}) {
        d.start();
        d.pc.advance(10);
        d.pc.answers = answers;
        d.pc.later(2, [&] { d.pc.click(s.Cmdmain); });
        const std::size_t boxes = d.pc.boxes.size();
        d.pc.click(s.Cmdstopsim);
        EXPECT_EQ(d.pc.boxes.size(), boxes + answers.size());
        EXPECT_EQ(s.window.state, form_state::not_loaded);
        EXPECT_EQ(shown_screens(d.pc), "startsim");
    }
}

// Actions of the user during the commander's lay.
struct during_the_lay : visual_practice {
    void act(const std::function<void()>& action, double at = 8.02)
    {
        d.start();
        d.pc.later(at, action);
        d.pc.wait(8);
    }
};

TEST_F(during_the_lay, a_stop_ends_the_practice)
{
    for (const double at : {8.02, 8.11}) {   // while the target moves across, and while it moves up
        act([&] { d.pc.click(s.Cmdstopsim); }, at);
        EXPECT_FALSE(s.Imgtargets.Visible || s.Timloading.Enabled);
        EXPECT_EQ(d.crew() + s.Label1.Caption, "0");
        d.pc.click(s.Cmdmain);
    }
    d.start();
    EXPECT_NEAR(d.to_the_end(), 206, 1.1);
}

TEST_F(during_the_lay, return_to_the_set_up)
{
    act([&] { d.pc.click(s.Cmdmain); });
    EXPECT_EQ(s.window.state, form_state::not_loaded);
    d.pc.advance(60);
    EXPECT_EQ(d.times_of("STOP DESELECT !!").size(), 0U);
    d.start();
    EXPECT_FALSE(s.voicebusy);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, -45600);
    d.pc.advance(8);
    EXPECT_TRUE(s.Imgtargets.Visible);
}

TEST_F(during_the_lay, pause_stops_the_loader_too)
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

TEST_F(during_the_lay, an_exit_ends_the_program_unless_it_is_cancelled)
{
    d.pc.answers = {{true}, {false, 20}};
    act([&] { d.pc.click(s.CMDEXIT); });
    d.pc.advance(15);
    EXPECT_TRUE(s.Imgtargets.Visible && s.targetcalled);
    d.pc.click(s.Cmdmain);
    d.pc.answers = {{true}, {true}};
    act([&] { d.pc.click(s.CMDEXIT); });
    EXPECT_TRUE(d.pc.ended && !s.targetcalled);
}

TEST_P(practice_on, a_range_with_extreme_positions_and_no_icons)
{
    practice_state range = plain_range(GetParam());
    std::ranges::fill(range.targetx, 2'000'000'000);
    std::ranges::fill(range.targety, -2'147'483'647);
    std::ranges::fill(range.targetrange, 32767);
    range.targetrange[visual ? 1 : 2] = 5000;   // too far for FIN and COAX, but the nearest
    range.targetrange[20] = 4000;               // position 20 is never chosen
    range.targeticon1 = range.targeticon2 = range.targeticon3 = "";
    d.data.put_range(visual ? "visualrange.arf" : "Thermalrange.arf", range);
    d.start();
    d.to_the_end();
    EXPECT_TRUE(p.recrange[1] == 5000 && p.recrange[3] == 5000);
    EXPECT_EQ(s.Imgtargets.Picture.source, ":target") << "the built-in picture";
}

}   // namespace
}   // namespace vorn
