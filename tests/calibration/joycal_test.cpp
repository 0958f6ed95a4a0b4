// The calibration of the joystick: its steps, the lamps and the dot of the stick tester.

#include "drill.h"

namespace vorn {
namespace {

struct calibration : on_setup {
    joycal_screen& s = t.joycal;

    calibration() { open(); }
    void open() { pc.click(t.startsim.cmdstick); }
    void press(int button)
    {
        pc.stick_button(button, true);
        pc.stick_button(button, false);
    }
    void to_step(int step)
    {
        pc.click(s.Cmdstart);
        for (int n = 1; n < step; ++n) press(1);
    }
    // For each instruction '.' if hidden, '*' if visible, '!' if highlighted; " finish" if FINISH is enabled.
    std::string shown() const
    {
        std::string steps;
        for (const screen_object* o : {&s.Lblinfo1, &s.Lblinfo2, &s.Lblinfo3, &s.Lblinfo4}) {
            EXPECT_EQ(s.Lblstep[steps.size()].Visible, o->Visible);
            steps += !o->Visible ? '.' : o->ForeColor == colour::live ? '!' : '*';
        }
        return steps + (s.Cmdfinish.Enabled ? " finish" : "");
    }
    // A move event with these values. The readings of the joystick stay unchanged.
    void move(int x, int y)
    {
        pc.event([&] { s.window.Move(x, y); });
    }
};

TEST_F(calibration, each_button_press_adds_the_next_instruction)
{
    EXPECT_EQ(shown(), "....");
    press(1);
    EXPECT_EQ(shown(), "....") << "before START a button press shows no instruction";
    pc.click(s.Cmdstart);
    const std::string steps[] = {"!...", "*!..", "**!.", "***! finish", "***! finish"};
    for (int n = 0; n < 5; ++n) {
        EXPECT_EQ(shown(), steps[n]);
        press(n == 0 ? 9 : n);   // any button
    }
    EXPECT_EQ(s.Lblx.Caption + ' ' + s.Lbly.Caption, "32767.5 32767.5");
    pc.click(s.Cmdstart);
    EXPECT_EQ(shown(), "!...");
    EXPECT_EQ(p.joyxcentre, 32767.5) << "kept until the next button press";
}

TEST_F(calibration, the_lamps_follow_the_first_four_buttons)
{
    const auto lit = [&](int button) { return s.Lblbutton[button - 1].BackColor == colour::red; };
    for (const int button : {1, 4, 5, 0}) pc.stick_button(button, true);
    EXPECT_TRUE(lit(1) && !lit(2) && !lit(3) && lit(4));
    pc.stick_button(1, false);
    EXPECT_TRUE(!lit(1) && !lit(2) && !lit(3) && lit(4));
}

TEST_F(calibration, the_dot_rests_in_the_dead_band_and_moves_a_twip_per_full_hundred_beyond)
{
    pc.joystick[7] = 60000;   // the maximum of Y differs from that of X: the axes are independent
    pc.joystick[14] = 24000;
    to_step(2);
    EXPECT_EQ(s.Lblymin.Caption, "24000");
    move(0, 0);
    EXPECT_EQ(s.dot.Left, 1560) << "the dot doesn't move before the third step";
    EXPECT_NEAR(p.joyxfactor, 2730.583, 0.001);
    EXPECT_EQ(p.joyyfactor, 3000);
    press(1);
    const struct {
        int x, y;
        double across, down;
        const char* xstep;
        const char* ystep;
    } moves[] = {{27307, 24000, 0, 0, "", ""},        {38228, 36000, 0, 0, "", ""},
                 {27306, 30000, -1, 0, "-1", ""},     {32768, 23999, 0, -1, "-1", "-1"},
                 {38229, 36001, 0, 0, "0", "0"},      {38328, 36099, 0, 0, "0", "0"},
                 {38329, 30000, 1, 0, "1", "0"},      {32768, 36100, 0, 1, "1", "1"},
                 {0, 65535, -274, 295, "-274", "295"}};
    for (const auto& m : moves) {
        s.dot.Left = s.dot.Top = 1560;
        move(m.x, m.y);
        expect_at(s.dot, 1560 + m.across, 1560 + m.down, m.x);
        EXPECT_EQ(s.Lblxfactor.Caption, m.xstep) << m.x;
        EXPECT_EQ(s.Lblyfactor.Caption, m.ystep) << m.y;
    }
}

TEST_F(calibration, the_dot_stays_within_its_bounds_at_any_reading)
{
    to_step(3);
    for (int i = 0; i < 50; ++i) pc.stick(65535, 0);
    expect_at(s.dot, 2880, 120, "upper right corner");
    pc.joystick = {{5, 65535}, {7, 0}, {13, 0}, {14, 65535}};
    for (int i = 0; i < 50; ++i) move(0, 65535);
    expect_at(s.dot, 120, 2880, "lower left corner");
    EXPECT_EQ(s.Lblxmin.Caption, "0");
    EXPECT_GT(p.joyxfactor, 5000);
}

TEST_F(calibration, shows_whether_a_joystick_is_connected_and_starts_without_one)
{
    EXPECT_EQ(s.Lblstick.Caption, "JOYSTICK CONNECTED");
    EXPECT_EQ(s.Lblstick.ForeColor, colour::dim);
    pc.plug_stick(false);
    EXPECT_NE(s.Lblstick.Caption, "JOYSTICK CONNECTED");
    EXPECT_EQ(s.Lblstick.ForeColor, colour::highlight);
    pc.click(s.Cmdstart);
    press(1);
    EXPECT_EQ(shown(), "!...");
}

TEST_F(calibration, only_finish_calibrates_and_each_way_out_leads_to_the_set_up)
{
    to_step(4);
    pc.close_window(s.window);
    EXPECT_EQ(front(pc), &t.startsim.window);
    EXPECT_FALSE(p.joycalibrated);
    open();
    press(1);
    EXPECT_EQ(shown(), "....") << "starts over";
    move(0, 0);
    EXPECT_EQ(s.dot.Left, 1560);
    to_step(4);
    pc.click(s.Cmdfinish);
    EXPECT_EQ(front(pc), &t.startsim.window);
    EXPECT_TRUE(p.joycalibrated);
    open();
    pc.key_down(27);
    EXPECT_EQ(front(pc), &t.startsim.window) << "Esc leads back to the set-up";
    EXPECT_TRUE(p.joycalibrated) << "the earlier calibration is kept";
    open();
    pc.activate(t.startsim.window);
    d.set_up();
    EXPECT_EQ(s.window.state, form_state::not_loaded) << "a practice unloads the calibration";
}

}   // namespace
}   // namespace vorn
