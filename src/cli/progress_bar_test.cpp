#include "cli/progress_bar.h"

#include <gtest/gtest.h>

#include "cli/testing/fake_console.h"

namespace multirename {
namespace {

TEST(ProgressBar, SaysNothingOfWorkThatIsSoonDone)
{
    FakeConsole console;
    console.is_terminal = true;
    {
        ProgressBar bar(console, "Renaming", 3);
        for (int i = 0; i < 3; ++i)
            bar.advance();
    }
    EXPECT_EQ(console.errors, "");
}

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
