#include <algorithm>
#include <cmath>

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr double frame_seconds = 1.0 / 60;
constexpr double longest_slew = 0.45;   // seconds; the two slews of a lay take less than a second
constexpr int most_pauses = 1000;   // per slew: a target millions of twips away must not delay the practice

// The first count moves the picture but leaves the target in place, so the picture moves one step more.
// Returns false if the practice has ended meanwhile.
bool slew(trainer& t, gunnery_screen& s, coordinate along, const slew_numbers& n)
{
    const double from = s.Imgtargets.*along;
    const double to = n.base + std::copysign(Int(Rnd(t.random) * n.spread), n.step);
    const int all = counts(from, to, n.step);
    const int resets = s.resets;
    const int shown = all / most_pauses + 1;
    const double seconds = std::min(longest_slew, all * frame_seconds) / std::max(all, 1) * shown;
    for (int i = 0; i < all; ++i) {
        s.Imgtargets.*along = from + i * n.step;
        s.Imgrange.*along += n.step;
        if (i % shown != 0) continue;
        t.pc.pace(seconds);
        if (s.numbers.eventsinlay) t.pc.do_events();
        if (s.resets != resets) return false;
    }
    return true;
}

// Twips. A target with a smaller Left counts as left of the sight, one with a smaller Top as above it.
constexpr double left_of_sight = 2040;
constexpr double above_sight = 960;

}   // namespace

bool commanderslay(trainer& t, gunnery_screen& s)
{
    const sight_numbers& n = s.numbers;
    const bool above = s.Imgtargets.Top < above_sight;   // before the slews: events in them may move it
    const bool left = s.Imgtargets.Left < left_of_sight;
    if (!slew(t, s, &object_fields::Left, left ? n.right : n.left)) return false;
    if (!slew(t, s, &object_fields::Top, above ? n.down : n.up)) return false;
    s.targetcalled = true;
    reporton(t, s);
    return true;
}

}   // namespace vorn
