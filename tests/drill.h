// What a drill stands on: a folder of ranges made for it, a headless machine with the program on it, and the
// road to a gunnery screen.
#pragma once

#include <string>
#include <vector>

#include "data_folder.h"
#include "gunnery/screen.h"
#include "platform/headless/headless_machine.h"
#include "ranges/rangefile.h"
#include "trainer.h"

namespace vorn {

// The files of the ranges that the trainer ships with.
std::vector<std::string> shipped_ranges();
// The number that makes the next draw of a position come out as this one.
double draw_of(int position);

struct drill {
    // On the ranges made for drills, or on those of another program directory.
    explicit drill(sight_kind, const std::string& program = {});

    // Sets the options before the road to the screen, then takes it.
    void set_up();
    // Set up, and a click on Start.
    void start();
    gunnery_screen& screen() { return kind == sight_kind::visual ? t.simulator : t.thermal; }
    std::string crew() { return screen().lblcrew.Caption; }
    // Starts a practice and waits until the target of the first order is up at this position.
    void present(int position);
    // Puts the target where the sums of a drill want it.
    void target_at(double left, double top);
    // A key, down and up; and one held for so many seconds.
    void tap(int key);
    void hold(int key, double seconds);
    // Runs until the practice is over; gives the seconds that took.
    double to_the_end();
    // The moments of the crew lines that say so.
    std::vector<double> moments(const std::string& line);

    sight_kind kind;
    data_folder data;
    headless_machine pc;
    trainer t{pc};
};

}   // namespace vorn
