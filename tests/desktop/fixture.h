// A desk to test on: a screen of a few objects on the real widgets, and hands that answer the boxes.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/desktop/desktop_machine.h"

namespace vorn::desktop_tests {

// A form with its objects, laid out by the test.
struct screen {
    form f;
    std::deque<screen_object> objects;
    std::deque<timer> timers;

    screen_object& put(object_kind kind, double left, double top, double width, double height,
                       screen_object* parent = nullptr)
    {
        screen_object& o = objects.emplace_back();
        o.kind = kind;
        o.Left = left;
        o.Top = top;
        o.Width = width;
        o.Height = height;
        add(f, o, parent);
        return o;
    }

    timer& tick(int interval, std::function<void()> action)
    {
        timer& t = timers.emplace_back();
        add(f, t, interval, std::move(action));
        return t;
    }
};

// Every widget that takes the focus by Tab, from the one that has it, until the round is complete.
inline std::vector<QWidget*> tab_order(QWidget& window)
{
    std::vector<QWidget*> round;
    QWidget* first = QApplication::focusWidget();
    do {
        round.push_back(QApplication::focusWidget());
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && round.size() < 200);
    return round;
}

class desktop_test : public testing::Test {
protected:
    desktop_test()
    {
        pc.printer_present = [] { return false; };
    }
    // Shows a screen in a window of this size, 1024 x 768 being the designed one.
    void open(screen& s, int width = 1024, int height = 768)
    {
        pc.run([&] { show(pc, s.f); });
        window(s).resize(width, height);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window(s)));
    }
    static void settle() { QTest::qWait(1); }

    form_window& window(const screen& s) const { return *pc.window(s.f); }

    template <class W>
    W& widget(const screen_object& o) const
    {
        return dynamic_cast<W&>(*pc.window(*o.owner)->widget(o));
    }

    void click(const screen_object& o) const
    {
        QTest::mouseClick(pc.window(*o.owner)->widget(o), Qt::LeftButton);
    }
    void press(const screen& s, Qt::Key k, Qt::KeyboardModifiers m = {}) const
    {
        QTest::keyPress(handle(s), k, m);
    }
    void release(const screen& s, Qt::Key k, Qt::KeyboardModifiers m = {}) const
    {
        QTest::keyRelease(handle(s), k, m);
    }
    QWindow* handle(const screen& s) const { return window(s).windowHandle(); }

    // Acts on a box once it is up and `ready` holds; the box's own event loop runs meanwhile.
    template <class Box = QDialog>
    void when_box(
        std::function<void(Box&)> act, std::function<bool()> ready = [] { return true; })
    {
        auto* look = new QTimer(&box_timers_);
        QObject::connect(look, &QTimer::timeout, look, [=] {
            auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
            if (box == nullptr || !ready()) return;
            look->stop();
            act(*box);
        });
        look->start(2);
    }
    void answer(Qt::Key key)
    {
        when_box<QDialog>([key](QDialog& box) { QTest::keyClick(box.windowHandle(), key); });
    }

    std::vector<std::string> log;   // what the screens have been told, in order
    screen one, two;                // outlive the machine, as the program's screens do
    desktop_machine pc;

private:
    QObject box_timers_;
};

}   // namespace vorn::desktop_tests
