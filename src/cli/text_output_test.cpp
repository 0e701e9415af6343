#include "cli/text_output.h"

#include <gtest/gtest.h>

#include <vector>

namespace multirename {
namespace {

TEST(TextOutputTest, PassesOnLargePiecesInTheirOrder)
{
    std::vector<std::string> pieces;
    TextOutput output([&pieces](std::string_view piece) { pieces.emplace_back(piece); });
    std::string expected;
    for (int row = 0; row < 100'000; ++row) {
        const std::string text = std::to_string(row) + "\n";
        output.piece() += text;
        output.pass_on_when_large();
        expected += text;
    }
    output.pass_on();
    output.pass_on();
    std::string all;
    for (const std::string& piece : pieces) {
        EXPECT_LT(piece.size(), 100'000U);
        all += piece;
    }
    EXPECT_EQ(all, expected);
    EXPECT_LT(pieces.size(), 20U);
}

TEST(TextOutputTest, OfATextThatIsEmptyPassesNothingOn)
{
    int calls = 0;
    TextOutput output([&calls](std::string_view) { ++calls; });
    output.pass_on_when_large();
    output.pass_on();
    EXPECT_EQ(calls, 0);
}

TEST(TextOutputTest, TheWholeTextIsWhatItsMakerMade)
{
    EXPECT_EQ(whole_text([](TextOutput& output) { output.piece() += "text"; }), "text");
}

} // namespace
} // namespace multirename
