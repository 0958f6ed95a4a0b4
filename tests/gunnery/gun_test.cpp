// The guns: selection, loading, the trigger, flights and what they hit.
#include <gtest/gtest.h>

#include "drill.h"
#include "gunnery/gunnery.h"

namespace vorn {
namespace {

// A FIN target at 1100 metres, 385 twips wide; the main armament selected and loaded. Every draw is the
// middle.
struct gun : testing::TestWithParam<sight_kind> {
    drill d{GetParam()};
    gunnery_screen& s = d.screen();
    practice_state& p = d.t.shared;
    bool visual = s.visual();

    gun()
    {
        p.windbias = 2;
        d.present(6);
        d.tap('E');
        d.pc.wait(9);   // loaded, and the calls are over
        d.t.random.source = [] { return 0.5; };
    }
    // Where a FIN round comes down.
    double fall_left() { return visual ? 4525 + 64 : 4700 + (95 - 47); }
    double fall_top() { return visual ? 1700 : 2600; }
    void as(int nature)
    {
        s.nature = nature;
        s.ammoselected = nature;
        s.gunloaded = true;
    }
};
INSTANTIATE_TEST_SUITE_P(sights, gun, testing::Values(sight_kind::visual, sight_kind::thermal),
                         [](const auto& i) { return i.param == sight_kind::visual ? "visual" : "thermal"; });

TEST_P(gun, fin_flies_to_its_place_and_kills_inside_the_margin)
{
    ASSERT_TRUE(s.gunloaded && s.Imgloaded.Visible);
    d.target_at(fall_left() - 200, fall_top() - 150);
    d.tap('D');
    EXPECT_DOUBLE_EQ(s.ammo.Left, fall_left());
    EXPECT_DOUBLE_EQ(s.ammo.Top, fall_top());
    EXPECT_FALSE(s.ammo.Visible || s.gunloaded || s.Imgloaded.Visible);
    EXPECT_EQ(p.recfallx[1][1], -200);
    EXPECT_EQ(p.recfally[1][1], -150);
    EXPECT_EQ(d.crew(), "COMD: TARGET STOP !!");
    EXPECT_TRUE(s.Imgexplode.Visible);
    EXPECT_DOUBLE_EQ(s.Imgexplode.Top, s.Imgtargets.Top - 100);
    const double across = s.Imgtargets.Width / 2 + fall_left() - 200 - s.mbs1.Left;
    const double down = s.Imgtargets.Height / 2 + fall_top() - 150 - s.mbs1.Top;
    EXPECT_EQ(p.recaimx[1][1], static_cast<int>(rounded(across)));
    EXPECT_EQ(p.recaimy[1][1], static_cast<int>(rounded(visual ? down : -down)));
    d.pc.wait(1);
    EXPECT_FALSE(s.Imgtargets.Visible || s.Imgexplode.Visible);
    const auto sounds = d.pc.of_kind("sound");
    EXPECT_EQ(std::vector<std::string>(sounds.end() - 3, sounds.end()),
              (std::vector<std::string>{"fire.wav", "targetstop.wav", "explode.wav"}));
}

TEST_P(gun, the_kill_box_is_strict)
{
    const double margin = static_cast<float>(s.Imgtargets.Width / 15);
    const double width = s.Imgtargets.Width;
    const struct {
        double left, top;   // of the fall against the target
        bool hit;
    } cases[] = {{margin, 100, false},         {margin + 1, 100, true},
                 {width - margin, 100, false}, {width - margin - 1, 100, true},
                 {100, width - margin, false}, {100, width - margin - 1, true},
                 {100, margin - 1, !visual},   {100, 0, false}};
    for (const auto& c : cases) {
        as(fin_tank);
        s.targethit = false;
        d.target_at(fall_left() - c.left, fall_top() - c.top);
        d.tap('D');
        EXPECT_EQ(s.targethit, c.hit) << c.left << ' ' << c.top;
        EXPECT_EQ(s.Timloading.Enabled, !c.hit);
        stop(s.Timloading);
        s.targetticks = 3;
    }
    EXPECT_EQ(p.roundnumber, 4);
    EXPECT_EQ(p.recrounds[1], 3);
}

// Chance scatters a round up and down on the visual sight alone, and FIN to the right on both.
TEST_P(gun, chance_scatters_a_round_within_its_bounds)
{
    const struct {
        double draw;
        int spread, across;   // twips, of a target 385 or 285 wide
    } cases[] = {{0, -75, visual ? 128 : 95}, {0.5, 0, visual ? 64 : 48}, {0.9999, 74, visual ? 0 : 1}};
    for (const auto& c : cases) {
        d.t.random.source = [draw = c.draw] { return draw; };
        as(fin_tank);
        d.target_at(-9000, -9000);
        d.tap('D');
        EXPECT_DOUBLE_EQ(s.ammo.Left, s.mbs1.Left + c.across) << c.draw;
        EXPECT_DOUBLE_EQ(s.ammo.Top, visual ? 1700 + c.spread : 2600) << c.draw;
        as(hesh_bmp);
        d.tap('D');
        EXPECT_NEAR(s.ammo.Top, visual ? 1140 + 2200 + c.spread : 2650, 0.31) << c.draw;
    }
}

TEST_P(gun, hesh_takes_the_wind_and_the_correction)
{
    as(hesh_bmp);
    p.systemstatus = 0;
    s.lazed = true;
    s.windoffset = 300;
    s.heshcorrection = 40;
    d.target_at(0, 0);
    d.tap('D');
    EXPECT_DOUBLE_EQ(s.ammo.Left, s.mbs1.Left + 260);
    EXPECT_TRUE(s.heshcorrecting);
    EXPECT_EQ(s.lazed, visual);
    d.tap('R');
    s.Imgrange.Left += 300;
    d.tap('R');
    EXPECT_FLOAT_EQ(s.heshcorrection, 300);
    EXPECT_TRUE(s.layready);
    EXPECT_EQ(s.Lblammotype.Caption, visual ? "FIN" : "DST ");
    s.lazed = false;
    s.gunloaded = true;
    d.tap('D');
    EXPECT_FLOAT_EQ(s.heshcorrection, visual ? 0 : 300) << "an unlased visual round drops it";
}

TEST_P(gun, wrong_round_no_target_and_no_round)
{
    s.nature = hesh_bmp;
    s.Cmdautolay.Enabled = true;
    d.tap('D');
    EXPECT_TRUE(s.gunloaded && !s.Cmdautolay.Enabled);
    EXPECT_EQ(d.pc.of_kind("sound").back(), "selechesh.wav");
    as(fin_tank);
    s.Imgtargets.Visible = false;
    d.tap('D');
    EXPECT_FALSE(s.gunloaded || s.Timloading.Enabled);
    d.tap('D');
    EXPECT_EQ(p.recrounds[1], 1);
}

TEST_P(gun, with_voices_off_the_sights_differ_in_the_wrong_round_and_the_explosion)
{
    p.voiceson = false;
    const struct {
        int nature;
        const char* line;
        const char* file;
    } wrong[] = {{fin_tank, "COMMANDER : SELECT FIN", "selectfin.wav"},
                 {hesh_bmp, "COMMANDER : SELECT HESH", "selechesh.wav"},
                 {coax_transport, "COMMANDER : SELECT COAX", "selectcoax.wav"}};
    for (const auto& w : wrong) {
        as(w.nature);
        s.ammoselected = (w.nature + 1) % 3;
        d.pc.log.clear();
        d.tap('D');
        EXPECT_EQ(d.crew(), w.line);
        EXPECT_EQ(d.pc.of_kind("sound"), std::vector<std::string>(visual ? 0 : 1, w.file));
        EXPECT_FALSE(s.voicebusy);
    }
    as(fin_tank);
    d.target_at(fall_left() - 200, fall_top() - 150);
    d.pc.log.clear();
    d.tap('D');
    EXPECT_EQ(d.pc.of_kind("sound"),
              (std::vector<std::string>{"fire.wav", visual ? "explode1.wav" : "explode.wav"}));
}

TEST_P(gun, a_held_call_is_over_so_long_after_the_first_of_two)
{
    s.nature = hesh_bmp;
    d.tap('D');   // the wrong round
    d.pc.wait(2);
    d.tap('D');
    d.pc.wait(visual ? 1.9 : 0.9);
    EXPECT_TRUE(s.voicebusy);
    d.pc.wait(0.2);
    EXPECT_FALSE(s.voicebusy);
    d.tap('D');   // the count begins anew
    d.pc.wait(visual ? 3.9 : 2.9);
    EXPECT_TRUE(s.voicebusy);
}

TEST_P(gun, a_running_call_holds_back_effects_and_the_release_ends_coax_alone)
{
    const struct {
        int nature;
        bool call;
        const char* pressed;    // what is heard while the trigger is held, and
        const char* released;   // afterwards
    } cases[] = {{coax_transport, false, "coax.wav", ""},
                 {coax_transport, true, "", ""},
                 {fin_tank, false, "fire.wav", "fire.wav"},
                 {fin_tank, true, visual ? "fire.wav" : "", visual ? "fire.wav" : ""},
                 {hesh_bmp, false, "fire.wav", "fire.wav"},
                 {hesh_bmp, true, visual ? "fire.wav" : "", visual ? "fire.wav" : ""}};
    const auto heard = [&] { return std::filesystem::path(d.pc.playing).filename().string(); };
    s.targetlife = 500;
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.nature << (c.call ? " in a call" : ""));
        as(c.nature);
        d.target_at(-9000, -9000);
        if (c.call) {
            s.ammoselected = (c.nature + 1) % 3;
            d.tap('D');
            as(c.nature);
        }
        d.pc.key_down('D');
        EXPECT_EQ(heard(), c.pressed);
        d.pc.key_up('D');
        EXPECT_EQ(heard(), c.released);
        d.pc.wait(9);   // the loader's call is over too
    }
}

// On the visual sight he is silent until the deselect, on the thermal one while the burst goes on.
TEST_P(gun, the_loader_keeps_his_peace_after_a_coax_burst_and_his_line_comes_all_the_same)
{
    const struct {
        bool release, deselect;
        const char* visual;
        const char* thermal;
    } cases[] = {{false, false, "coax.wav", "coax.wav"},
                 {true, false, "coax.wav", "loaded.wav"},
                 {true, true, "loaded.wav", "loadfire.wav"}};
    s.targetlife = 500;
    d.tap('Q');
    for (const auto& c : cases) {
        as(coax_transport);
        d.target_at(-9000, -9000);
        d.pc.log.clear();
        s.lblcrew.Caption.clear();
        d.pc.key_down('D');   // misses, so that the loader reports again
        if (c.release) d.pc.key_up('D');
        if (c.deselect) d.tap('W');
        d.pc.wait(1.1);
        EXPECT_EQ(d.pc.of_kind("sound").back(), visual ? c.visual : c.thermal);
        EXPECT_EQ(d.moments("LOADER :- LOADED !!").size(), 1U);
        d.pc.key_up('D');
        d.pc.wait(5);
    }
}

TEST_P(gun, selecting_again_steps_on_and_the_visual_record_says_so)
{
    d.tap('E');
    EXPECT_EQ(s.Lblammotype.Caption, "DST");
    EXPECT_EQ(p.recammo[1], visual ? "DST" : "FIN");
}

TEST_P(gun, the_deselect_keeps_a_round_for_the_target_that_is_up_and_a_correction_till_correct)
{
    const struct {
        bool up, all;
        bool loaded;
        float correction;
    } cases[] = {
        {true, true, true, 0}, {true, false, true, 40}, {false, true, false, 0}, {false, false, false, 40}};
    for (const auto& c : cases) {
        d.tap('E');
        s.gunloaded = s.Imgloaded.Visible = true;
        s.heshcorrection = 40;
        s.heshcorrecting = true;
        s.Imgtargets.Visible = c.up;
        p.heshcorrectall = c.all;
        d.tap('W');
        EXPECT_EQ(s.gunloaded, c.loaded);
        EXPECT_EQ(s.Imgloaded.Visible, c.loaded) << "GUN READY";
        EXPECT_FLOAT_EQ(s.heshcorrection, c.correction);
        EXPECT_FALSE(s.ammoarmed || s.heshcorrecting);
    }
}

TEST_P(gun, loads_again_after_a_miss)
{
    d.target_at(-9000, -9000);
    d.tap('D');
    d.pc.wait(visual ? 2.9 : 3.9);
    EXPECT_FALSE(s.gunloaded);
    d.pc.wait(0.2);
    EXPECT_TRUE(s.gunloaded);
}

// The order on the thermal sight and the lay on the visual one start the loader.
TEST(loader, takes_his_time_by_nature_and_sight)
{
    const struct {
        sight_kind sight;
        int engagements;
        double seconds;
    } cases[] = {{sight_kind::visual, 4, 4},  {sight_kind::visual, 3, 4},  {sight_kind::visual, 2, 1},
                 {sight_kind::thermal, 4, 5}, {sight_kind::thermal, 3, 5}, {sight_kind::thermal, 2, 2}};
    for (const auto& c : cases) {
        drill d(c.sight);
        const bool visual = d.screen().visual();
        d.t.shared.engagementtype = c.engagements;
        d.start();
        d.pc.advance(visual ? 7.9 : 7);
        while (!d.screen().Timloading.Enabled) d.pc.wait(0.1);
        d.pc.wait(c.seconds - 0.2);
        EXPECT_FALSE(d.screen().gunloaded) << c.engagements;
        d.pc.wait(0.3);
        EXPECT_TRUE(d.screen().gunloaded) << c.engagements;
        EXPECT_EQ(d.screen().Imgloaded.Visible, c.engagements != 2);
    }
}

TEST(wind, carries_by_half_a_target_a_degree_rounded_down)
{
    const struct {
        int bias, twips;   // for a target 385 twips wide
    } cases[] = {{-3, -578}, {-2, -385}, {-1, -193}, {0, 0}, {1, 192}, {2, 385}, {3, 577}};
    for (const auto& c : cases) {
        drill d(sight_kind::visual);
        d.t.shared.windbias = c.bias;
        d.present(6);
        EXPECT_EQ(d.screen().windoffset, c.twips) << c.bias;
    }
}

TEST_P(gun, coax_bursts_are_judged_on_the_place_before)
{
    d.tap('Q');
    as(coax_transport);
    d.pc.wait(5);   // no call running any more
    const int needed = p.coaxbursts + (visual ? 1 : 2);
    s.ammo.Left = 0;
    for (int burst = 0; burst <= needed; ++burst) {
        ASSERT_FALSE(s.targethit) << burst;
        d.pc.key_down('D');
        EXPECT_TRUE(s.Timcoax.Enabled);
        EXPECT_EQ(d.pc.playing.ends_with("coax.wav"), burst < needed) << "the kill's sounds cut it off";
        d.pc.wait(0.1);
        d.target_at(s.ammo.Left - 100, s.ammo.Top - 100);   // around where this burst goes
        d.pc.key_up('D');
        EXPECT_FALSE(s.Timcoax.Enabled || s.ammo.Visible);
    }
    EXPECT_TRUE(s.targethit);
    EXPECT_EQ(s.coaxhits, 0);
    EXPECT_TRUE(s.gunloaded);
}

TEST(visual_gun, a_hesh_round_fired_with_the_lay_held_relays)
{
    drill d(sight_kind::visual);
    gunnery_screen& s = d.screen();
    d.t.shared.engagementtype = 3;
    d.present(6);
    d.t.random.source = [] { return 0.5; };
    for (const char key : {'E', 'R', 'R'}) d.tap(key);
    d.pc.wait(3);
    d.target_at(4330, 950);
    d.tap('A');
    const double range = s.Imgrange.Top;
    d.pc.key_down('S');
    d.pc.wait(2.1);
    ASSERT_GT(s.Imgrange.Top, range + 2000);
    const double laid = s.Imgrange.Top, target = s.Imgtargets.Top;
    d.tap('D');
    EXPECT_DOUBLE_EQ(s.Imgtargets.Top, target - 21 * 110);
    EXPECT_DOUBLE_EQ(s.Imgrange.Top, laid - 20 * 110);
    EXPECT_NEAR(s.ammo.Top, 1140 + 2200 - 21 * 110, 0.31);
    EXPECT_EQ(d.t.shared.rechit[1], "YES") << "it still falls on the target";
    d.pc.key_up('S');
}

TEST(input, keys_need_their_option_and_most_of_them_a_practice)
{
    drill d(sight_kind::visual);
    gunnery_screen& s = d.screen();
    d.set_up();
    for (const char key : {'A', 'S', 'D', 'Q', 'W', 'E', 'R'}) d.tap(key);
    EXPECT_FALSE(s.lazed || s.timautolay.Enabled || s.ammoarmed);
    const double left = s.Imgrange.Left;
    d.hold('H', 0.1);
    EXPECT_GT(s.Imgrange.Left, left);
    d.start();
    d.tap('E');
    d.t.shared.keyboardselected = false;
    d.tap('Q');
    EXPECT_NE(s.Lblammotype.Caption, "COAX");
}

TEST(input, the_sticks_other_buttons_do_nothing_and_none_works_before_the_practice)
{
    drill d(sight_kind::visual);
    gunnery_screen& s = d.screen();
    d.set_up();
    d.t.shared.joyselected = true;
    d.pc.stick_button(3, true);
    EXPECT_FALSE(s.lazed);
    d.pc.click(s.Cmdstartsim);
    d.pc.stick_button(2, true);
    EXPECT_EQ(s.Lblammotype.Caption, "") << "no weapon can be chosen from the stick";
    d.tap('E');
    d.pc.wait(13);   // a FIN target is up and the gun is loaded
    const std::string selected = s.Lblammotype.Caption;
    for (const int other : {0, 5, -1, 32767}) {
        d.pc.stick_button(other, true);
        d.pc.stick_button(other, false);
        EXPECT_TRUE(s.gunloaded && s.Lblammotype.Caption == selected) << other;
        EXPECT_FALSE(s.lazed || s.timautolay.Enabled) << other;
    }
}

TEST(input, screen_buttons_follow_the_practice)
{
    drill d(sight_kind::visual);
    gunnery_screen& s = d.screen();
    d.t.shared.mouseselected = true;
    d.set_up();
    d.pc.click(s.Cmdselectmain);
    EXPECT_EQ(s.Lblammotype.Caption, "");
    d.start();
    d.pc.wait(8);
    d.pc.click(s.Cmdselectmain);
    EXPECT_TRUE(s.Cmdlaze.Enabled && s.Cmdfire.Enabled && s.Cmdmaingun.Enabled);
    EXPECT_FALSE(s.Cmdcoax.Enabled || s.Cmdselectmain.Enabled);
    d.pc.press(s.Cmdlaze);
    EXPECT_TRUE(s.Cmdautolay.Enabled && s.lazed);
    d.pc.click(s.Cmdoff);
    EXPECT_TRUE(s.Cmdcoax.Enabled && s.Cmdselectmain.Enabled && s.Cmdlaze.Enabled);
    EXPECT_FALSE(s.Cmdautolay.Enabled || s.Cmdfire.Enabled);
}

}   // namespace
}   // namespace vorn
