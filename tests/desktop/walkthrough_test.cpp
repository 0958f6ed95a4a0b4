// A practice on real widgets, from the title through the debrief to the exit, by mouse, keys and dialogs.
#include "debrief/resultsfile.h"
#include "gunnery/gunnery.h"
#include "platform/files.h"
#include "trainer_fixture.h"

namespace vorn::desktop_tests {

struct walkthrough : trainer_test {
    walkthrough() { use_own_time(); }
    QWindow* handle() { return pc.window(s.window)->windowHandle(); }
    std::string shown(const screen_object& o) const { return widget<QLabel>(o).text().toStdString(); }
    bool wait_for(const std::function<bool()>& what)
    {
        for (int i = 0; i < 3000 && !what(); ++i) {
            time += 0.1;
            QTest::qWait(1);
        }
        return what();
    }
    // Hits the first target, and fires at no other.
    void fight()
    {
        open_setup();
        start_practice({&t.startsim.Optcon2, &t.startsim.Opteng4, &t.startsim.Opttime2});
        ASSERT_TRUE(QTest::qWaitForWindowActive(pc.window(s.window)));
        pc.run([&] { set_slider(s.HScspeed, 20); });   // small: each autolay stage goes up to a step too far
        click(s.Cmdstartsim);
        ASSERT_TRUE(wait_for([&] { return s.targetcalled && s.Imgtargets.Visible; }));
        QTest::keyClick(handle(), Qt::Key_E);
        pc.run([&] {   // lays the aim point on the centre of the target
            movepicture(s, &object_fields::Left, -aimacross(s));
            movepicture(s, &object_fields::Top, -aimdown(s));
        });
        QTest::keyClick(handle(), Qt::Key_A);
        QTest::keyPress(handle(), Qt::Key_S);
        EXPECT_TRUE(wait_for([&] { return !s.layready; }));
        QTest::keyRelease(handle(), Qt::Key_S);
        EXPECT_TRUE(wait_for([&] { return s.Imgloaded.Visible; }));
        QTest::keyClick(handle(), Qt::Key_D);
        ASSERT_TRUE(wait_for([&] { return t.shared.engagement == 3; }));
        answer_yes();   // DEBRIEF FIRER ?
        click(s.Cmdstopsim);
        ASSERT_EQ(front(pc), &t.results.window);
    }
    void debrief()
    {
        for (const auto& [e, rounds_and_hit] : {std::pair{1, "1 YES"}, {2, "0 NO"}}) {
            click(t.results.Lbltgtnumber[e]);
            EXPECT_EQ(shown(t.results.Lblrounds) + ' ' + shown(t.results.Lbltarget), rounds_and_hit);
        }
        choose(folder.filePath("smith"));
        click(t.results.Cmdsave);
        EXPECT_EQ(read_file(pc, folder.filePath("smith.vrn").toStdString()).text,
                  results_file_bytes(t.shared));
        when_box<QMessageBox>([this](QMessageBox& box) {
            choose(folder.filePath("report.pdf"));
            box.button(QMessageBox::Yes)->click();
        });
        click(t.results.Cmdprint);
        EXPECT_GT(QFileInfo(folder.filePath("report.pdf")).size(), 5000);
        click(t.results.cmdnew);
    }
    gunnery_screen& s = t.simulator;
};

TEST_F(walkthrough, leads_through_a_practice)
{
    ASSERT_NO_FATAL_FAILURE(fight());
    debrief();
    pc.leave = [] { std::_Exit(42); };
    EXPECT_EXIT(
        {
            answer_yes();
            click(t.startsim.Cmdexit);
        },
        testing::ExitedWithCode(42), "");
}

}   // namespace vorn::desktop_tests
