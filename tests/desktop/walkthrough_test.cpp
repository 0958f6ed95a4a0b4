// One run through every screen on real widgets, from the title to the exit, by mouse, keys, dialogs and
// joystick.
#include <QInputDialog>
#include <QLabel>
#include <cmath>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "debrief/resultsfile.h"
#include "gunnery/gunnery.h"
#include "platform/files.h"
#include "ranges/rangefile.h"
#include "trainer_fixture.h"
#include "virtual_stick.h"

namespace vorn::desktop_tests {

class walkthrough : public trainer_test {
protected:
    QWindow* handle() { return pc.window(s.window)->windowHandle(); }
    std::string shown(const screen_object& o) const { return widget<QLabel>(o).text().toStdString(); }

    bool wait_for(const std::function<bool()>& what) { return QTest::qWaitFor(what, 15000); }
    // Begins a new range with this picture on the screen of the range author.
    void new_range(const QString& name, const QString& picture)
    {
        when_box<QInputDialog>([=, this](QInputDialog& box) {
            box.setTextValue(name);
            when_box<QMessageBox>([=, this](QMessageBox& question) {
                choose(picture);
                question.button(QMessageBox::No)->click();
            });
            box.accept();
        });
        click(t.rauthor.cmdnew);
    }
    // Waits while the program's clock runs twelve times faster.
    bool wait_fast(const std::function<bool()>& what)
    {
        pc.set_speed(12);
        const bool came = QTest::qWaitFor(what, 30000);
        pc.set_speed(1);
        return came;
    }
    // Holds a direction key until the aim point is on the centre of the target in this direction.
    void traverse(double (*offset)(const gunnery_screen&), Qt::Key less, Qt::Key more)
    {
        const double before = offset(s);
        if (std::abs(before) <= 30) return;
        const Qt::Key k = before > 0 ? more : less;
        QTest::keyPress(handle(), k);
        EXPECT_TRUE(wait_for([&] { return std::abs(offset(s)) <= 30 || offset(s) * before < 0; }));
        QTest::keyRelease(handle(), k);
    }
    void lay_on()
    {
        for (int i = 0; i < 20; ++i) {
            traverse(aimacross, Qt::Key_H, Qt::Key_J);
            traverse(aimdown, Qt::Key_U, Qt::Key_N);
        }
        EXPECT_LE(std::abs(aimacross(s)), 30);
        EXPECT_LE(std::abs(aimdown(s)), 30);
    }
    void fire_on_target()
    {
        QTest::keyClick(handle(), Qt::Key_E);
        lay_on();
        load_and_fire();
    }
    void fire_beside_target()
    {
        QTest::keyClick(handle(), Qt::Key_E);
        const Qt::Key away = aimacross(s) > 0 ? Qt::Key_H : Qt::Key_J;
        QTest::keyPress(handle(), away);
        EXPECT_TRUE(wait_for([&] { return std::abs(aimacross(s)) > 1000; }));
        QTest::keyRelease(handle(), away);
        load_and_fire();
    }
    void load_and_fire()
    {
        QTest::keyClick(handle(), Qt::Key_A);
        QTest::keyPress(handle(), Qt::Key_S);
        EXPECT_TRUE(wait_fast([&] { return !s.layready; }));
        QTest::keyRelease(handle(), Qt::Key_S);
        EXPECT_TRUE(wait_fast([&] { return s.Imgloaded.Visible; }));
        QTest::keyClick(handle(), Qt::Key_D);
    }
    // Hits targets 1, 3 and 5, misses target 2, and doesn't fire at the others.
    void fight()
    {
        for (int target = 1; target <= 6; ++target) {
            ASSERT_TRUE(wait_fast([&] { return s.targetcalled && s.Imgtargets.Visible; })) << target;
            ASSERT_EQ(t.shared.engagement, target);
            if (target % 2 == 1) fire_on_target();
            if (target == 2) fire_beside_target();
            if (target == 6) answer_yes();   // DEBRIEF FIRER ?
            ASSERT_TRUE(wait_fast([&] { return t.shared.engagement != target || front(pc) != &s.window; }));
        }
    }
    void set_up_and_fight()
    {
        open_setup();
        for (const screen_object* o : {&t.startsim.Optcon2, &t.startsim.Opteng4, &t.startsim.Opttime2})
            click(*o);
        answer_yes();
        click(t.startsim.Cmdstart);
        ASSERT_EQ(front(pc), &s.window);
        ASSERT_TRUE(wait_for([&] { return pc.window(s.window)->isActiveWindow(); }));
        pc.run([&] { set_slider(s.HScspeed, 20); });   // slow enough to stop on the target
        click(s.Cmdstartsim);
        ASSERT_NO_FATAL_FAILURE(fight());
        ASSERT_EQ(front(pc), &t.results.window);
    }
    void debrief()
    {
        const char* const engagements[] = {"1 YES", "1 NO", "1 YES", "0 NO", "1 YES", "0 NO"};
        for (int e = 1; const char* rounds_and_hit : engagements) {
            click(t.results.Lbltgtnumber[e]);
            EXPECT_EQ(shown(t.results.Lblrounds) + ' ' + shown(t.results.Lbltarget), rounds_and_hit) << e;
            ++e;
        }
        choose(folder.filePath("smith"));
        click(t.results.Cmdsave);
        practice_state read;
        item_reader items(*read_file(pc, folder.filePath("smith.vrn").toStdString()).text);
        ASSERT_TRUE(take_results(items, read));
        EXPECT_EQ(read.rechit, t.shared.rechit);
        when_box<QMessageBox>([this](QMessageBox& box) {
            choose(folder.filePath("report.pdf"));
            box.button(QMessageBox::Yes)->click();
        });
        click(t.results.Cmdprint);
        QFile report(folder.filePath("report.pdf"));
        ASSERT_TRUE(report.open(QIODevice::ReadOnly));
        EXPECT_TRUE(report.peek(5) == "%PDF-" && report.size() > 5000);
        click(t.results.cmdnew);
        ASSERT_EQ(front(pc), &t.startsim.window);
    }
    void make_a_range()
    {
        rauthor_screen& a = t.rauthor;
        answer_yes();
        click(t.startsim.cmdeditrange);
        new_range("NEW GROUND", VORN_SOURCE_DIR "/data/ranges/visualrange.vrp");
        for (int n = 1; n <= 20; ++n) {
            QTest::mousePress(&widget(a.cmdright), Qt::LeftButton);
            const double before = a.Imagerange.Left;
            EXPECT_TRUE(wait_for([&] { return a.Imagerange.Left != before; }));
            QTest::mouseRelease(&widget(a.cmdright), Qt::LeftButton);
            click(a.Lbltargetnum[n]);
            click(a.Lblsavetarget);
        }
        choose(folder.filePath("ground"));
        click(a.Cmdsave);
        click(a.Cmdstart);
        EXPECT_EQ(t.startsim.Lblrangename.Caption, "NEW GROUND          ");
        practice_state read;
        item_reader items(*read_file(pc, folder.filePath("ground.arf").toStdString()).text);
        ASSERT_TRUE(take_range(items, read));
        EXPECT_EQ(read.rangename.trimmed(), "NEW GROUND");
        for (int n = 2; n < positions; ++n) EXPECT_GT(read.targetx[n], read.targetx[n - 1]) << n;
        EXPECT_EQ(read.targetx[20], t.shared.targetx[20]);
    }
    void calibrate()
    {
        virtual_stick stick(pc);
        stick.plug();
        click(t.startsim.cmdstick);
        ASSERT_TRUE(wait_for([&] { return pc.window(t.joycal.window)->isActiveWindow(); }));
        click(t.joycal.Cmdstart);
        for (int n = 0; n < 3; ++n) {
            stick.button(n, true);
            stick.button(n, false);
        }
        const joycal_screen& c = t.joycal;
        const double left = c.dot.Left, top = c.dot.Top;
        stick.axis(0, 20000);
        stick.axis(1, -20000);
        EXPECT_EQ(shown(c.Lblxmin) + ' ' + shown(c.Lblymin), "52768 12768");
        EXPECT_TRUE(c.dot.Left > left && c.dot.Top < top) << "right and away from the user";
        click(c.Cmdfinish);
        EXPECT_TRUE(t.shared.joycalibrated);
    }

    gunnery_screen& s = t.simulator;
};

TEST_F(walkthrough, leads_through_every_screen)
{
    ASSERT_NO_FATAL_FAILURE(set_up_and_fight());
    const auto& hit = t.shared.rechit;
    EXPECT_EQ(std::vector<std::string>(hit.begin() + 1, hit.begin() + 7),
              (std::vector<std::string>{"YES", "NO", "YES", "NO", "YES", "NO"}));
    ASSERT_NO_FATAL_FAILURE(debrief());
    make_a_range();
    ASSERT_NO_FATAL_FAILURE(calibrate());
    pc.leave = [] { std::_Exit(42); };
    EXPECT_EXIT(
        {
            answer_yes();
            click(t.startsim.Cmdexit);
        },
        testing::ExitedWithCode(42), "");
}

}   // namespace vorn::desktop_tests
