// Random walks over the whole program.
#include "walk/walk.h"

#include <gtest/gtest.h>

namespace vorn {
namespace {

class random_walk : public testing::TestWithParam<unsigned> {};

// A walk that doesn't reach all this got stuck somewhere and proves little.
TEST_P(random_walk, breaks_no_rule)
{
    walk_result r = walk(GetParam(), 30000);
    EXPECT_EQ(r.failure, "");
    for (const char* what : {"simulator FIN kills",
                             "simulator HESH kills",
                             "simulator COAX kills",
                             "thermal FIN kills",
                             "thermal HESH kills",
                             "thermal COAX kills",
                             "misses",
                             "wrong rounds",
                             "pauses",
                             "practices completed",
                             "minutes without input",
                             "quick starts",
                             "ratings",
                             "unusable ranges",
                             "refused joysticks",
                             "calibrations",
                             "debriefs",
                             "replays",
                             "ranges opened",
                             "ranges saved",
                             "practices ended during a lay"})
        EXPECT_GE(r.reached[what], 1) << what;
}

INSTANTIATE_TEST_SUITE_P(seeds, random_walk, testing::Range(1U, 5U));

}   // namespace
}   // namespace vorn
