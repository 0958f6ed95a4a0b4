#include "fixture.h"

namespace vorn::desktop_tests {

struct timing : desktop_test {
    // Queues a key event, as the window system does.
    void queue_key(Qt::Key k)
    {
        QCoreApplication::postEvent(handle(one), new QKeyEvent(QEvent::KeyPress, k, {}));
    }
};

TEST_F(timing, timers_tick_and_their_changes_are_shown)
{
    screen_object& shown = one.put(label({0, 0, 1500, 300}, ""));
    int n = 0;
    timer& t = one.add_timer(1, [&] { shown.Caption = std::to_string(++n); });
    open(one);
    pc.run([&] { start(t); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return n >= 5; }));
    EXPECT_EQ(widget<QLabel>(shown).text().toInt(), n);
}

TEST_F(timing, a_counted_move_is_shown_step_by_step_and_delays_events)
{
    screen_object& sight = one.put(placed(object_kind::sight, {0, 0, 6000, 6000}));
    screen_object& shot = one.put(image({0, 0, 150, 150}), &sight);
    timer& t = one.add_timer(1, [&] { log.push_back("tick"); });
    one.f.KeyDown = [&](int) { log.push_back("key"); };
    open(one);
    paint_count painted(*window(one).widget(sight));
    pc.run([&] {
        start(t);
        next_tick(pc);   // arms the timer: its first tick becomes due during the move
        queue_key(Qt::Key_D);
        for (int i = 0; i < 200; ++i) {
            shot.Top += 15;
            pc.pace(0.001);
        }
        EXPECT_TRUE(log.empty());
        EXPECT_GE(painted.count, 3);
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() >= 2; }));
    EXPECT_EQ(log[0], "key") << "a delayed key comes before delayed ticks";
    EXPECT_EQ(log[1], "tick");
}

TEST_F(timing, do_events_handles_pending_events_within_a_handler)
{
    int others = 0;
    timer& other = one.add_timer(1, [&] { ++others; });
    timer& lay = one.add_timer(1, {});
    lay.tick = [&] {
        log.push_back("lay");
        queue_key(Qt::Key_U);
        while (others < 3 || log.size() < 2) pc.do_events();
        stop(lay);
        log.push_back("laid");
    };
    one.f.KeyDown = [&](int) { log.push_back("key"); };
    open(one);
    pc.run([&] {
        start(other);
        start(lay);
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() >= 3; }));
    EXPECT_EQ(log, (strings{"lay", "key", "laid"}));
}

TEST_F(timing, do_events_may_unload_the_screen)
{
    screen_object& back = button("back");
    back.Click = [&] {
        unload(pc, one.f);
        show(pc, two.f);
    };
    two.f.arrival = [&] { log.push_back("two"); };
    timer& lay = one.add_timer(1, {});
    lay.tick = [&] {
        QTimer::singleShot(0, [&] { click(back); });
        while (one.f.state == form_state::shown) pc.do_events();
        back.Caption = "set by the handler that still runs";
        log.push_back("laid");
    };
    open(one);
    pc.run([&] { start(lay); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() >= 2 && !window(one).isVisible(); }));
    EXPECT_EQ(log, (strings{"two", "laid"}));
    EXPECT_TRUE(window(two).isVisible());
}

}   // namespace vorn::desktop_tests
