// Walks of a million events in all over the whole program.
#include "walk/walk.h"

#include <gtest/gtest.h>

#include "calibration/joycal.h"
#include "drill.h"
#include "gunnery/screen.h"
#include "setup/startsim.h"
#include "walk/rules.h"

namespace vorn {
namespace {

// What a walk of 250 000 events comes to at least: half of what eight seeds came to when it was laid out. A
// walk that falls short of it has lost its way and proves little.
using counts = std::vector<std::pair<const char*, long>>;
const counts comes_to{{"simulator FIN kills", 700},
                      {"simulator HESH kills", 150},
                      {"simulator coax kills", 250},
                      {"thermal FIN kills", 200},
                      {"thermal HESH kills", 40},
                      {"thermal coax kills", 40},
                      {"targets missed", 200},
                      {"wrong rounds", 5},
                      {"re-lays", 60},
                      {"corrections", 60},
                      {"pauses", 500},
                      {"stops in a lay", 50},
                      {"unloads in a lay", 40},
                      {"minutes left to itself", 30},
                      {"practices fought to their end", 100},
                      {"quick starts", 40},
                      {"ratings", 70},
                      {"unusable ranges", 10},
                      {"refusals of the stick", 60},
                      {"calibrations", 30},
                      {"fired by stick", 700},
                      {"debriefs", 60},
                      {"replays", 20},
                      {"ranges opened", 5},
                      {"ranges saved", 5}};

class random_walk : public testing::TestWithParam<unsigned> {};

TEST_P(random_walk, breaks_no_rule_and_gets_about)
{
    walk_result r = walk(GetParam(), 250000);
    EXPECT_EQ(r.failure, "");
    for (const auto& [what, times] : comes_to) EXPECT_GE(r.reached[what], times) << what;
}

INSTANTIATE_TEST_SUITE_P(seeds, random_walk, testing::Range(1U, 5U));

// Or a failure could not be walked to again.
TEST(random_walk_replay, the_same_seed_goes_the_same_way)
{
    EXPECT_EQ(walk(7, 5000).reached, walk(7, 5000).reached);
}

TEST(random_walk_rules, name_what_is_wrong)
{
    const struct {
        void (*spoil)(trainer&, gunnery_screen&);
        const char* told;
    } cases[] = {
        {[](trainer&, gunnery_screen& s) { s.explodeframe = 16; }, "the explosion has sixteen pictures"},
        {[](trainer& t, gunnery_screen&) { start(t.thermal.Timpause); }, "a screen that isn't loaded"},
        {[](trainer&, gunnery_screen& s) { start(s.Timleft); }, "no direction timer runs"},
        {[](trainer&, gunnery_screen& s) { stop(s.Timpause); }, "a practice goes on by itself"},
        {[](trainer& t, gunnery_screen&) { t.startsim.Optcon1.Value = 1; }, "one option of a group"},
        {[](trainer& t, gunnery_screen&) { t.shared.rechit[4] = "NO"; }, "row of the record is sane"},
        {[](trainer& t, gunnery_screen&) {
             load(t.pc, t.joycal.window);
             t.joycal.dot.Left = 2881;
         },
         "the dot stays in its field"},
        {[](trainer& t, gunnery_screen& s) {
             t.pc.screens.arrivals.push_back({&s.window, 1});
         },
         "no arrival"}};
    const walk_moment quiet{true, true, true, false, false};
    for (const auto& c : cases) {
        drill d(sight_kind::visual);
        d.start();
        d.pc.advance(1);
        EXPECT_EQ(broken_rule(d.t, quiet), "");
        c.spoil(d.t, d.screen());
        EXPECT_NE(broken_rule(d.t, quiet).find(c.told), std::string::npos) << c.told;
    }
}

}   // namespace
}   // namespace vorn
