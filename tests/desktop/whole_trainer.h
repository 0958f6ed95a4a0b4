// The whole trainer on the real widgets, the road to a sight, and a gunner who lays on by real keys.
#pragma once

#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <cmath>

#include "desk.h"
#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn::testing_desk {

class whole_trainer : public desk {
protected:
    whole_trainer() { pc.default_directory = VORN_SOURCE_DIR "/data"; }

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
    void to_the_sight(gunnery_screen& s)
    {
        when_box<QMessageBox>([](QMessageBox& box) { box.accept(); });
        pc.run([&] { start_program(t); });
        ASSERT_EQ(front(pc), &t.intro.window);
        click_on(t.intro.lblstart);
        ASSERT_EQ(front(pc), &t.startsim.window);
        click_on(t.startsim.Optcon2);
        if (!s.visual()) click_on(t.startsim.Optmode2);
        answer_yes();
        click_on(t.startsim.Cmdstart);
        ASSERT_EQ(front(pc), &s.window);
        ASSERT_TRUE(wait_for([&] { return pc.window(s.window)->isVisible(); }));
    }

    trainer t{pc};
};

// A FIN engagement by real keys, from the order to the kill and the score. Each step leaves a picture.
class engagement : public whole_trainer {
protected:
    gunnery_screen& s = t.simulator;

    void save(const char* step) { pc.window(s.window)->grab().save(QString("engagement_%1.png").arg(step)); }
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
    void to_the_target()
    {
        to_the_sight(s);
        t.shared.engagementtype = 4;
        t.shared.targettime = 500;
        t.shared.fulldebrief = false;
        pc.run([&] { set_slider(s.HScspeed, 20); });   // a fine lay
        click_on(s.Cmdstartsim);
        ASSERT_TRUE(wait_for([&] { return s.lblcrew.Caption == "FIN TANK "; }));
        save("1_order");
        ASSERT_TRUE(wait_for([&] { return s.targetcalled && s.Imgtargets.Visible && s.Timloading.Enabled; }));
        QTest::keyClick(handle(), Qt::Key_E);
        lay_on();
        save("2_laid_on");
    }
};

}   // namespace vorn::testing_desk
