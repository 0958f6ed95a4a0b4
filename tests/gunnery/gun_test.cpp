// The guns: selection, loading, the trigger, the flights and their hits; when keys, stick and buttons work.
#include "drill.h"
#include "gunnery/gunnery.h"

namespace vorn {
namespace {

// A FIN target at 1100 metres, 385 twips wide (thermal: 285); the main armament selected and loaded.
struct gun : each_sight {
    gun()
    {
        p.windbias = 2;
        d.present(6);
        d.tap('E');
        d.pc.wait(9);   // until the calls are over
        d.random(0.5);
    }
    // Where a FIN round falls if the random numbers are 0.5, twips in the sight window.
    double fall_left() { return visual ? 4525 + 64 : 4700 + (95 - 47); }
    double fall_top() { return visual ? 1700 : 2600; }
    void load(int nature)
    {
        s.nature = s.ammoselected = nature;
        s.gunloaded = true;
    }
    void miss() { d.target_at(-9000, -9000); }
    void wrong_round(int nature)
    {
        load(nature);
        s.ammoselected = (nature + 1) % 3;
        d.tap('D');
    }
};
INSTANTIATE_TEST_SUITE_P(sights, gun, testing::ValuesIn(both_sights), sight_name);

TEST_P(gun, fin_hits)
{
    ASSERT_TRUE(s.gunloaded && s.Imgloaded.Visible);
    d.target_at(fall_left() - 200, fall_top() - 150);
    d.tap('D');
    expect_at(s.ammo, fall_left(), fall_top(), "round");
    EXPECT_FALSE(s.ammo.Visible || s.gunloaded || s.Imgloaded.Visible);
    EXPECT_EQ(p.recfallx[1][1], -200);
    EXPECT_EQ(p.recfally[1][1], -150);
    EXPECT_EQ(p.recaimx[1][1], visual ? 56 : -10);   // 56.5 and -9.5, rounded to even
    EXPECT_EQ(p.recaimy[1][1], visual ? 602 : 8);    // 602.5 and 7.5, rounded to even
    EXPECT_EQ(d.crew(), "COMD: TARGET STOP !!");
    const double size = s.Imgtargets.Width + 100;
    EXPECT_TRUE(s.Imgexplode.Visible && s.Imgexplode.Width == size && s.Imgexplode.Height == size);
    EXPECT_EQ(s.Imgtargets.Fire, visual ? fire::flames : fire::hot);
    expect_at(s.Imgexplode, s.Imgtargets.Left, s.Imgtargets.Top - 100, "explosion");
    EXPECT_EQ(s.Imgexplode.Picture.source, visual ? ":explosion1" : ":hotexplosion1");
    EXPECT_TRUE(s.ammo.Width == (visual ? 20 : 10) && s.ammo.Height == s.ammo.Width) << "the smallest size";
    d.pc.wait(13.5 * timer_floor);
    EXPECT_TRUE(s.Imgexplode.Visible && s.Imgexplode.Picture.source.ends_with("14"));
    d.pc.wait(timer_floor);
    EXPECT_FALSE(s.Imgexplode.Visible);
    d.pc.wait(1);
    EXPECT_FALSE(s.Imgtargets.Visible);
    const texts sounds = d.sounds();
    EXPECT_EQ(texts(sounds.end() - 3, sounds.end()), (texts{"fire.wav", "targetstop.wav", "explode.wav"}));
    d.pc.show_strike({});
    d.random(draw_of(6));
    while (!s.Imgtargets.Visible) d.pc.wait(1);
    EXPECT_EQ(s.Imgtargets.Fire, fire::none) << "the next target doesn't burn";
    EXPECT_TRUE(d.pc.strikes.empty());
}

TEST_P(gun, a_round_on_the_edge_of_the_kill_box_misses)
{
    const double margin = static_cast<float>(s.Imgtargets.Width / 15);
    const double width = s.Imgtargets.Width;
    const struct {
        double left, top;   // of the fall, relative to the target
        bool hit;
    } cases[] = {{margin, 100, false},         {margin + 1, 100, true},
                 {width - margin, 100, false}, {width - margin - 1, 100, true},
                 {100, width - margin, false}, {100, width - margin - 1, true},
                 {100, margin - 1, !visual},   {100, 0, false}};
    for (const auto& c : cases) {
        load(fin_tank);
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

// FIN and HESH scatter up and down on the visual sight. FIN scatters to the right on both sights.
TEST_P(gun, rounds_scatter)
{
    miss();
    for (const auto& [draw, spread, across] : {std::tuple{0.0, -75, visual ? 128 : 95},
                                               {0.5, 0, visual ? 64 : 48},
                                               {0.9999, 74, visual ? 0 : 1}}) {
        d.random(draw);
        load(fin_tank);
        d.tap('D');
        expect_at(s.ammo, s.mbs1.Left + across, visual ? 1700 + spread : 2600, draw);
        load(hesh_bmp);
        d.tap('D');
        EXPECT_NEAR(s.ammo.Top, visual ? 1140 + 2200 + spread : 2650, 0.31) << draw;
        EXPECT_TRUE(s.ammo.Width == 20 && s.ammo.Height == 20) << "the smallest size";
    }
}

TEST_P(gun, hesh_is_carried_by_wind_and_correction)
{
    load(hesh_bmp);
    p.systemstatus = 0;
    s.lazed = true;
    s.windoffset = 300;
    s.heshcorrection = 40;
    d.target_at(0, 0);
    d.tap('D');
    EXPECT_DOUBLE_EQ(s.ammo.Left, s.mbs1.Left + 260);
    EXPECT_EQ(s.ammo.Width, 20) << "the smallest size";
    EXPECT_TRUE(s.heshcorrecting);
    EXPECT_EQ(s.lazed, visual);
    d.tap('R');
    s.Imgrange.Left += 300;
    d.tap('R');
    EXPECT_FLOAT_EQ(s.heshcorrection, 300);
    EXPECT_TRUE(s.layready && s.Cmdautolay.Enabled);
    EXPECT_EQ(s.Lblammotype.Caption, visual ? "FIN" : "DST ");
    s.lazed = false;
    s.gunloaded = true;
    d.tap('D');
    EXPECT_FLOAT_EQ(s.heshcorrection, visual ? 0 : 300) << "the visual sight clears it without a lase";
    d.tap('A');
    EXPECT_FALSE(s.heshcorrecting) << "a lase ends the correction";
    p.systemstatus = 2;
    s.gunloaded = true;
    d.tap('D');
    EXPECT_FALSE(s.heshcorrecting) << "no correction without the full system";
}

TEST_P(gun, fires_at_nothing)
{
    s.Imgtargets.Visible = false;
    d.tap('D');
    EXPECT_FALSE(s.gunloaded || s.Timloading.Enabled);
    d.tap('D');
    EXPECT_EQ(p.recrounds[1], 1);
}

TEST_P(gun, a_wrong_round_is_not_fired)
{
    for (const auto& [nature, line, file] : {std::tuple{fin_tank, "COMMANDER : SELECT FIN", "selectfin.wav"},
                                             {hesh_bmp, "COMMANDER : SELECT HESH", "selechesh.wav"},
                                             {coax_transport, "COMMANDER : SELECT COAX", "selectcoax.wav"}})
        for (const bool voices : {false, true}) {
            p.voiceson = voices;
            s.Cmdautolay.Enabled = true;
            d.pc.log.clear();
            wrong_round(nature);
            EXPECT_EQ(d.crew(), line);
            EXPECT_EQ(d.sounds(), texts(voices || !visual ? 1 : 0, file));
            EXPECT_EQ(s.voicebusy, voices);
            EXPECT_TRUE(s.gunloaded && !s.Cmdautolay.Enabled);
            d.pc.wait(5);
        }
}

TEST_P(gun, a_kill_with_voices_off_plays_an_explosion)
{
    p.voiceson = false;
    d.target_at(fall_left() - 200, fall_top() - 150);
    d.pc.log.clear();
    d.tap('D');
    EXPECT_EQ(d.sounds(), (texts{"fire.wav", visual ? "explode1.wav" : "explode.wav"}));
}

TEST_P(gun, a_second_call_ends_with_the_first)
{
    wrong_round(hesh_bmp);
    d.pc.wait(2);
    d.tap('D');
    d.pc.wait(visual ? 1.999 : 0.999);
    EXPECT_TRUE(s.voicebusy);
    d.pc.wait(0.002);
    EXPECT_FALSE(s.voicebusy);
    d.tap('D');
    d.pc.wait(visual ? 3.9 : 2.9);
    EXPECT_TRUE(s.voicebusy);
}

TEST_P(gun, a_call_silences_effects_and_the_release_stops_coax_only)
{
    const auto playing = [&] { return to_utf8(from_utf8(d.pc.playing).filename()); };
    s.targetlife = 500;
    miss();
    for (const int nature : {coax_transport, fin_tank, hesh_bmp})
        for (const bool call : {false, true}) {
            SCOPED_TRACE(testing::Message() << nature << (call ? " in a call" : ""));
            const bool coax = nature == coax_transport;
            const char* const shot = coax ? "coax.wav" : "fire.wav";
            if (call) wrong_round(nature);
            load(nature);
            d.pc.key_down('D');
            EXPECT_EQ(playing(), !call || (visual && !coax) ? shot : "");
            d.pc.key_up('D');
            EXPECT_EQ(playing(), coax || (call && !visual) ? "" : shot);
            d.pc.wait(9);   // until the loader's call is over
        }
}

// The loader is silent on the visual sight until the deselect, on the thermal sight during the burst. The
// crew line is shown anyway.
TEST_P(gun, the_loader_is_silent_after_a_coax_burst)
{
    s.targetlife = 500;
    d.tap('Q');
    miss();
    for (const auto& [release, deselect, last] : {std::tuple{false, false, "coax.wav"},
                                                  {true, false, visual ? "coax.wav" : "loaded.wav"},
                                                  {true, true, visual ? "loaded.wav" : "loadfire.wav"}}) {
        load(coax_transport);
        d.pc.log.clear();
        s.lblcrew.Caption.clear();
        d.pc.key_down('D');
        if (release) d.pc.key_up('D');
        if (deselect) d.tap('W');
        d.pc.wait(1.1);
        EXPECT_EQ(d.sounds().back(), last);
        EXPECT_EQ(d.times_of("LOADER :- LOADED !!").size(), 1U);
        d.pc.key_up('D');
        d.pc.wait(5);
    }
}

TEST_P(gun, selecting_main_again_takes_the_next_round)
{
    for (int again = 0; again < 2; ++again) {
        s.hasfired = true;
        s.Cmdfire.Enabled = false;
        d.tap('E');
        EXPECT_EQ(s.Lblammotype.Caption, "DST") << "each time the round after FIN";
        EXPECT_EQ(p.recammo[1], visual ? "DST" : "FIN");
        EXPECT_TRUE(s.Cmdfire.Enabled && !s.hasfired);
        EXPECT_EQ(s.autolaycount, visual ? 2 : 0) << "a lay needs a shorter hold on the visual sight";
    }
    s.Cmdfire.Enabled = false;
    s.autolaycount = 0;
    d.tap('R');
    EXPECT_TRUE(s.Cmdfire.Enabled && s.Lblammotype.Caption == "HESH" && s.autolaycount == 0);
    d.tap('R');
    d.tap('R');
    if (!visual) return;
    std::string dial;   // the name of each round and its place
    for (const char key : {'R', 'R', 'R', 'Q'}) {
        d.tap(key);
        dial += s.Lblammotype.Caption + ' ' + number_text(s.Lblammotype.Left) + ' ' +
                number_text(s.Lblammotype.Top) + ' ';
    }
    EXPECT_EQ(dial, "HESH 1160 2160 FIN 480 1680 DST 1060 2160 COAX 1260 1680 ");
}

TEST_P(gun, a_round_that_does_not_kill_leaves_a_mark_on_the_ground)
{
    d.target_at(fall_left() + 1, 0);
    d.tap('D');
    ASSERT_EQ(d.pc.strikes.size(), 1U);
    EXPECT_FALSE(s.ammo.Visible);
    const strike& seen = d.pc.strikes[0];
    EXPECT_TRUE(seen.round == round_kind::fin && seen.hot == !visual && seen.ground == &s.Imgrange);
    EXPECT_DOUBLE_EQ(seen.Left, fall_left() - s.Imgrange.Left);
    EXPECT_DOUBLE_EQ(seen.Top, fall_top() - s.Imgrange.Top);
    EXPECT_TRUE(seen.size == s.Imgtargets.Width && seen.wind == 2);
    d.target_at(fall_left() - 200, fall_top() - 150);
    s.gunloaded = true;
    d.tap('D');
    EXPECT_EQ(d.pc.strikes.size(), 1U) << "a kill leaves no strike";
    d.pc.click(s.Cmdstopsim);
    EXPECT_TRUE(d.pc.strikes.empty());
}

TEST_P(gun, deselecting_keeps_a_round_for_a_target_that_is_up)
{
    for (const auto& [up, correctall] :
         {std::pair{true, true}, {true, false}, {false, true}, {false, false}}) {
        d.tap('E');
        s.gunloaded = s.Imgloaded.Visible = true;
        s.heshcorrection = 40;
        s.heshcorrecting = true;
        s.Imgtargets.Visible = up;
        s.hasfired = true;
        s.coaxhits = 1;
        p.heshcorrectall = correctall;
        d.tap('W');
        EXPECT_TRUE(s.hasfired == visual && s.coaxhits == (visual ? 1 : 0));
        EXPECT_TRUE(s.gunloaded == up && s.Imgloaded.Visible == up);
        EXPECT_FLOAT_EQ(s.heshcorrection, correctall ? 0.0F : 40.0F);
        EXPECT_FALSE(s.ammoarmed || s.heshcorrecting);
        EXPECT_EQ(s.Lblammotype.Caption + s.Lblrange.Caption, "");
        EXPECT_FALSE(visual ? s.laze.Visible : s.Imglam.Visible || s.imgbam.Visible || !s.Imgstadia.Visible);
        d.tap('Q');
        EXPECT_TRUE(visual || (s.Imglam.Visible && !s.Imgstadia.Visible));
        d.tap('W');
    }
}

TEST_P(gun, loads_again_after_a_miss)
{
    s.targetlife = 500;
    for (const int nature : {fin_tank, hesh_bmp}) {
        s.hasfired = false;
        load(nature);
        miss();
        d.tap('D');
        d.pc.wait(visual ? 2.999 : 3.999);
        EXPECT_FALSE(s.gunloaded);
        d.pc.wait(0.002);
        EXPECT_TRUE(s.gunloaded && s.Imgloaded.Visible);
        EXPECT_EQ(d.sounds().back(), "loaded.wav") << "the call for the second round is without FIRE";
    }
}

TEST_P(gun, a_coax_burst_is_assessed_where_the_last_one_ended)
{
    d.tap('Q');
    EXPECT_TRUE(visual || s.Imglam.Visible);
    load(coax_transport);
    d.pc.wait(5);   // until the calls are over
    d.random(0.9999);
    const int needed = p.coaxbursts + (visual ? 1 : 2);
    s.ammo.Left = 0;
    for (int burst = 0; burst <= needed; ++burst) {
        ASSERT_FALSE(s.targethit) << burst;
        d.pc.key_down('D');
        EXPECT_TRUE(s.Timcoax.Enabled);
        EXPECT_EQ(d.pc.playing.ends_with("coax.wav"), burst < needed) << "the kill has its own sounds";
        d.pc.wait(0.1);
        // The coax error is 30 across and 20 down, the largest scatter 99 across and down.
        EXPECT_NEAR(s.ammo.Top, (visual ? 1140 + 2200 : 2600 + 1100 / 7.0) + 20 + 99, 0.01);
        EXPECT_EQ(s.ammo.Left, s.mbs1.Left + 30 + 99);
        EXPECT_TRUE(s.ammo.Visible && s.ammo.Width == (visual ? 5 : 15));
        ASSERT_FALSE(d.pc.strikes.empty());
        EXPECT_EQ(d.pc.strikes.back().round, round_kind::coax);
        d.target_at(s.ammo.Left - 100, s.ammo.Top - 100);
        d.pc.key_up('D');
        EXPECT_FALSE(s.Timcoax.Enabled || s.ammo.Visible);
    }
    EXPECT_TRUE(s.targethit);
    EXPECT_EQ(s.coaxhits, 0);
    EXPECT_TRUE(s.gunloaded);
    s.targethit = false;
    for (int presses = 0; presses < 2; ++presses) d.pc.key_down('D');
    EXPECT_EQ(s.coaxhits, visual ? 1 : 2) << "an auto-repeat is a burst on the thermal sight only";
}

// The loader starts with the order on the thermal sight, after the commander's lay on the visual one.
TEST(loader, time_by_nature_and_sight)
{
    for (const sight_kind sight : both_sights)
        for (const int engagements : {2, 3, 4}) {
            drill d(sight);
            const gunnery_screen& s = d.screen();
            const bool coax = engagements == 2;
            d.t.shared.engagementtype = engagements;
            d.start();
            d.pc.advance(s.visual() ? 7.9 : 7);
            while (!s.Timloading.Enabled) d.pc.wait(0.1);
            d.pc.wait((coax ? 1 : 4) + (s.visual() ? 0 : 1) - 0.2);
            EXPECT_FALSE(s.gunloaded) << engagements;
            d.pc.wait(0.3);
            EXPECT_TRUE(s.gunloaded) << engagements;
            EXPECT_EQ(s.Imgloaded.Visible, !coax);
        }
}

TEST(wind, offset_is_rounded_down_and_cleared_by_the_visual_reset)
{
    for (const auto& [bias, twips] : {std::pair{-3, -578}, {-1, -193}, {0, 0}, {3, 577}}) {
        drill d(sight_kind::visual);
        d.t.shared.windbias = bias;
        d.present(6);
        EXPECT_EQ(d.screen().windoffset, twips) << bias;
        d.pc.click(d.screen().Cmdstopsim);
        EXPECT_EQ(d.screen().windoffset, 0);
    }
}

struct visual_input : on_visual {};

TEST(hesh, a_round_fired_with_the_autolay_held_takes_the_lay_back)
{
    const struct {
        int position, range, steps;
        double mark;   // how far below its place before the lay the lase mark ends
        const char* hit;
    } cases[] = {{6, 1100, 21, 0, "YES"}, {18, 2300, 42, 100, ""}};
    for (const auto& c : cases) {
        drill d(sight_kind::visual);
        gunnery_screen& s = d.screen();
        d.t.shared.engagementtype = 3;
        d.present(c.position);
        d.random(0.5);
        for (const char key : {'E', 'R', 'R'}) d.tap(key);
        d.pc.wait(3);
        d.target_at(4330, 950);
        d.tap('A');
        const double range = s.Imgrange.Top, mark = s.laze.Top;
        d.pc.key_down('S');
        d.pc.wait(2.1);
        ASSERT_GT(s.Imgrange.Top, range + 2000);
        const double laid = s.Imgrange.Top, target = s.Imgtargets.Top, across = s.laze.Left;
        s.heshcorrecting = true;
        s.windoffset = 100;
        d.tap('D');
        EXPECT_DOUBLE_EQ(s.Imgtargets.Top, target - c.steps * 110);
        EXPECT_DOUBLE_EQ(s.Imgrange.Top, laid - (c.steps - 1) * 110);
        EXPECT_DOUBLE_EQ(s.laze.Top, mark + c.mark);
        EXPECT_DOUBLE_EQ(s.laze.Left, across - 100);
        EXPECT_NEAR(s.ammo.Top, 1140 + 2 * c.range - c.steps * 110, 0.31);
        EXPECT_EQ(d.t.shared.rechit[1], c.hit);
    }
}

TEST_F(visual_input, keys_need_the_option_and_most_a_running_practice)
{
    d.set_up();
    s.gunloaded = s.heshcorrecting = true;   // both can be true outside a practice
    s.correctstep = 0;
    for (const char key : {'A', 'S', 'D', 'Q', 'E', 'R', 'W'}) d.tap(key);
    EXPECT_TRUE(s.gunloaded && s.heshcorrecting);
    EXPECT_FALSE(s.lazed || s.timautolay.Enabled || s.ammoarmed || s.Cmdcoax.Enabled || s.correctstep > 0);
    d.pc.key_down('S');
    EXPECT_FALSE(s.timautolay.Enabled);
    d.pc.key_up('S');
    const double left = s.Imgrange.Left;
    d.hold('H', 0.1);
    EXPECT_GT(s.Imgrange.Left, left);
    d.start();
    d.tap('E');
    p.keyboardselected = false;
    d.tap('Q');
    EXPECT_NE(s.Lblammotype.Caption, "COAX");
}

TEST_F(visual_input, stick_buttons_1_to_4_work_in_a_practice_only)
{
    d.set_up();
    p.joyselected = true;
    d.pc.stick_button(3, true);
    EXPECT_FALSE(s.lazed);
    d.pc.click(s.Cmdstartsim);
    d.pc.stick_button(2, true);
    EXPECT_EQ(s.Lblammotype.Caption, "") << "the stick can't select a weapon";
    d.tap('E');
    d.pc.wait(13);   // until a FIN target is up and the gun is loaded
    const std::string selected = s.Lblammotype.Caption;
    for (const int other : {0, 5, -1, 32767}) {
        d.pc.stick_button(other, true);
        d.pc.stick_button(other, false);
        EXPECT_TRUE(s.gunloaded && s.Lblammotype.Caption == selected) << other;
        EXPECT_FALSE(s.lazed || s.timautolay.Enabled) << other;
    }
    d.pc.stick_button(4, true);
    EXPECT_TRUE(s.timautolay.Enabled);
    d.pc.stick_button(4, false);
    EXPECT_FALSE(s.timautolay.Enabled);
    p.joyselected = false;
    d.pc.stick_button(3, true);
    EXPECT_FALSE(s.lazed);
}

TEST_F(visual_input, buttons_are_enabled_by_the_state_of_the_practice)
{
    p.mouseselected = true;
    d.set_up();
    d.pc.click(s.Cmdselectmain);
    EXPECT_EQ(s.Lblammotype.Caption, "");
    d.start();
    d.pc.wait(8);
    d.pc.click(s.Cmdselectmain);
    EXPECT_TRUE(s.Cmdlaze.Enabled && s.Cmdfire.Enabled && s.Cmdmaingun.Enabled);
    EXPECT_FALSE(s.Cmdcoax.Enabled || s.Cmdselectmain.Enabled);
    EXPECT_TRUE(s.Imgcoax.Visible && !s.Imghesh.Visible) << "only the lamp of the main armament is lit";
    d.pc.wait(2.001);
    EXPECT_TRUE(s.Lblcharge.Visible);
    d.pc.press(s.Cmdlaze);
    EXPECT_TRUE(s.Cmdautolay.Enabled && s.lazed && !s.Lblcharge.Visible);
    d.pc.wait(2.001);
    s.laze.Visible = true;
    d.pc.click(s.Cmdoff);
    EXPECT_FALSE(s.Lblcharge.Visible || s.laze.Visible);
    EXPECT_TRUE(s.Cmdcoax.Enabled && s.Cmdselectmain.Enabled && s.Cmdlaze.Enabled);
    EXPECT_FALSE(s.Cmdautolay.Enabled || s.Cmdfire.Enabled || s.Cmdmaingun.Enabled);
    EXPECT_TRUE(s.Imgcoax.Visible && s.Imghesh.Visible);
    d.pc.wait(3);
    EXPECT_FALSE(s.Lblcharge.Visible) << "no charging after the deselect";
    d.pc.click(s.Cmdcoax);
    EXPECT_TRUE(s.Cmdlaze.Enabled && s.Cmdfire.Enabled && !s.Imgcoax.Visible && s.Imghesh.Visible);
    EXPECT_FALSE(s.Cmdmaingun.Enabled || s.Cmdselectmain.Enabled);
}

}   // namespace
}   // namespace vorn
