// The program with all of its screens, for tests that use several.
#pragma once

#include <array>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

inline std::array<form*, 7> forms(trainer& t)
{
    return {&t.intro.window,   &t.startsim.window, &t.simulator.window, &t.thermal.window,
            &t.results.window, &t.rauthor.window,  &t.joycal.window};
}

}   // namespace vorn
