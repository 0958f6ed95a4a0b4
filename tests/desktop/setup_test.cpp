// The set-up screen on the real widgets: worked by mouse and keyboard as an instructor works it.
#include <QLabel>
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
    void save(const char* name) { w().grab().save(QString("setup_%1.png").arg(name)); }

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

TEST_F(set_up, clicks_through_three_practices_and_starts_one)
{
    widget<QLineEdit>(s.Txtname).setFocus();
    widget<QLineEdit>(s.Txtname).selectAll();
    QTest::keyClicks(&widget<QLineEdit>(s.Txtname), "SMITH");
    click(s.Lblpractice[5]);
    EXPECT_EQ(p.practicemode, 2);
    EXPECT_EQ(p.windbias, -2);
    EXPECT_EQ(widget<QSlider>(s.HScrwind).value(), -2);
    EXPECT_TRUE(widget<QRadioButton>(s.Opteng3).isChecked());
    EXPECT_FALSE(widget<QRadioButton>(s.Option3).isEnabled());
    EXPECT_EQ(widget<QLabel>(s.lblprac[1]).text(), "STANDARD PRACTICE SHOOT");
    save("practice5");

    click(s.Lblpractice[9]);
    EXPECT_EQ(p.practicemode, 1);
    EXPECT_EQ(p.systemstatus, 2);
    EXPECT_FALSE(widget<QSlider>(s.HScrwind).isEnabled());
    click(s.Option4);
    EXPECT_EQ(p.coaxbursts, 4);
    EXPECT_EQ(widget<QLabel>(s.lblprac[7]).text(), "4 KILL BURSTS ON COAX TARGETS");

    click(s.Lblpractice[12]);
    click(s.Opttargets1);
    click(s.Optcon2);
    click(s.Chkinfo2);
    save("practice12");
    EXPECT_EQ(p.coaxbursts, 2);
    EXPECT_FALSE(p.infocontrol);
    when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    click(s.Cmdstart);
    EXPECT_EQ(front(pc), &t.simulator.window);
    EXPECT_EQ(p.studentdetails.trimmed(), "SMITH_000");
    EXPECT_EQ(p.targetcount, 6);
    EXPECT_FALSE(t.simulator.Frmcon.Visible);
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

TEST_F(set_up, no_text_is_cut_at_any_size)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        w().resize(static_cast<int>(1024 * scale), static_cast<int>(768 * scale));
        settle();
        expect_labels_whole(w(), scale);
        for (const auto* b : w().findChildren<QRadioButton*>())
            EXPECT_LE(b->sizeHint().width(), b->width() + 1) << b->text().toStdString() << " at " << scale;
        save(scale == 1 ? "1x" : scale == 2 ? "2x" : "1_5x");
    }
}

TEST_F(set_up, a_cancelled_or_answered_dialog_does_what_it_should)
{
    QString title;
    when_box<QDialog>([&](QDialog& d) {
        title = d.windowTitle();
        d.reject();
    });
    click(s.Cmdopenrange);
    EXPECT_EQ(title, "OPEN RANGE SETUP");
    EXPECT_TRUE(s.Frmmode.Enabled);
    click(s.Cmdabout);
    EXPECT_TRUE(w().widget(s.Image1)->isVisible());
    save("about");
    click(s.Cmdabout);
    EXPECT_FALSE(w().widget(s.Image1)->isVisible());
}

}   // namespace vorn::testing_desk
