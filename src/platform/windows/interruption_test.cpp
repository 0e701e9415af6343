#include "platform/interruption.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/testing/windows_console.h"

namespace multirename {
namespace {

template <class Condition>
bool comes_true(Condition condition)
{
    for (int tries = 0; tries < 500 && !condition(); ++tries)
        Sleep(10);
    return condition();
}

bool handled = false;
BOOL WINAPI handle(DWORD)
{
    handled = true;
    return TRUE;
}

// Only run by the tests below.
TEST(WindowsInterruptionInOwnConsole, DISABLED_IsNoted)
{
    SetConsoleCtrlHandler(nullptr, FALSE);
    const Interruption interruption;
    ASSERT_FALSE(interruption.is_wanted());
    ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    EXPECT_TRUE(comes_true([&] { return interruption.is_wanted(); }));
    end_process_of_test();
}

TEST(WindowsInterruptionInOwnConsole, DISABLED_PutsTheFormerHandlerBack)
{
    SetConsoleCtrlHandler(nullptr, FALSE);
    ASSERT_TRUE(SetConsoleCtrlHandler(handle, TRUE));
    {
        const Interruption interruption;
        ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
        EXPECT_TRUE(comes_true([&] { return interruption.is_wanted(); }));
        EXPECT_FALSE(handled);
    }
    ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    EXPECT_TRUE(comes_true([] { return handled; }));
    end_process_of_test();
}

TEST(WindowsInterruption, IsNotedAndDoesNotEndTheProcess)
{
    EXPECT_EQ(status_in_own_console(L"WindowsInterruptionInOwnConsole.DISABLED_IsNoted"), went_well);
}

TEST(WindowsInterruption, PutsTheFormerHandlerBack)
{
    EXPECT_EQ(status_in_own_console(L"WindowsInterruptionInOwnConsole.DISABLED_PutsTheFormerHandlerBack"), went_well);
}

} // namespace
} // namespace multirename
