// The calibration on the real widgets, with a joystick of SDL's: found, calibrated, pulled out and finished
// with.
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "desk.h"
#include "flow/intro.h"
#include "platform/desktop/look.h"
#include "trainer.h"
#include "virtual_stick.h"

namespace vorn::testing_desk {

class calibration : public desk {
protected:
    calibration()
    {
        pc.default_directory = VORN_SOURCE_DIR "/data";
        when_box<QMessageBox>([](QMessageBox& box) { box.accept(); });
        pc.run([this] { start_program(t); });
        click(t.intro.lblstart);
        click(t.startsim.cmdstick);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&w()));
    }
    form_window& w() { return *pc.window(s.window); }
    std::string text(const screen_object& o) const { return widget<QLabel>(o).text().toStdString(); }
    QColor back(const screen_object& o) const { return widget<QLabel>(o).palette().color(QPalette::Window); }
    void press(int n)
    {
        stick.button(n, true);
        stick.button(n, false);
    }
    void pull_out()
    {
        stick.unplug();
        pc.joystick().poll();
    }
    void take_pictures(const QString& name)
    {
        for (const int scale : {1, 2}) {
            w().resize(1024 * scale, 768 * scale);
            settle();
            w().grab().save(QString("calibration_%1_%2x.png").arg(name).arg(scale));
        }
    }

    trainer t{pc};
    joycal_screen& s = t.joycal;
    virtual_stick stick{pc};
};

TEST_F(calibration, goes_from_no_joystick_at_all_to_a_calibrated_one)
{
    EXPECT_TRUE(text(s.Lblstick).starts_with("NO JOYSTICK"));
    take_pictures("none");
    stick.plug();
    EXPECT_EQ(text(s.Lblstick), "JOYSTICK CONNECTED");
    QTest::keyClick(&widget<QPushButton>(s.Cmdstart), Qt::Key_Space);
    press(5);
    EXPECT_EQ(text(s.Lblx), "32767.5");
    EXPECT_EQ(text(s.Lblymin), "32768");
    stick.axis(1, 900);
    EXPECT_EQ(text(s.Lblymin), "33668") << "follows the stick";
    EXPECT_FALSE(widget<QPushButton>(s.Cmdfinish).isEnabled());
    press(0);
    press(1);
    EXPECT_TRUE(widget<QLabel>(s.Lblinfo4).isVisible());
    stick.axis(1, 0);
    stick.axis(0, -32768);
    const double left = s.dot.Left;
    EXPECT_LT(left, 1560);
    pc.joystick().poll();
    EXPECT_LT(s.dot.Left, left) << "held there it goes on";
    stick.button(2, true);
    EXPECT_EQ(back(s.Lblbutton[2]), back_shade(colour::red));
    take_pictures("test");
    pull_out();
    EXPECT_TRUE(text(s.Lblstick).starts_with("NO JOYSTICK"));
    EXPECT_EQ(back(s.Lblbutton[2]), back_shade(colour::darkred));
    stick.plug();
    EXPECT_EQ(text(s.Lblstick), "JOYSTICK CONNECTED");
    click(s.Cmdfinish);   // the stick that came back at its centre has been told
    EXPECT_TRUE(t.shared.joycalibrated);
    EXPECT_EQ(t.shared.joyxfactor, (65535 - 32768) / 12.0);
    EXPECT_TRUE(QTest::qWaitForWindowActive(pc.window(t.startsim.window)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !w().isVisible(); }));
}

TEST_F(calibration, its_window_can_be_closed_half_way)
{
    stick.plug();
    click(s.Cmdstart);
    press(0);
    EXPECT_TRUE(pc.window(t.startsim.window)->isVisible()) << "beneath";
    w().close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !w().isVisible(); }));
    EXPECT_TRUE(QTest::qWaitForWindowActive(pc.window(t.startsim.window)));
    EXPECT_FALSE(t.shared.joycalibrated);
    click(t.startsim.cmdstick);
    EXPECT_FALSE(widget<QLabel>(s.Lblinfo1).isVisible());
    EXPECT_EQ(text(s.Lblx), "");
}

}   // namespace vorn::testing_desk
