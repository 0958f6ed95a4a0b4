// The fixture of the tests that run the whole trainer on real widgets.
#pragma once

#include "fixture.h"
#include "screens.h"

namespace vorn::desktop_tests {

struct trainer_test : desktop_test {
    trainer_test() { pc.default_directory = VORN_SOURCE_DIR "/data"; }

    // Starts the program and opens the set-up screen.
    void open_setup()
    {
        when_box([](QDialog& box) { box.accept(); });
        pc.run([this] { start_program(t); });
        click(t.intro.lblstart);
        EXPECT_TRUE(QTest::qWaitForWindowActive(pc.window(t.startsim.window)));
    }
    // Clicks on these options and on START PRACTICE, and answers the question with yes.
    void start_practice(std::initializer_list<const screen_object*> options)
    {
        for (const screen_object* o : options) click(*o);
        answer_yes();
        click(t.startsim.Cmdstart);
    }
    // Counted moves take hardly any real time. The test advances the machine's clock: `time`, seconds.
    void use_own_time()
    {
        constexpr double hurry = 1e6;
        pc.world_clock = [this] { return time / hurry; };
        pc.set_speed(hurry);
    }
    QRect in_window(const screen_object& o)
    {
        QWidget& w = widget(o);
        return {w.mapTo(w.window(), QPoint(0, 0)), w.size()};
    }
    void answer_yes()
    {
        when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    }
    // The visible objects that must not overlap: those on the form except `panel`, and those in `panel`.
    static std::vector<const screen_object*> parts(const form& f, const screen_object* panel = nullptr)
    {
        std::vector<const screen_object*> found;
        for (const screen_object* o : f.objects)
            if (o->Visible && o != panel && (o->parent == nullptr || o->parent == panel)) found.push_back(o);
        return found;
    }
    // Expects all objects to be in the window, without overlaps.
    void expect_orderly(const std::vector<const screen_object*>& all)
    {
        for (const screen_object* o : all) {
            EXPECT_TRUE(widget(*o).window()->rect().contains(in_window(*o))) << o->Caption;
            for (const screen_object* other : all)
                EXPECT_TRUE(o == other || !in_window(*o).intersects(in_window(*other)))
                    << o->Caption << " and " << other->Caption << " at " << other->Left;
        }
    }

    double time = 1000;
    trainer t{pc};
};

}   // namespace vorn::desktop_tests
