// The program as a whole: the shared practice state, the screens, the source of chance and the machine it
// all runs on. Everything hangs on one trainer, which is handed to each operation, so that there can be two.
#pragma once

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "platform/machine.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "state/numbers.h"
#include "state/practice_state.h"

namespace vorn {

struct trainer {
    explicit trainer(machine&);
    trainer(const trainer&) = delete;
    trainer& operator=(const trainer&) = delete;

    machine& pc;
    practice_state shared;
    chance luck;

    intro_screen intro;
    startsim_screen startsim;
    gunnery_screen simulator{sight_kind::visual};
    gunnery_screen thermal{sight_kind::thermal};
    results_screen results;
    rauthor_screen rauthor;
    joycal_screen joycal;
};

}   // namespace vorn
