// Each of these fails when the build leaves out the guard that it is about, or the sanitizer that stands in for it.

#include <gtest/gtest.h>

#include "platform/testing/memory_mistakes.h"

namespace multirename {
namespace {

TEST(MemoryMistakeDeathTest, AnOverwrittenStackEndsTheProcess)
{
    EXPECT_DEATH(fill_too_far(), "stack smashing detected|stack-buffer-overflow|insufficient space");
}

TEST(MemoryMistakeDeathTest, ACopyIntoTooSmallAPlaceEndsTheProcess)
{
#ifndef __OPTIMIZE__
    GTEST_SKIP() << "only an optimising compiler knows the sizes";
#endif
    EXPECT_DEATH(copy_too_much(), "buffer overflow detected|global-buffer-overflow");
}

} // namespace
} // namespace multirename
