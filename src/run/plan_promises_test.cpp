// Whatever the names are and whatever is done to them, a plan keeps its promises.

#include <gtest/gtest.h>

#include "run/testing/random_session.h"

namespace multirename {
namespace {

TEST(PlanPromises, HoldAfterEverythingThatAUserMayDo)
{
    std::size_t renames = 0;
    for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
        RandomChoices choices(seed);
        RandomSession session(choices);
        ASSERT_EQ(session.changed_without_edit(), std::nullopt) << seed;
        for (int act = 0; act < 8; ++act) {
            ASSERT_EQ(session.broken_promise(), std::nullopt) << seed << ", after " << act;
            renames += session.planned();
            session.act();
        }
    }
    EXPECT_GT(renames, 10'000U);
}

} // namespace
} // namespace multirename
