// Traverse, laser, autolay and the marks of the thermal sight.
#include <utility>

#include "drill.h"
#include "gunnery/gunnery.h"

namespace vorn {
namespace {

constexpr double tick = 0.016;

// The picture is far from every limit.
struct traverse : each_sight {
    traverse()
    {
        d.set_up();
        d.target_at(500, 700);
    }
    void ticks(int n) { d.pc.wait(n * tick + 0.001); }
};
INSTANTIATE_TEST_SUITE_P(sights, traverse, testing::ValuesIn(both_sights), sight_name);

TEST_P(traverse, a_held_key_moves_picture_and_target)
{
    const double five = visual ? 5 * 20 + 15 : 5 * 30;
    const double left = s.Imgrange.Left, top = s.Imgrange.Top;
    for (const auto& [key, across, down] :
         {std::tuple{'H', five, 0.0}, {'J', 0.0, 0.0}, {'U', 0.0, five}, {'N', 0.0, 0.0}}) {
        d.pc.key_down(key);
        ticks(2);
        d.pc.key_down(key);   // auto-repeat
        d.pc.wait(3 * tick);
        d.pc.key_up(key);
        ticks(10);
        expect_at(s.Imgrange, left + across, top + down, key);
        expect_at(s.Imgtargets, 500 + across, 700 + down, key);
    }
}

TEST_P(traverse, limits_are_tested_before_the_move)
{
    const double near = visual ? -100 : -10;
    for (const auto& [key, along, limit, inwards] :
         {std::tuple{'H', &area::Left, near, -1},
          {'U', &area::Top, near, -1},
          {'J', &area::Left, visual ? 1.0 - 64425 + 4500 : 1.0 - 21780 + 9500, 1},
          {'N', &area::Top, visual ? 1.0 - 31815 + 4000 : 1.0 - 11520 + 5800, 1}}) {
        s.Imgrange.*along = limit;
        d.hold(key, 0.1);
        EXPECT_DOUBLE_EQ(s.Imgrange.*along, limit) << key;
        s.Imgrange.*along = limit + inwards;
        d.hold(key, 0.1);   // one step, past the limit
        EXPECT_DOUBLE_EQ(std::abs(s.Imgrange.*along - (limit + inwards)), visual ? 21 : 30) << key;
    }
}

TEST_P(traverse, the_stick_sets_the_rate)
{
    p.joyselected = true;
    p.joyxcentre = p.joyycentre = 32768;
    p.joyxfactor = p.joyyfactor = 1000;
    const double left = s.Imgrange.Left, top = s.Imgrange.Top;
    const struct {
        int x, y;
        double across, down;
    } moves[] = {{30768, 34768, 0, 0}, {30767, 32768, 1, 0}, {34867, 32768, 0, 0},   {34868, 32768, -1, 0},
                 {0, 32768, 308, 0},   {32768, 30767, 0, 1}, {32768, 65535, 0, -307}};
    for (const auto& m : moves) {
        s.Imgrange.Left = left;
        s.Imgrange.Top = top;
        d.pc.stick(m.x, m.y);
        expect_at(s.Imgrange, left + m.across, top + m.down, std::to_string(m.x) + ' ' + std::to_string(m.y));
    }
    s.Imgrange.Left = 1 - s.Imgrange.Width + (visual ? 4500 : 5000);
    const double stopped = s.Imgrange.Left;
    d.pc.stick(65535, 32768);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, stopped);
    p.joyselected = false;
    d.pc.stick(0, 0);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, stopped);
}

TEST(visual_traverse, two_opposite_keys_share_the_acceleration)
{
    drill d(sight_kind::visual);
    gunnery_screen& s = d.screen();
    d.set_up();
    const double left = s.Imgrange.Left;
    d.pc.key_down('H');
    d.pc.key_down('J');
    d.pc.wait(2 * tick + 0.001);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, left - 2 * 41);   // in the direction of the last press
    d.pc.key_up('H');
    d.pc.wait(3 * tick);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, left - 82 - (1 + 2 + 3));
    d.pc.key_up('J');
    d.hold('H', 2 * tick + 0.001);
    EXPECT_DOUBLE_EQ(s.Imgrange.Left, left - 88 + 21 + 22);
}

// The main armament is selected; a target is up at 1100 metres, 385 twips wide.
struct visual_laser : on_visual {
    visual_laser()
    {
        d.present(6);
        d.tap('E');
        d.target_at(4300, 1000);
    }
};

TEST_F(visual_laser, on_target_gives_range_mark_and_lay)
{
    d.tap('A');
    EXPECT_EQ(s.Lblrange.Caption, "1100");
    EXPECT_TRUE(s.laze.Visible && s.layready && s.lazed && s.Cmdautolay.Enabled);
    EXPECT_TRUE(s.laze.Height == 385 && s.laze.Width == 770);
    EXPECT_TRUE(s.laze.Left == 4170 && s.laze.Top == 977.5);
    EXPECT_EQ(p.reclazex[1], -32);   // -32.5 across, 52.5 down: halves round to even
    EXPECT_EQ(p.reclazey[1], 52);
    d.pc.wait(1.999);
    EXPECT_FALSE(s.Lblcharge.Visible);
    d.pc.wait(0.002);
    EXPECT_TRUE(s.Lblcharge.Visible);
    d.tap('A');
    d.pc.wait(1.5);
    EXPECT_FALSE(s.Lblcharge.Visible) << "until the second tick";
    d.pc.wait(0.5);
    EXPECT_TRUE(s.Lblcharge.Visible);
}

TEST_F(visual_laser, the_mark_depends_on_the_aim)
{
    d.random(0.9999);
    for (const double left : {4525.0, 4525 - s.Imgtargets.Width}) {
        d.target_at(left, 1000);   // an aim exactly on the edge is beside the target
        s.laze.Visible = false;
        d.tap('A');
        EXPECT_TRUE(s.laze.Visible && s.laze.Height == 599 && s.laze.Width == 1198 &&
                    s.laze.Left == 4410 - 599);
        EXPECT_TRUE(s.layready);
    }

    s.layready = s.laze.Visible = false;
    d.target_at(4300, 1035 - 385);   // its lower edge at the top of the ring
    d.tap('A');
    EXPECT_FALSE(s.layready || s.laze.Visible);
    d.target_at(4300, 1036 - 385);
    d.tap('A');
    EXPECT_TRUE(s.layready && s.laze.Visible);

    s.Imgtargets.Visible = s.laze.Visible = false;
    d.tap('A');
    EXPECT_TRUE(s.laze.Visible && s.laze.Width == 200 && s.laze.Height == 100 && s.laze.Left == 4525);
    for (const char weapon : {'E', 'Q'}) {
        s.laze.Visible = s.hasfired = true;
        d.tap(weapon);
        EXPECT_FALSE(s.laze.Visible || s.hasfired);
    }
}

TEST_F(visual_laser, degraded)
{
    p.systemstatus = 2;
    d.tap('A');
    EXPECT_EQ(s.Lblrange.Caption, "1100");
    EXPECT_FALSE(s.laze.Visible);
    const double top = s.Imgrange.Top;
    d.hold('S', 3);
    EXPECT_DOUBLE_EQ(s.Imgrange.Top, top);
    EXPECT_TRUE(s.layready);

    d.tap('W');
    d.tap('E');
    s.lazed = false;
    p.systemstatus = 3;
    d.tap('A');
    EXPECT_EQ(s.Lblrange.Caption, "");
    EXPECT_FALSE(s.lazed);
}

TEST_F(visual_laser, a_lase_raises_a_near_range_to_600_until_the_range_file_is_read_again)
{
    p.targetrange[6] = 450;
    d.tap('W');
    d.tap('A');   // without a weapon: the range but no mark
    EXPECT_EQ(s.Lblrange.Caption, "600");
    EXPECT_EQ(p.targetrange[6], 600);
    EXPECT_FALSE(s.laze.Visible || s.layready);
    EXPECT_TRUE(s.Cmdautolay.Enabled);
    d.pc.click(s.Cmdstopsim);
    EXPECT_EQ(p.targetrange[6], 1100);
}

TEST_F(visual_laser, lays)
{
    // Target: steps of 110, then 11 of 20 for FIN or 21 of 10 for HESH. Picture: one step less in each stage.
    const struct {
        const char* keys;
        int range;
        double seconds, target, picture, mark;
        bool early, lead;   // whether an early release lays too; whether the lay has a lead
        int ammo;
    } lays[] = {{"WE", 1000, 1, 3 * 110 + 11 * 20, 2 * 110 + 10 * 20, 500, true, false, fin_tank},
                {"WERR", 1000, 1, 17 * 110 + 21 * 10, 16 * 110 + 20 * 10, 2000, false, true, hesh_bmp},
                {"WERR", 2200, 1, 39 * 110 + 21 * 10, 38 * 110 + 20 * 10, -4400, false, true, hesh_bmp},
                {"WERR", 2300, 1, 41 * 110 + 21 * 10, 40 * 110 + 20 * 10, 41 * 110 + 21 * 10 - 4600, false,
                 true, hesh_bmp},
                {"WQ", 1000, 2, 19 * 110, 18 * 110, 2000, true, false, coax_transport}};
    for (const auto& l : lays) {
        SCOPED_TRACE(testing::Message() << l.keys << ' ' << l.range);
        s.currentrange = l.range;
        for (const char* key = l.keys; *key != 0; ++key) d.tap(*key);
        s.leadperstep = 0.01F;
        d.target_at(4300, 1000);
        d.tap('A');
        s.lazed = false;   // the lay must set lazed and ammoselected itself
        s.ammoselected = (l.ammo + 1) % 3;
        const double top = s.Imgrange.Top, left = s.Imgrange.Left, mark = s.laze.Top;
        d.pc.key_down('S');
        d.pc.wait(l.seconds - 0.001);
        EXPECT_DOUBLE_EQ(s.Imgrange.Top, top);
        d.pc.wait(0.002);
        EXPECT_DOUBLE_EQ(s.Imgtargets.Top, 1000 + l.target);
        EXPECT_DOUBLE_EQ(s.Imgrange.Top, top + l.picture);
        EXPECT_NEAR(s.Imgrange.Left, left + (l.lead ? 0.01 * l.target : 0), 0.1);
        EXPECT_NEAR(s.Imgtargets.Left, 4300 + (l.lead ? 0.01 * l.target : 0), 0.1);
        EXPECT_DOUBLE_EQ(s.laze.Top, mark + l.mark);
        EXPECT_TRUE(s.lazed && !s.layready);
        EXPECT_EQ(s.ammoselected, l.ammo);
        d.pc.key_up('S');
        d.hold('S', 3);
        EXPECT_DOUBLE_EQ(s.Imgrange.Top, top + l.picture) << "one lay per lase";
        d.target_at(4300, 1000);
        d.tap('A');
        d.tap('S');
        EXPECT_EQ(s.Imgtargets.Top == 1000 + l.target, l.early);
        EXPECT_EQ(s.lazed, l.early);
        EXPECT_FALSE(s.layready);
    }
}

TEST_F(visual_laser, pressing_the_autolay_in_the_correction_sets_the_lead)
{
    d.tap('A');
    s.layready = false;   // no lay
    s.windoffset = 300;
    for (const auto& [correcting, picture_top, lead, mark] :
         {std::tuple{false, -6000, 0.0F, 4170},
          {true, -6000, 0.05F, 4170 + 300},
          {true, 0, 0.05F, 4170 + 600},   // a Top of 0 leaves the lead unchanged
          {true, 3000, -0.1F, 4170 + 900}}) {
        s.heshcorrecting = correcting;
        s.Imgrange.Top = picture_top;
        d.pc.key_down('S');
        d.pc.key_down('S');   // auto-repeat
        EXPECT_FLOAT_EQ(s.leadperstep, lead) << picture_top;
        EXPECT_DOUBLE_EQ(s.laze.Left, mark) << picture_top;
        d.pc.key_up('S');
    }
    d.tap('W');
    EXPECT_FLOAT_EQ(s.leadperstep, 0);
}

struct thermal_laser : on_thermal {
    thermal_laser()
    {
        d.present(6);   // 285 twips wide
        d.tap('E');
        d.target_at(4600, 2500);
    }
};

TEST_F(thermal_laser, on_target_sizes_the_marks)
{
    EXPECT_TRUE(s.Imglam.Visible && !s.Imgstadia.Visible);
    EXPECT_TRUE(s.Imglam.Left == s.Imgstadia.Left && s.Imglam.Top == s.Imgstadia.Top)
        << "the laser mark takes the place of the stadia mark";
    EXPECT_TRUE(s.Imglam.Width == s.Imgstadia.Height && s.Imglam.Height == s.Imgstadia.Height);
    d.tap('A');
    EXPECT_EQ(s.Lblrange.Caption, "1100C");
    EXPECT_TRUE(s.imgbam.Visible && s.layready);
    EXPECT_DOUBLE_EQ(s.imgbam.Width, 285);
    EXPECT_DOUBLE_EQ(s.imgbam.Left, 4700 - 112.5);
    EXPECT_DOUBLE_EQ(s.Imglam.Top, 2600 - 112.5);
    EXPECT_EQ(p.recwidth[1], 285);
    s.layready = false;
    d.target_at(4600, 2600);   // the aim exactly on the target's top edge
    d.tap('A');
    EXPECT_FALSE(s.layready);
    d.random(0.9999);
    d.target_at(5000, 2600);   // beside the target
    d.tap('A');
    EXPECT_TRUE(s.layready && s.imgbam.Left == 4700 - 599);
    EXPECT_TRUE(s.imgbam.Top == 2600 && s.imgbam.Width == 1198 && s.imgbam.Height == 599);
    s.Imgtargets.Visible = s.layready = s.imgbam.Visible = false;
    d.tap('A');
    EXPECT_TRUE(s.imgbam.Left == 4700 - 599 && s.imgbam.Top == 2600 - 599 && s.imgbam.Visible && !s.layready);
    EXPECT_TRUE(s.imgbam.Width == 200 && s.imgbam.Height == 100);
    EXPECT_EQ(p.reclazex[1], 5000 + 142 - 4700);   // 442.5 across, rounded to even
}

TEST_F(thermal_laser, a_full_hold_moves_only_the_mark)
{
    d.tap('A');
    const double range = s.Imgrange.Top, mark = s.imgbam.Top;
    d.pc.key_down('S');
    d.pc.wait(1.499);
    EXPECT_TRUE(s.layready);
    s.lazed = false;
    s.ammoselected = hesh_bmp;
    double lowest = mark;
    d.pc.at_pace = [&] { lowest = std::max(lowest, s.imgbam.Top); };
    const double from = d.pc.now();
    d.pc.wait(0.002);
    EXPECT_NEAR(d.pc.now() - from, 1, 0.01) << "the lay takes a second";
    EXPECT_FALSE(s.layready || s.Imglam.Visible);
    EXPECT_NEAR(lowest, mark + 1100 / 3.0, 0.1);
    EXPECT_NEAR(s.imgbam.Top, mark, 0.1);
    EXPECT_DOUBLE_EQ(s.Imgrange.Top, range);
    EXPECT_TRUE(s.lazed && s.ammoselected == fin_tank);
}

TEST_F(thermal_laser, an_early_release_gives_the_reversionary_mark)
{
    d.tap('A');
    const double range = s.Imgrange.Top;
    d.tap('S');
    EXPECT_TRUE(s.Imgrevfin.Visible && !s.Imgrevhesh.Visible && !s.imgbam.Visible);
    EXPECT_DOUBLE_EQ(s.Imgrange.Top, range - 111 * 5);
    EXPECT_DOUBLE_EQ(s.Imgtargets.Top, 2500 - 111 * 5);
}

// With the mouse, AUTO has no release: the first press acts as an early release, the next as a full hold.
TEST_F(thermal_laser, by_mouse_the_second_press_plays_the_mark)
{
    p.mouseselected = true;
    s.Frmmousecon.Visible = true;
    for (const bool plays : {false, true}) {
        d.target_at(4600, 2500);
        d.tap('A');
        const double from = d.pc.now();
        d.pc.press(s.Cmdautolay);
        EXPECT_EQ(s.Imgtargets.Top == 2500, plays);
        EXPECT_EQ(d.pc.now() > from, plays);
        d.pc.wait(1);
    }
}

TEST_F(thermal_laser, degraded_lases_move_the_sight)
{
    for (const auto& [status, shown] : {std::pair{2, "1100L"}, {3, "1100S"}}) {
        p.systemstatus = status;
        d.pc.wait(1);
        d.target_at(4600, 2500);
        const double from = d.pc.now();
        d.tap('A');
        d.tap('A');
        EXPECT_EQ(d.pc.now(), from) << "a degraded lase takes no time";
        EXPECT_EQ(s.Lblrange.Caption, shown);
        EXPECT_DOUBLE_EQ(s.Imgtargets.Top, 2500 - 2 * 111 * 5);
        EXPECT_FALSE(s.lazed || s.imgbam.Visible || s.Imglam.Visible);
    }
    EXPECT_EQ(p.recwidth[1], 285);
}

TEST_F(thermal_laser, the_stadia_depend_on_the_height_of_the_target)
{
    // At heights between two classes the picture of the mark stays.
    std::string classes;
    for (const double height : {480.0, 379.5, 379.0, 279.5, 279.0, 180.0, 179.9, 179.5, 280.0, 380.0}) {
        s.Imgtargets.Height = height;
        choosestadia(s);
        classes += s.Imgstadia.Picture.source.substr(1) + ' ';
    }
    EXPECT_EQ(classes, "stadia0 stadia0 stadia1 stadia1 stadia2 stadia2 stadia3 stadia3 stadia1 stadia0 ");
}

}   // namespace
}   // namespace vorn
