#include "trainer.h"

#include "gunnery/gunnery.h"

namespace vorn {

trainer::trainer(machine& m) : pc(m)
{
    make_intro(*this);
    make_startsim(*this);
    make_gunnery(*this, simulator);
    make_gunnery(*this, thermal);
    make_results(*this);
    make_rauthor(*this);
    make_joycal(*this);
}

}   // namespace vorn
