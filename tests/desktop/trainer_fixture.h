// The fixture of the tests that run the whole trainer on real widgets.
#pragma once

#include <QFileDialog>
#include <QInputDialog>
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
    void answer_yes()
    {
        when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    }
    // Selects a file in the next file dialog.
    void choose(const QString& file)
    {
        when_box<QFileDialog>([file](QFileDialog& d) {
            d.selectFile(file);
            static_cast<QDialog&>(d).accept();
        });
    }
    // Begins a new range in the author, with this picture.
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

    trainer t{pc};
    QTemporaryDir folder;
};

}   // namespace vorn::desktop_tests
