#include "run/pasted_names.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

using Lines = std::vector<std::u16string_view>;

TEST(ForbiddenCharacter, IsOneOfNine)
{
    for (const char16_t unit : std::u16string_view(u"<>:\"/\\|?*"))
        EXPECT_TRUE(holds_forbidden_character(std::u16string{u'a', unit, u'b'}));
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto character = static_cast<char16_t>(unit);
        const bool is_one_of_them = std::u16string_view(u"<>:\"/\\|?*").find(character) != std::u16string_view::npos;
        EXPECT_EQ(holds_forbidden_character(std::u16string(1, character)), is_one_of_them) << unit;
    }
}

struct LinesRow {
    const char* sentence;
    std::u16string_view text;
    Lines expected;
};
class PastedLines : public testing::TestWithParam<LinesRow> { };
TEST_P(PastedLines, Are) { EXPECT_EQ(pasted_lines(GetParam().text), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(All, PastedLines,
                         testing::Values(LinesRow{"NoTextHasNone", u"", {}}, LinesRow{"ALineFeedHasNone", u"\n", {}},
                                         LinesRow{"OneLine", u"a", {u"a"}},
                                         LinesRow{"ALastLineFeedAddsNone", u"a\nb\n", {u"a", u"b"}},
                                         LinesRow{"ALastLineNeedsNoLineFeed", u"a\nb", {u"a", u"b"}},
                                         LinesRow{"LineEndsOfWindows", u"a\r\nb\r\n", {u"a", u"b"}},
                                         LinesRow{"WhiteSpaceIsTrimmedAtBothEnds", u" \ta b\t \n c", {u"a b", u"c"}},
                                         LinesRow{"BlankLinesCountForNothing", u"a\n\n \t\r\nb\n", {u"a", u"b"}},
                                         LinesRow{"BlankLinesInFrontCountForNothing", u"\n \na", {u"a"}},
                                         LinesRow{"ALastPieceOfWhiteSpaceCounts", u"a\nb\n ", {u"a", u"b", u""}},
                                         LinesRow{"ALastPieceOfACarriageReturnCounts", u"a\n\r", {u"a", u""}}),
                         [](const auto& row) { return std::string(row.param.sentence); });

struct PastedRow {
    const char* sentence;
    std::u16string_view line;
    std::u16string_view old_name;
    bool allow_extension_changes;
    std::u16string_view expected;
};
class PastedName : public testing::TestWithParam<PastedRow> { };
TEST_P(PastedName, Is)
{
    EXPECT_EQ(pasted_name(GetParam().line, GetParam().old_name, GetParam().allow_extension_changes),
              GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    All, PastedName,
    testing::Values(PastedRow{"TheOldExtensionStays", u"report.txt", u"a.doc", false, u"report.doc"},
                    PastedRow{"ALineWithoutAnExtensionGetsTheOldOne", u"report", u"a.doc", false, u"report.doc"},
                    PastedRow{"ALineIsCutAtItsLastPeriod", u"x.y.z", u"a.doc", false, u"x.y.doc"},
                    PastedRow{"TheOldExtensionStartsAtTheLastPeriod", u"x", u"a.tar.gz", false, u"x.gz"},
                    PastedRow{"AnOldNameWithoutAPeriodGetsNoExtension", u"report.txt", u"README", false, u"report"},
                    PastedRow{"ForAnOldNameWithoutAPeriodALineIsCutAtItsFirst", u"x.y.z", u"README", false, u"x"},
                    PastedRow{"ForAnOldNameWithoutAPeriodALineWithoutOneIsWhole", u"report", u"README", false,
                              u"report"},
                    PastedRow{"ALineThatStartsWithAPeriodLeavesNothing", u".hidden", u"README", false, u""},
                    PastedRow{"ALineThatStartsWithAPeriodLeavesTheExtension", u".hidden", u"a.doc", false, u".doc"},
                    PastedRow{"AnOldNameThatIsAllExtension", u"new.x", u".bashrc", false, u"new.bashrc"},
                    PastedRow{"WithExtensionChangesTheLineStands", u"report.txt", u"a.doc", true, u"report.txt"},
                    PastedRow{"WithExtensionChangesNothingIsAdded", u"report", u"a.doc", true, u"report"}),
    [](const auto& row) { return std::string(row.param.sentence); });

} // namespace
} // namespace multirename
