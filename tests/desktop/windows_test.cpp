#include "fixture.h"

namespace vorn::desktop_tests {

struct windows : desktop_test {};

TEST_F(windows, the_next_screen_takes_over_position_and_state)
{
    open(one, 700, 600);
    window(one).move(40, 30);
    const QRect place = window(one).geometry();
    change(one, two);
    EXPECT_TRUE(window(two).isVisible());
    EXPECT_EQ(window(two).geometry(), place);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window(one).isVisible(); }));
    window(two).setWindowState(Qt::WindowMaximized);
    pc.run([&] {
        show(pc, one.f);
        unload(pc, two.f);
    });
    EXPECT_TRUE(window(one).isMaximized());
    EXPECT_EQ(window(one).normalGeometry(), place);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window(two).isVisible(); }));
}

TEST_F(windows, a_screen_over_another_does_not_move_it)
{
    open(one);
    pc.run([&] { show(pc, two.f); });
    settle();
    EXPECT_TRUE(window(one).isVisible() && window(two).isVisible());
    EXPECT_NE(window(two).pos(), window(one).pos());
    const QRect place = window(one).geometry();
    change(two, one);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window(two).isVisible(); }));
    EXPECT_EQ(window(one).geometry(), place);
}

TEST_F(windows, loading_a_screen_again_resets_its_focus)
{
    const screen_object &begin = button("begin"), &leave = button("leave");
    open(one);
    EXPECT_TRUE(widget(begin).hasFocus());
    widget(leave).setFocus();
    pc.run([&] {
        unload(pc, one.f);
        show(pc, two.f);
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window(one).isVisible(); }));
    open(one);
    EXPECT_TRUE(widget(begin).hasFocus());
}

TEST_F(windows, the_form_is_scaled_and_centred)
{
    screen_object& panel = one.put(frame({1500, 3000, 6000, 3000}, ""));
    screen_object& words = one.put(label({300, 600, 1500, 300}, ""), &panel);
    screen_object& check = one.put(placed(object_kind::checkbox, {300, 1200, 1500, 300}), &panel);
    for (const double scale : {1.0, 1.5, 2.0}) {
        open(one, static_cast<int>(1024 * scale) + 200, static_cast<int>(768 * scale));
        const auto at = [&](int pixels) { return static_cast<int>(pixels * scale); };
        EXPECT_EQ(widget(panel).geometry(), QRect(100 + at(100), at(200), at(400), at(200)));
        EXPECT_EQ(widget(words).geometry(), QRect(at(20), at(40), at(100), at(20)));
        EXPECT_EQ(widget(words).font().pixelSize(), at(13));
        EXPECT_EQ(widget(check).style()->pixelMetric(QStyle::PM_IndicatorWidth), at(14));
    }
}

TEST_F(windows, f11_toggles_full_screen_and_restores_the_window_also_on_the_next_screen)
{
    open(one, 700, 500);
    window(one).move(60, 50);
    const QRect place = window(one).geometry();
    const auto settled = [&] { return !window(one).findChild<QTimer*>("settled")->isActive(); };
    EXPECT_TRUE(QTest::qWaitFor(settled));
    // Like some window managers, sets the new size before the new state.
    window(one).setGeometry(window(one).screen()->availableGeometry());
    window(one).setWindowState(Qt::WindowMaximized);
    QTest::keyClick(handle(one), Qt::Key_F11);
    QTest::keyClick(handle(one), Qt::Key_Escape);
    EXPECT_TRUE(window(one).isFullScreen());
    change(one, two);
    EXPECT_TRUE(window(two).isFullScreen());
    QTest::keyClick(handle(two), Qt::Key_F11);
    EXPECT_TRUE(window(two).isMaximized() && !window(two).isFullScreen());
    EXPECT_EQ(window(two).normalGeometry(), place);
    window(two).setWindowState(Qt::WindowNoState);
    window(two).setGeometry(500, 600, 900, 700);   // partly off the screen
    for (int i = 0; i < 2; ++i) QTest::keyClick(handle(two), Qt::Key_F11);
    EXPECT_TRUE(window(two).screen()->availableGeometry().contains(window(two).geometry()));
}

TEST_F(windows, closing_a_window_clicks_its_exit_button)
{
    screen_object& leave = button("leave");
    open(one);
    window(one).close();
    EXPECT_TRUE(window(one).isVisible() && log.empty()) << "there is no exit button";
    one.f.exit_button = &leave;
    window(one).close();
    EXPECT_TRUE(window(one).isVisible());
    EXPECT_EQ(log, strings{"leave"});
}

TEST_F(windows, nothing_runs_after_the_end_of_the_program)
{
    screen_object& exit = button("click");
    one.f.KeyUp = [](int) { std::_Exit(1); };
    exit.MouseUp = [] { std::_Exit(2); };
    exit.MouseDown = [&] {
        pc.end_program();
        std::_Exit(3);
    };
    pc.leave = [&] { std::_Exit(window(one).isVisible() ? 4 : 42); };
    open(one);
    EXPECT_EXIT(
        {
            press(Qt::Key_U);
            QTest::mousePress(&widget(exit), Qt::LeftButton);
        },
        testing::ExitedWithCode(42), "");
}

TEST_F(windows, a_screen_that_comes_to_the_front_arrives_once)
{
    one.f.arrival = [&] { log.push_back("one"); };
    two.f.arrival = [&] { log.push_back("two"); };
    open(one);
    open(two);
    log.clear();
    send(window(two), QEvent::WindowActivate);
    EXPECT_TRUE(log.empty()) << "the window was in front already";
    send(window(two), QEvent::WindowDeactivate);
    send(window(one), QEvent::WindowActivate);
    send(window(one), QEvent::WindowActivate);
    EXPECT_EQ(log, strings{"one"});
    EXPECT_EQ(front(pc), &one.f);
    pc.run([&] { unload(pc, two.f); });
    send(window(two), QEvent::WindowActivate);
    EXPECT_EQ(log, strings{"one"});
}

// Activates a window while it is being shown, as Windows does: the window is active before `show` returns.
struct activates_when_shown : QObject {
    bool eventFilter(QObject* window, QEvent* e) override
    {
        if (e->type() != QEvent::Show) return false;
        QEvent active(QEvent::WindowActivate);
        QCoreApplication::sendEvent(window, &active);
        return false;
    }
};

TEST_F(windows, a_window_that_is_activated_while_it_is_shown_changes_no_order)
{
    open(one);
    open(two);
    pc.run([&] {
        hide(pc, one.f);
        hide(pc, two.f);
    });
    EXPECT_FALSE(window(one).isVisible() || window(two).isVisible());
    activates_when_shown filter;
    for (screen* s : {&one, &two}) window(*s).installEventFilter(&filter);
    one.f.arrival = [&] { log.push_back("one"); };
    two.f.arrival = [&] { log.push_back("two"); };
    pc.run([&] {
        show(pc, one.f);
        show(pc, two.f);
    });
    EXPECT_EQ(front(pc), &two.f);
    EXPECT_EQ(log, (strings{"one", "two"}));
}

TEST_F(windows, boxes_and_help_cause_no_arrival)
{
    one.f.arrival = [&] { log.push_back("one"); };
    open(one);
    log.clear();
    answer(Qt::Key_Return);
    pc.run([&] { pc.message_box({"NO SUCH FILE", "RANGE"}); });
    pc.run([&] { pc.show_help("missing.HLP"); });
    settle();
    for (QWidget* w : QApplication::topLevelWidgets())
        if (!w->isModal() && w->windowTitle().contains("Help")) w->close();
    window(one).activateWindow();
    settle();
    EXPECT_TRUE(log.empty());
}

}   // namespace vorn::desktop_tests
