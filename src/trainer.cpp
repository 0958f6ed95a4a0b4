#include "trainer.h"

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"

namespace vorn {

struct trainer::all_screens {
    intro_screen intro;
    startsim_screen startsim;
    gunnery_screen simulator{sight_kind::visual};
    gunnery_screen thermal{sight_kind::thermal};
    results_screen results;
    rauthor_screen rauthor;
    joycal_screen joycal;
};

trainer::trainer(machine& m)
    : pc(m),
      screens_(std::make_unique<all_screens>()),
      intro(screens_->intro),
      startsim(screens_->startsim),
      simulator(screens_->simulator),
      thermal(screens_->thermal),
      results(screens_->results),
      rauthor(screens_->rauthor),
      joycal(screens_->joycal)
{
    make_intro(*this);
    make_startsim(*this);
    make_gunnery(*this, simulator);
    make_gunnery(*this, thermal);
    make_results(*this);
    make_rauthor(*this);
    make_joycal(*this);
}

trainer::~trainer() = default;

gunnery_screen& practice_screen(trainer& t)
{
    return t.shared.practicemode == 2 ? t.thermal : t.simulator;
}

}   // namespace vorn
