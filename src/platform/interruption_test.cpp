#include "platform/interruption.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(InterruptionTest, IsNotWantedAtFirst)
{
    const Interruption interruption;
    EXPECT_FALSE(interruption.is_wanted());
}

} // namespace
} // namespace multirename
