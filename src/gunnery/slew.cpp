#include <algorithm>
#include <cmath>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr double frame_seconds = 1.0 / 60;
constexpr double longest_slew = 0.45;   // seconds: with one across and one down a lay is over within a second
constexpr int most_pauses =
    1000;   // of a slew: a target millions of twips away must not hold up the practice

// Lets one count be seen. False when the practice has gone meanwhile.
bool showcount(trainer& t, const gunnery_screen& s, double seconds, int resets)
{
    t.pc.pace(seconds);
    if (s.numbers.eventsinlay) t.pc.do_events();
    return s.resets == resets;
}

// The target takes each count in turn and the picture moves by a step each time, so that it ends one step
// further than the target.
bool slew(trainer& t, gunnery_screen& s, coordinate along, const slew_numbers& n)
{
    const double from = s.Imgtargets.*along;
    const double to = n.base + std::copysign(Int(Rnd(t.random) * n.spread), n.step);
    const int all = counts(from, to, n.step);
    const int resets = s.resets;
    const int shown = std::max(1, all / most_pauses);
    const double seconds = std::min(longest_slew, all * frame_seconds) / std::max(all, 1) * shown;
    for (int i = 0; i < all; ++i) {
        s.Imgtargets.*along = from + i * n.step;
        s.Imgrange.*along += n.step;
        if (i % shown == 0 && !showcount(t, s, seconds, resets)) return false;
    }
    return true;
}

// Beyond these a target that has just been placed counts as to the right of the sight, and as below it.
constexpr double left_of_sight = 2040;
constexpr double above_sight = 960;

}   // namespace

static bool slewright(trainer& t, gunnery_screen& s)
{
    return slew(t, s, &object_fields::Left, s.numbers.right);
}

static bool slewleft(trainer& t, gunnery_screen& s)
{
    return slew(t, s, &object_fields::Left, s.numbers.left);
}

static bool slewdown(trainer& t, gunnery_screen& s)
{
    return slew(t, s, &object_fields::Top, s.numbers.down);
}

static bool slewup(trainer& t, gunnery_screen& s)
{
    return slew(t, s, &object_fields::Top, s.numbers.up);
}

bool commanderslay(trainer& t, gunnery_screen& s)
{
    const bool above =
        s.Imgtargets.Top < above_sight;   // as placed: the gunner may move it during the first slew
    const bool across = s.Imgtargets.Left < left_of_sight ? slewright(t, s) : slewleft(t, s);
    if (!across) return false;
    const bool along = above ? slewdown(t, s) : slewup(t, s);
    if (!along) return false;
    s.targetcalled = true;
    reporton(t, s);
    return true;
}

}   // namespace vorn
