#include "platform/unique_handle.h"

#include <gtest/gtest.h>

#include <vector>

namespace multirename {
namespace {

struct CountingTraits {
    static inline std::vector<int> closed;
    static int none() noexcept { return -1; }
    static void close(int handle) { closed.push_back(handle); }
};
using Handle = UniqueHandle<CountingTraits>;
using Closed = std::vector<int>;

class UniqueHandleTest : public testing::Test {
protected:
    void SetUp() override { CountingTraits::closed.clear(); }
};

TEST_F(UniqueHandleTest, ClosesOnce)
{
    {
        const Handle handle(7);
        EXPECT_EQ(handle.get(), 7);
        EXPECT_TRUE(handle);
        EXPECT_EQ(CountingTraits::closed, Closed{});
    }
    EXPECT_EQ(CountingTraits::closed, Closed{7});
}

TEST_F(UniqueHandleTest, NeverClosesNone)
{
    {
        const Handle handle;
        EXPECT_FALSE(handle);
        EXPECT_EQ(handle.get(), CountingTraits::none());
    }
    EXPECT_EQ(CountingTraits::closed, Closed{});
}

TEST_F(UniqueHandleTest, AMovedHandleIsClosedByItsNewOwnerAlone)
{
    {
        Handle first(7);
        const Handle second(std::move(first));
        EXPECT_EQ(second.get(), 7);
    }
    EXPECT_EQ(CountingTraits::closed, Closed{7});
}

TEST_F(UniqueHandleTest, AssignmentClosesTheOldHandle)
{
    Handle handle(7);
    handle = Handle(8);
    EXPECT_EQ(CountingTraits::closed, Closed{7});
    EXPECT_EQ(handle.get(), 8);
}

TEST_F(UniqueHandleTest, SurvivesAMoveToItself)
{
    {
        Handle handle(7);
        Handle& same = handle;
        handle = std::move(same);
        EXPECT_EQ(handle.get(), 7);
        EXPECT_EQ(CountingTraits::closed, Closed{});
    }
    EXPECT_EQ(CountingTraits::closed, Closed{7});
}

TEST_F(UniqueHandleTest, AReleasedHandleIsTheCallersToClose)
{
    {
        Handle handle(7);
        EXPECT_EQ(handle.release(), 7);
        EXPECT_FALSE(handle);
    }
    EXPECT_EQ(CountingTraits::closed, Closed{});
}

} // namespace
} // namespace multirename
