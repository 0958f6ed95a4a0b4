// The rules of screens, timers and events that both machines share.
#include <gtest/gtest.h>

#include "platform/design.h"
#include "platform/headless/headless_machine.h"

namespace vorn {
namespace {

struct two_screens : testing::Test {
    headless_machine pc;
    form a, b;
    screen_object quit;
    timer clock;
    std::vector<std::string> events;

    two_screens()
    {
        add(a, quit, button({0, 0, 1, 1}, ""));
        a.exit_button = &quit;
        quit.Click = [this] { events.push_back("quit"); };
        a.arrival = [this] { events.push_back("a"); };
        b.arrival = [this] { events.push_back("b"); };
        add(a, clock, 1000, [this] { events.push_back("tick"); });
        pc.event([this] { show(pc, a); });
        events.clear();
    }
    std::vector<std::string> taken() { return std::exchange(events, {}); }
    using list = std::vector<std::string>;
};

TEST_F(two_screens, an_arrival_waits_for_the_handler_that_showed_the_screen)
{
    pc.answers = {{true, 5}};
    pc.event([this] {
        show(pc, b);
        pc.later(2, [this] { pc.event([this] { events.push_back("meanwhile"); }); });
        pc.message_box({"x", ""});
        events.push_back("done");
        hide(pc, a);
    });
    EXPECT_EQ(taken(), (list{"meanwhile", "done", "b"}));
    pc.event([this] { show(pc, b); });
    EXPECT_EQ(taken(), list{}) << "already in front";
}

TEST_F(two_screens, a_screen_that_comes_to_the_front_gets_an_arrival)
{
    pc.event([this] { show(pc, b); });
    taken();
    pc.activate(a);
    pc.activate(a);
    EXPECT_EQ(taken(), list{"a"});
    pc.activate(b);
    pc.event([this] { hide(pc, b); });
    EXPECT_EQ(taken(), (list{"b", "a"})) << "the next one is in front";
    pc.event([this] {
        show(pc, b);
        unload(pc, b);
    });
    EXPECT_EQ(taken(), list{"a"}) << "no arrival for a screen that was unloaded";
    quit.Visible = false;
    pc.close_window(a);
    EXPECT_EQ(taken(), list{"quit"});
    pc.event([this] { hide(pc, a); });
    pc.close_window(a);
    EXPECT_EQ(taken(), list{}) << "the screen is hidden already";
}

TEST_F(two_screens, a_late_timer_ticks_once_and_never_inside_its_own_handler)
{
    pc.event([this] { start(clock); });
    pc.event([this] { pc.pace(3.5); });
    pc.advance(3.5);
    EXPECT_EQ(taken(), list{"tick"});
    pc.advance(0.5);
    EXPECT_EQ(taken(), list{"tick"}) << "at multiples of the interval";
    int depth = 0, deepest = 0;
    clock.tick = [&] {
        deepest = std::max(deepest, ++depth);
        pc.answers = {{true, 4}};
        pc.message_box({"x", ""});
        pc.do_events();
        --depth;
    };
    pc.advance(10);
    EXPECT_EQ(deepest, 1);
}

TEST_F(two_screens, a_timer_with_slack_alone_wakes_the_machine_later)
{
    timer other;
    add(a, other, 1500, [] {});
    clock.slack = 0.75;   // seconds; the interval is 1 second
    pc.event([this] { start(clock); });
    const double begin = pc.now();
    EXPECT_EQ(next_wake(pc), begin + 1.75);
    pc.event([&] { start(other); });
    EXPECT_EQ(next_wake(pc), begin + 1.5) << "a timer without slack wakes it in time";
    pc.advance(1.5);
    EXPECT_EQ(taken(), list{"tick"});
}

}   // namespace
}   // namespace vorn
