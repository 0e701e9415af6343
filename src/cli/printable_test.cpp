#include "cli/printable.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

struct PrintableRow {
    const char* sentence;
    std::u16string text;
    std::string shown;
};
class PrintableText : public testing::TestWithParam<PrintableRow> { };
TEST_P(PrintableText, IsShownSo) { EXPECT_EQ(printable(GetParam().text), GetParam().shown); }
INSTANTIATE_TEST_SUITE_P(
    All, PrintableText,
    testing::Values(PrintableRow{"OrdinaryText", u"caf\u00E9 \u6F22 \xD83D\xDE00",
                                 "caf\xC3\xA9 \xE6\xBC\xA2 \xF0\x9F\x98\x80"},
                    PrintableRow{"LineBreaks", u"a\nb\rc\td", "a\\nb\\rc\\td"},
                    PrintableRow{"WhatATerminalObeys", u"\x1B[2J\x07\x7F\x9B", "\\x1b[2J\\x07\\x7f\\x9b"},
                    PrintableRow{"WhatTurnsTheDirection", u"a\u202Etxt\u2066\u200F", "a\\u{202e}txt\\u{2066}\\u{200f}"},
                    PrintableRow{"StrayBytes", u"caf\xDCE9", "caf\\xe9"},
                    PrintableRow{"HalvesOfPairs", u"\xD83Dx\xDE00", "\\ud83dx\\ude00"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(PrintableText, KnowsItsWidth)
{
    const auto columns = [](std::u16string_view text) {
        std::size_t sum = 0;
        for (const Glyph& glyph : glyphs(text))
            sum += glyph.columns;
        return sum;
    };
    EXPECT_EQ(columns(u"abc"), 3U);
    EXPECT_EQ(columns(u"\u6F22\u5B57"), 4U);
    EXPECT_EQ(columns(u"e\u0301"), 1U);
    EXPECT_EQ(columns(u"\n"), 2U);
    EXPECT_EQ(columns(u"\xDCE9"), 4U);
    EXPECT_EQ(columns(u"\xD83D\xDE00"), 2U);
}

TEST(PrintableText, TakesUtf8WithStrayBytesToo) { EXPECT_EQ(printable(std::string("a\xFF\n")), "a\\xff\\n"); }

} // namespace
} // namespace multirename
