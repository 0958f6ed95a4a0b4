// The whole trainer on the real widgets: from the first box to a target on the sight, worked by clicks and
// keys.
#include <QDialog>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <cmath>

#include "whole_trainer.h"

namespace vorn::testing_desk {

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

// Notes the round in each picture of the sight, and keeps a picture of the screen from the midst of its
// flight.
class flight_watch : public QObject {
public:
    flight_watch(QWidget& sight, const screen_object& round) : sight_(sight), round_(round)
    {
        sight.installEventFilter(this);
    }
    std::vector<object_fields> seen;
    QPixmap picture;

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() != QEvent::Paint || !round_.Visible) return false;
        // What stands on the screen now is the picture before this one.
        if (seen.size() == 12) picture = sight_.screen()->grabWindow(sight_.window()->winId());
        seen.push_back(round_);
        return false;
    }

private:
    QWidget& sight_;
    const screen_object& round_;
};

TEST_F(engagement, is_fired_with_real_keys_from_the_order_to_the_kill)
{
    ASSERT_NO_FATAL_FAILURE(to_the_target());
    QTest::keyClick(handle(), Qt::Key_A);
    EXPECT_TRUE(s.laze.Visible && s.layready);
    save("3_lased");
    const double laid = s.Imgtargets.Top;
    QTest::keyPress(handle(), Qt::Key_S);
    ASSERT_TRUE(wait_for([&] { return !s.layready; }));
    EXPECT_GT(s.Imgtargets.Top, laid + 250);
    QTest::keyRelease(handle(), Qt::Key_S);
    save("4_lay");
    ASSERT_TRUE(wait_for([&] { return s.Imgloaded.Visible; }));
    flight_watch flight(*widget_of(s.Picrange), s.ammo);
    QTest::keyClick(handle(), Qt::Key_D);
    EXPECT_EQ(s.lblcrew.Caption, "COMD: TARGET STOP !!");
    ASSERT_GT(flight.seen.size(), 12U) << "the round is seen in the air";
    for (std::size_t i = 1; i < flight.seen.size(); ++i) {
        EXPECT_LE(flight.seen[i].Width, flight.seen[i - 1].Width) << "it dwindles";
        EXPECT_LT(flight.seen[i].Top, flight.seen[i - 1].Top) << "and rises";
    }
    flight.picture.save("engagement_5_round.png");
    ASSERT_TRUE(wait_for([&] { return s.explodeframe >= 5; }, 1000));
    EXPECT_TRUE(s.Imgexplode.Visible);
    save("6_explosion");
    when_box<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.text().contains("NUMBER OF HITS = 1"));
        box.grab().save("engagement_7_score.png");
        box.accept();
    });
    ASSERT_TRUE(wait_for([&] { return !s.Imgtargets.Visible; }));
    click_on(s.Cmdstopsim);
    EXPECT_EQ(t.shared.rechit[1], "YES");
    EXPECT_EQ(t.shared.recammo[1], "FIN");
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
