// The set-up screen on the real widgets: worked by mouse and keyboard as an instructor works it.
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

#include "fixture.h"
#include "flow/intro.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn::desktop_tests {

class set_up : public desktop_test {
protected:
    set_up()
    {
        pc.default_directory = VORN_SOURCE_DIR "/data";
        when_box<QMessageBox>([](QMessageBox& box) { box.accept(); });
        pc.run([this] { start_program(t); });
        click(t.intro.lblstart);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&w()));
    }
    form_window& w() { return *pc.window(s.window); }

    trainer t{pc};
    startsim_screen& s = t.startsim;
    practice_state& p = t.shared;
};

TEST_F(set_up, is_worked_by_keyboard_in_the_order_of_the_work)
{
    widget<QLineEdit>(s.Txtname).setFocus();
    const std::vector<QWidget*> round = tab_order(w());
    EXPECT_LT(std::find(round.begin(), round.end(), w().widget(s.Optsys1)) - round.begin(),
              std::find(round.begin(), round.end(), w().widget(s.Cmdopenrange)) - round.begin())
        << "options come before the range";
    EXPECT_LT(std::find(round.begin(), round.end(), w().widget(s.Cmdopenrange)) - round.begin(),
              std::find(round.begin(), round.end(), w().widget(s.Cmdstart)) - round.begin());
    widget<QRadioButton>(s.Optsys1).setFocus();
    QTest::keyClick(w().windowHandle(), Qt::Key_Down);
    EXPECT_EQ(p.systemstatus, 2);
    widget<QSlider>(s.HSccoax).setFocus();
    QTest::keyClick(w().windowHandle(), Qt::Key_PageUp);
    EXPECT_EQ(p.coaxerror, 210);
    w().widget(s.Lblpractice[3])->setFocus();
    QTest::keyClick(w().windowHandle(), Qt::Key_Space);
    EXPECT_EQ(p.practicenumber, 3);
}

}   // namespace vorn::desktop_tests
