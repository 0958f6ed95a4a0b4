// The whole trainer on the real widgets: from the first box to a target on the sight, worked by clicks and
// keys.
#include <QDialog>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QTest>

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

// How many pixels of the sight differ, in part of it around a place in twips.
int changed(const QImage& before, const QImage& after, const object_fields& at, double scale)
{
    int n = 0;
    const auto pixel = [&](double twips) { return static_cast<int>(twips / twips_per_pixel * scale); };
    for (int x = pixel(at.Left); x < pixel(at.Left + at.Width); ++x)
        for (int y = pixel(at.Top); y < pixel(at.Top + at.Height); ++y)
            if (after.rect().contains(x, y) && before.pixel(x, y) != after.pixel(x, y)) ++n;
    return n;
}

TEST_F(whole_trainer, clicks_through_to_a_target_on_either_sight)
{
    for (gunnery_screen* s : {&t.simulator, &t.thermal}) {
        to_the_sight(*s);
        click_on(s->Cmdstartsim);
        EXPECT_EQ(s->lblcrew.Caption, "COMMANDER:- ACTION !!");
        ASSERT_TRUE(wait_for([&] { return s->targetcalled && s->Imgtargets.Visible; }));
        form_window& w = *pc.window(s->window);
        QWidget& sight = *widget_of(s->Picrange);
        const QImage with = sight.grab().toImage();
        w.grab().save(QString("practice_%1.png").arg(s->visual() ? "visual" : "thermal"));
        const object_fields place = s->Imgtargets;
        s->Imgtargets.Visible = false;
        pc.sync();
        EXPECT_GT(changed(sight.grab().toImage(), with, place, w.scale()), 5)
            << "the target is seen where it is";
        s->Imgtargets.Visible = true;
        click_on(s->Cmdmain);
        EXPECT_EQ(front(pc), &t.startsim.window);
        hide(pc, t.startsim.window);
    }
}

TEST_F(whole_trainer, keys_slew_the_picture_and_a_stop_in_the_lay_is_orderly)
{
    gunnery_screen& s = t.simulator;
    to_the_sight(s);
    QWindow* handle = pc.window(s.window)->windowHandle();
    const double left = s.Imgrange.Left;
    QTest::keyPress(handle, Qt::Key_H);
    QTest::qWait(100);
    QTest::keyRelease(handle, Qt::Key_H);
    EXPECT_GT(s.Imgrange.Left, left);
    const double stopped = s.Imgrange.Left;
    QTest::qWait(60);
    EXPECT_EQ(s.Imgrange.Left, stopped);

    click_on(s.Cmdstartsim);
    ASSERT_TRUE(
        wait_for([&] { return s.Imgtargets.Visible; }));   // seen from within the lay's own event loop
    t.shared.fulldebrief = false;                          // one box at the end, the score
    when_box<QMessageBox>([](QMessageBox& box) { box.accept(); });
    click_on(s.Cmdstopsim);
    EXPECT_FALSE(s.Imgtargets.Visible || s.simrunning || s.Timtarget.Enabled);
    QTest::qWait(1200);
    EXPECT_FALSE(s.Imgtargets.Visible);
}

TEST_F(whole_trainer, closing_the_sight_by_its_frame_asks_first)
{
    to_the_sight(t.simulator);
    when_box<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.text().contains("ARE YOU SURE YOU WANT TO EXIT ?"));
        box.button(QMessageBox::No)->click();
    });
    pc.window(t.simulator.window)->close();
    EXPECT_EQ(front(pc), &t.simulator.window);
    EXPECT_TRUE(pc.window(t.simulator.window)->isVisible());
}

}   // namespace vorn::testing_desk
