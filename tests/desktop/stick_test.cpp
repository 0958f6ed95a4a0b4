// The joystick, tested with SDL's virtual joystick: plugging, unplugging, buttons, axes, several sticks.
#define SDL_MAIN_HANDLED
#include <SDL.h>

#include "fixture.h"
#include "platform/desktop/devices/stick.h"

namespace vorn::desktop_tests {

// A virtual joystick of SDL, which the machine finds like a real one.
class virtual_stick {
public:
    explicit virtual_stick(desktop_machine& machine) : pc(machine) {}
    ~virtual_stick() { unplug(); }
    virtual_stick(const virtual_stick&) = delete;
    virtual_stick& operator=(const virtual_stick&) = delete;

    void plug(int axes = 2)
    {
        pc.joystick().poll();   // initialises SDL
        const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_FLIGHT_STICK, axes, 6, 0);
        ASSERT_GE(index, 0) << SDL_GetError();
        device = SDL_JoystickOpen(index);
        pc.joystick().poll();
    }
    void unplug()
    {
        if (device == nullptr) return;
        // Indices change when another stick is unplugged.
        int index = 0;
        while (SDL_JoystickGetDeviceInstanceID(index) != SDL_JoystickInstanceID(device)) ++index;
        SDL_JoystickDetachVirtual(index);
        SDL_JoystickClose(std::exchange(device, nullptr));
        pc.joystick().poll();
    }
    void button(int n, bool down)
    {
        SDL_JoystickSetVirtualButton(device, n, down ? 1 : 0);
        pc.joystick().poll();
    }
    void axis(int n, int to)
    {
        SDL_JoystickSetVirtualAxis(device, n, static_cast<Sint16>(to));
        pc.joystick().poll();
    }

private:
    desktop_machine& pc;
    SDL_Joystick* device = nullptr;
};

struct joystick : desktop_test {
    joystick()
    {
        one.f.ButtonDown = [this](int n) { log.push_back("down " + std::to_string(n)); };
        one.f.ButtonUp = [this](int n) { log.push_back("up " + std::to_string(n)); };
        one.f.Move = [this](int x, int y) { moves.emplace_back(x, y); };
        open(one);
    }
    void plug()
    {
        stick.plug();
        moves.clear();
    }

    std::vector<std::pair<int, int>> moves;
    virtual_stick stick{pc};
};

TEST_F(joystick, reports_its_position_at_each_poll_while_deflected)
{
    plug();
    EXPECT_EQ(pc.joystick_reading(5), 65535);
    EXPECT_EQ(pc.joystick_reading(13), 32768);
    stick.axis(0, -32768);
    stick.axis(1, 32767);
    pc.joystick().poll();
    ASSERT_GE(moves.size(), 3U);
    EXPECT_EQ(moves.front().first, 0);
    EXPECT_EQ(moves.back(), (std::pair{0, 65535})) << "Y grows towards the gunner";
    EXPECT_EQ(pc.joystick_reading(14), 65535);
    stick.axis(0, 0);
    stick.axis(1, 0);
    EXPECT_EQ(moves.back(), (std::pair{32768, 32768})) << "the return to the centre is reported";
    const std::size_t reported = moves.size();
    pc.joystick().poll();
    EXPECT_EQ(moves.size(), reported);
}

TEST_F(joystick, releases_its_buttons_when_unplugged_and_can_come_back)
{
    plug();
    stick.button(0, true);
    stick.axis(0, 9000);
    stick.unplug();
    EXPECT_EQ(log, (strings{"down 1", "up 1"}));
    EXPECT_EQ(pc.joystick_reading(13), 32768);
    const std::size_t reported = moves.size();
    pc.joystick().poll();
    EXPECT_EQ(moves.size(), reported) << "an absent stick doesn't move";
    plug();
    stick.button(1, true);
    EXPECT_EQ(log.back(), "down 2");
}

TEST_F(joystick, is_the_first_with_two_axes_or_the_one_that_moves)
{
    virtual_stick throttle{pc}, other{pc};
    throttle.plug(1);
    EXPECT_FALSE(pc.joystick_present()) << "a throttle has one axis";
    plug();
    other.plug();
    EXPECT_TRUE(pc.joystick_present());
    stick.axis(0, 9000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 + 9000);
    throttle.axis(0, 32767);
    other.axis(0, 8000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 + 9000)
        << "the other stick has moved less than half of the way to its end";
    stick.button(0, true);
    other.axis(0, 30000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 + 9000) << "a button of this stick is held";
    stick.button(0, false);
    other.axis(0, -30000);
    EXPECT_EQ(pc.joystick_reading(13), 32768 - 30000);
    stick.axis(0, 0);
    EXPECT_EQ(pc.joystick_reading(13), 32768 - 30000);
    stick.axis(0, -32768);
    EXPECT_EQ(pc.joystick_reading(13), 0) << "the first stick again, though the other is still deflected";
    stick.unplug();
    EXPECT_EQ(pc.joystick_reading(13), 32768 - 30000) << "the remaining stick";
}

TEST_F(joystick, sends_nothing_while_a_box_is_open)
{
    plug();
    stick.button(0, true);
    when_box([&](QDialog& box) {
        EXPECT_EQ(log, (strings{"down 1", "up 1"}));
        stick.button(1, true);
        stick.button(1, false);
        stick.axis(0, 20000);
        EXPECT_TRUE(moves.empty());
        box.accept();
    });
    pc.run([&] { pc.message_box({"x", ""}); });
    EXPECT_EQ(log.size(), 2U);
    window(one).activateWindow();   // the offscreen platform doesn't activate it after a box
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window(one)));
    pc.joystick().poll();
    EXPECT_FALSE(moves.empty()) << "the stick's position is reported again";
}

}   // namespace vorn::desktop_tests
