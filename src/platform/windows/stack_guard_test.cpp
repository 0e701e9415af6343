// Each of these fails when the build leaves out the guard that it is about.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>

#include "platform/testing/memory_mistakes.h"
#include "platform/testing/windows_console.h"

extern "C" std::uint64_t __stack_chk_guard; // NOLINT(bugprone-reserved-identifier): the compiler's name

namespace multirename {
namespace {

constexpr int ended_at_once = static_cast<int>(0xC0000409); // STATUS_STACK_BUFFER_OVERRUN

TEST(MemoryMistakeDeathTest, AnOverwrittenStackEndsTheProcess)
{
    EXPECT_EXIT(fill_too_far(), testing::ExitedWithCode(ended_at_once), "");
}

TEST(MemoryMistakeDeathTest, ACopyIntoTooSmallAPlaceEndsTheProcess)
{
    EXPECT_EXIT(copy_too_much(), testing::ExitedWithCode(ended_at_once), "");
}

TEST(MemoryMistakeDeathTest, AnIndexBehindTheLastItemEndsTheProcess)
{
    EXPECT_DEATH(read_behind_the_last(), "Assertion");
}

// Run by the test below, as a program.
TEST(StackGuard, DISABLED_IsTheExitStatus) { ExitProcess(static_cast<UINT>(__stack_chk_guard)); }

TEST(StackGuard, IsAnotherOneInEachProcess)
{
    const DWORD one = status_in_own_console(L"StackGuard.DISABLED_IsTheExitStatus");
    const DWORD other = status_in_own_console(L"StackGuard.DISABLED_IsTheExitStatus");
    EXPECT_NE(one, 0U);
    EXPECT_NE(one, other);
}

} // namespace
} // namespace multirename
