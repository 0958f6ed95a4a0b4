// The whole trainer on the real widgets, the road to a sight, and a gunner who lays on by real keys.
#pragma once

#include <QMessageBox>
#include <QPushButton>
#include <cmath>

#include "fixture.h"
#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn::desktop_tests {

class trainer_test : public desktop_test {
protected:
    trainer_test() { pc.default_directory = VORN_SOURCE_DIR "/data"; }

    QWidget* widget_of(const screen_object& o) const { return pc.window(*o.owner)->widget(o); }
    void click_on(const screen_object& o) { QTest::mouseClick(widget_of(o), Qt::LeftButton); }
    void answer_yes()
    {
        when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    }
    bool wait_for(const std::function<bool()>& what, int milliseconds = 15000)
    {
        return QTest::qWaitFor(what, milliseconds);
    }

    trainer t{pc};
};

// A gunner at the visual sight who lays on by real keys.
class engagement : public trainer_test {
protected:
    gunnery_screen& s = t.simulator;

    QWindow* handle() { return pc.window(s.window)->windowHandle(); }
    // Holds a direction until the target's centre has come over the line of the dot.
    void nudge(double (*off)(const gunnery_screen&), Qt::Key less, Qt::Key more)
    {
        const double before = off(s);
        if (std::abs(before) <= 30) return;
        const Qt::Key k = before > 0 ? more : less;
        QTest::keyPress(handle(), k);
        EXPECT_TRUE(wait_for([&] { return std::abs(off(s)) <= 30 || off(s) * before < 0; }));
        QTest::keyRelease(handle(), k);
    }
    void lay_on()
    {
        for (int i = 0; i < 20; ++i) {
            nudge(aimacross, Qt::Key_H, Qt::Key_J);
            nudge(aimdown, Qt::Key_U, Qt::Key_N);
        }
        EXPECT_LE(std::abs(aimacross(s)), 30);
        EXPECT_LE(std::abs(aimdown(s)), 30);
    }
};

}   // namespace vorn::desktop_tests
