// The program as a whole: the shared practice state, the screens, the random number generator and the machine
// the program runs on. Everything belongs to one trainer, which is passed to the operations, so that a test
// can create two trainers.
#pragma once

#include <memory>

#include "platform/machine.h"
#include "state/numbers.h"
#include "state/practice_state.h"

namespace vorn {

struct intro_screen;
struct startsim_screen;
struct gunnery_screen;
struct results_screen;
struct rauthor_screen;
struct joycal_screen;

struct trainer {
    explicit trainer(machine&);
    trainer(const trainer&) = delete;
    trainer& operator=(const trainer&) = delete;
    ~trainer();

    machine& pc;
    practice_state shared;
    random_numbers random;

private:
    struct all_screens;
    const std::unique_ptr<all_screens> screens_;

public:
    // A source that uses a screen includes that screen's header.
    intro_screen& intro;         // flow/intro.h
    startsim_screen& startsim;   // setup/startsim.h
    gunnery_screen& simulator;   // gunnery/screen.h, the visual sight
    gunnery_screen& thermal;     // the thermal sight
    results_screen& results;     // debrief/results.h
    rauthor_screen& rauthor;     // ranges/rauthor.h
    joycal_screen& joycal;       // calibration/joycal.h
};

// The gunnery screen for the current practice mode, visual or thermal.
gunnery_screen& practice_screen(trainer&);

}   // namespace vorn
