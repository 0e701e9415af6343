#include "cli/progress_bar.h"

#include <gtest/gtest.h>

#include "cli/testing/fake_console.h"

namespace multirename {
namespace {

using std::chrono::milliseconds;

ProgressBar::Clock::time_point time_of_test;
ProgressBar::Clock::time_point now_in_test() { return time_of_test; }

// What is written of three steps, each of which takes this long.
std::string shown_of_steps(milliseconds each, bool is_terminal)
{
    FakeConsole console;
    console.is_terminal = is_terminal;
    {
        ProgressBar bar(console, "Renaming", 3, &now_in_test);
        for (int i = 0; i < 3; ++i) {
            time_of_test += each;
            bar.advance();
        }
    }
    return console.errors;
}

TEST(ProgressBar, SaysNothingOfWorkThatTakesLessThanASecond) { EXPECT_EQ(shown_of_steps(milliseconds(333), true), ""); }

TEST(ProgressBar, ShowsLongerWorkFromItsFirstSecondOnAndLeavesTheLineEmpty)
{
    EXPECT_EQ(shown_of_steps(milliseconds(500), true),
              "\rRenaming [####################..........] 2 of 3\x1b[K"
              "\rRenaming [##############################] 3 of 3\x1b[K\r\x1b[K");
}

TEST(ProgressBar, IsForTerminalsOnly) { EXPECT_EQ(shown_of_steps(milliseconds(500), false), ""); }

TEST(ProgressBar, TakesWorkWithoutSteps)
{
    FakeConsole console;
    console.is_terminal = true;
    {
        const ProgressBar bar(console, "Renaming", 0);
    }
    EXPECT_EQ(console.errors, "");
}

} // namespace
} // namespace multirename
