// Walks of a million events in all over the whole program.
#include "walk/walk.h"

#include <gtest/gtest.h>

namespace vorn {
namespace {

// What a walk of 250 000 events reaches at least: about half of the mean of several seeds. A walk that
// reaches less got stuck somewhere and proves little.
constexpr struct {
    const char* what;
    long times;
} minimum[] = {{"simulator FIN kills", 500},
               {"simulator HESH kills", 400},
               {"simulator coax kills", 400},
               {"thermal FIN kills", 150},
               {"thermal HESH kills", 180},
               {"thermal coax kills", 80},
               {"kills with the joystick selected", 600},
               {"targets missed", 200},
               {"wrong rounds", 30},
               {"corrections", 60},
               {"pauses", 400},
               {"stops during a lay", 25},
               {"unloads during a lay", 20},
               {"minutes without input", 30},
               {"practices completed", 70},
               {"quick starts", 40},
               {"ratings", 70},
               {"unusable ranges", 20},
               {"refused joysticks", 60},
               {"calibrations", 40},
               {"debriefs", 80},
               {"replays", 30},
               {"ranges opened", 40},
               {"ranges saved", 30}};

class random_walk : public testing::TestWithParam<unsigned> {};

TEST_P(random_walk, breaks_no_rule)
{
    walk_result r = walk(GetParam(), 250000);
    EXPECT_EQ(r.failure, "");
    for (const auto& [what, times] : minimum) EXPECT_GE(r.reached[what], times) << what;
}

INSTANTIATE_TEST_SUITE_P(seeds, random_walk, testing::Range(1U, 5U));

}   // namespace
}   // namespace vorn
