// The set-up screen on the real widgets: worked by mouse and keyboard as an instructor works it.
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <set>

#include "desk.h"
#include "flow/intro.h"
#include "trainer.h"

namespace vorn::testing_desk {

class set_up : public desk {
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

// Every widget that takes the focus by Tab, from the one that has it, until the round is complete.
std::vector<QWidget*> tab_round(QWidget& window)
{
    std::vector<QWidget*> round;
    QWidget* first = QApplication::focusWidget();
    do {
        round.push_back(QApplication::focusWidget());
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && round.size() < 200);
    return round;
}

TEST_F(set_up, everything_can_be_reached_and_worked_by_keyboard)
{
    widget<QLineEdit>(s.Txtname).setFocus();
    const std::vector<QWidget*> round = tab_round(w());
    const std::set<QWidget*> reached(round.begin(), round.end());
    for (const screen_object* o : s.window.objects) {
        const bool worked = o->Click || o->Change || o->kind == object_kind::textbox;
        const bool in_group = o->kind == object_kind::option && o->Value == 0;   // the arrows lead there
        if (!worked || in_group || !takes_input(*o)) continue;
        QWidget* x = w().widget(*o);
        EXPECT_TRUE(reached.contains(x)) << o->Caption << o->AccessibleName;
        const bool named = !x->accessibleName().isEmpty() || !o->Caption.empty();
        EXPECT_TRUE(named) << "a thing without a name at " << o->Left << ' ' << o->Top;
    }
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

}   // namespace vorn::testing_desk
