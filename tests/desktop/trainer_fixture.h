// The fixture of the tests that run the whole trainer on real widgets.
#pragma once

#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "fixture.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn::desktop_tests {

class trainer_test : public desktop_test {
protected:
    trainer_test() { pc.default_directory = VORN_SOURCE_DIR "/data"; }

    std::vector<form*> forms()
    {
        return {&t.intro.window,   &t.startsim.window, &t.simulator.window, &t.thermal.window,
                &t.results.window, &t.rauthor.window,  &t.joycal.window};
    }
    // Starts the program and opens the set-up screen.
    void open_setup()
    {
        when_box([](QDialog& box) { box.accept(); });
        pc.run([this] { start_program(t); });
        click(t.intro.lblstart);
        EXPECT_TRUE(QTest::qWaitForWindowActive(pc.window(t.startsim.window)));
    }
    // Where an object is shown in its window.
    QRect in_window(const screen_object& o)
    {
        QWidget& w = widget(o);
        return {w.mapTo(w.window(), QPoint(0, 0)), w.size()};
    }
    void answer_yes()
    {
        when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    }

    trainer t{pc};
    QTemporaryDir folder;
};

}   // namespace vorn::desktop_tests
