// Random walks over the whole program.
#include "walk/walk.h"

#include <gtest/gtest.h>

namespace vorn {
namespace {

class random_walk : public testing::TestWithParam<unsigned> {};

TEST_P(random_walk, breaks_no_rule)
{
    const walk_result r = walk(GetParam(), 30000);
    EXPECT_EQ(r.failure, "");
    std::string reached;
    for (const auto& [what, times] : r.reached) reached += what + '\n';
    EXPECT_GE(r.reached.size(), 75U) << "the walk got stuck and proves little; it reached only\n" << reached;
}

INSTANTIATE_TEST_SUITE_P(seeds, random_walk, testing::Range(1U, 5U));

}   // namespace
}   // namespace vorn
