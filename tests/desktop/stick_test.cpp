// The joystick through SDL's virtual one: plugged in and pulled out, its buttons and its axes.
#include "platform/desktop/devices/stick.h"
#include "fixture.h"
#include "virtual_stick.h"

namespace vorn::desktop_tests {

class joystick : public desktop_test {
protected:
    joystick()
    {
        one.f.ButtonDown = [this](int n) { log.push_back("down " + std::to_string(n)); };
        one.f.ButtonUp = [this](int n) { log.push_back("up " + std::to_string(n)); };
        one.f.Move = [this](long x, long y) { moves.emplace_back(x, y); };
    }
    void plug()
    {
        stick.plug();
        moves.clear();
    }
    using list = std::vector<std::string>;

    std::vector<std::pair<long, long>> moves;
    virtual_stick stick{pc};
};

TEST_F(joystick, off_its_centre_it_tells_its_place_again_and_again)
{
    open(one);
    plug();
    EXPECT_EQ(pc.joystick_reading(5), 65535);
    EXPECT_EQ(pc.joystick_reading(13), 32768);
    stick.axis(0, -32768);
    stick.axis(1, 32767);
    pc.joystick().poll();
    ASSERT_GE(moves.size(), 3U);
    EXPECT_EQ(moves.front().first, 0);
    EXPECT_EQ(moves.back(), (std::pair{0L, 65535L})) << "towards the gunner grows";
    EXPECT_EQ(pc.joystick_reading(14), 65535);
    stick.axis(0, 0);
    stick.axis(1, 0);
    EXPECT_EQ(moves.back(), (std::pair{32768L, 32768L})) << "the return to the centre is told";
    const std::size_t told = moves.size();
    pc.joystick().poll();
    EXPECT_EQ(moves.size(), told);
}

TEST_F(joystick, pulled_out_it_lets_its_buttons_go_and_comes_back)
{
    open(one);
    plug();
    stick.button(0, true);
    stick.axis(0, 9000);
    stick.unplug();
    pc.joystick().poll();
    EXPECT_EQ(log, (list{"down 1", "up 1"}));
    EXPECT_EQ(pc.joystick_reading(13), 32768);
    const std::size_t told = moves.size();
    pc.joystick().poll();
    EXPECT_EQ(moves.size(), told) << "no moves from nothing";
    plug();
    stick.button(1, true);
    EXPECT_EQ(log.back(), "down 2");
}

TEST_F(joystick, of_several_the_one_with_two_axes_is_taken_or_the_one_that_moves)
{
    virtual_stick throttle{pc}, other{pc};
    open(one);
    throttle.plug(1);
    EXPECT_FALSE(pc.joystick_present()) << "no stick";
    plug();
    other.plug();
    EXPECT_TRUE(pc.joystick_present());
    stick.axis(0, 9000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 + 9000);
    throttle.axis(0, 32767);
    other.axis(0, 8000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 + 9000) << "the other one was hardly moved";
    stick.button(0, true);
    other.axis(0, 30000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 + 9000) << "a button of this one is held";
    stick.button(0, false);
    other.axis(0, -30000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 - 30000);
    stick.axis(0, 0);
    EXPECT_EQ(pc.joystick_reading(13), 32768 - 30000);
    stick.axis(0, -32768);
    EXPECT_EQ(pc.joystick_reading(13), 0) << "and back, though the other one doesn't lie at its centre";
    stick.unplug();
    pc.joystick().poll();
    EXPECT_EQ(pc.joystick_reading(13), 32768 - 30000) << "the one that is left";
}

TEST_F(joystick, a_box_takes_buttons_and_moves_away)
{
    open(one);
    plug();
    stick.button(0, true);
    when_box<QDialog>([&](QDialog& box) {
        EXPECT_EQ(log, (list{"down 1", "up 1"}));
        stick.button(1, true);
        stick.button(1, false);
        stick.axis(0, 20000);
        EXPECT_TRUE(moves.empty());
        box.accept();
    });
    pc.run([&] { pc.message_box({"x", ""}); });
    EXPECT_EQ(log.size(), 2U);
    window(one).activateWindow();   // off screen nobody else does that
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window(one)));
    pc.joystick().poll();
    EXPECT_FALSE(moves.empty()) << "once it is closed the stick is told again";
}

}   // namespace vorn::desktop_tests
