#include "pattern/name_pattern.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

using Texts = std::vector<std::u16string>;

/// Each part in short: "#", "*", ".*" for an extension wild, text parts in brackets, kept ones with "=" in front.
Texts parts_of(const NamePattern& pattern)
{
    Texts parts;
    for (const NamePart& part : pattern.parts) {
        if (part.kind == NamePartKind::Number)
            parts.emplace_back(u"#");
        else if (part.kind == NamePartKind::Wild)
            parts.emplace_back(part.mustStartWithDot ? u".*" : u"*");
        else
            parts.emplace_back((part.keepMatched ? u"=[" : u"[") + part.matchText + u"]");
    }
    return parts;
}

struct ParseRow {
    const char* sentence;
    std::u16string_view pattern;
    std::u16string_view extension;
    NameMode mode;
    Texts expected;
    std::u16string_view shown;
};
class ParsePatternRow : public testing::TestWithParam<ParseRow> { };
TEST_P(ParsePatternRow, Parts)
{
    EXPECT_EQ(parts_of(parsePattern(GetParam().pattern, GetParam().extension, GetParam().mode)), GetParam().expected);
}
TEST_P(ParsePatternRow, ShownText)
{
    EXPECT_EQ(parsePattern(GetParam().pattern, GetParam().extension, GetParam().mode).patternText, GetParam().shown);
}
TEST_P(ParsePatternRow, TextPartsGiveTheirTextBack)
{
    for (const NamePart& part : parsePattern(GetParam().pattern, GetParam().extension, GetParam().mode).parts)
        EXPECT_EQ(part.text, part.matchText);
}
TEST_P(ParsePatternRow, OnlyNamesWithoutExtensionLeaveItOut)
{
    EXPECT_EQ(parsePattern(GetParam().pattern, GetParam().extension, GetParam().mode).includesExtension,
              GetParam().mode != NameMode::BaseOnly);
}

constexpr NameMode base = NameMode::BaseOnly;
constexpr NameMode with_extension = NameMode::BaseWithExtensionPart;
constexpr NameMode whole = NameMode::WholeName;

std::string parse_sentence(const testing::TestParamInfo<ParseRow>& row) { return row.param.sentence; }

INSTANTIATE_TEST_SUITE_P(
    Markers, ParsePatternRow,
    testing::Values(
        ParseRow{"NothingIsOneEmptyText", u"", u"", base, {u"=[]"}, u""},
        ParseRow{"TextAlone", u"abc", u"", base, {u"[abc]"}, u"abc"},
        ParseRow{"AWildAloneStandsBetweenEmptyTexts", u"*", u"", base, {u"=[]", u"*", u"=[]"}, u"*"},
        ParseRow{"ANumberAloneStandsBetweenEmptyTexts", u"#", u"", base, {u"=[]", u"#", u"=[]"}, u"#"},
        ParseRow{"TextNumberTextWild", u"a#b*", u"", base, {u"[a]", u"#", u"[b]", u"*", u"=[]"}, u"a#b*"},
        ParseRow{"MarkersInARowHaveEmptyTextsBetween", u"**", u"", base, {u"=[]", u"*", u"=[]", u"*", u"=[]"}, u"**"},
        ParseRow{
            "DifferentMarkersInARowToo", u"#*#", u"", base, {u"=[]", u"#", u"=[]", u"*", u"=[]", u"#", u"=[]"}, u"#*#"},
        ParseRow{"AWholeNameKeepsItsPeriod", u"a*.b", u"", whole, {u"[a]", u"*", u"[.b]"}, u"a*.b"}),
    parse_sentence);

INSTANTIATE_TEST_SUITE_P(
    Escapes, ParsePatternRow,
    testing::Values(ParseRow{"AnEscapedHashIsText", u"x\\##", u"", base, {u"[x#]", u"#", u"=[]"}, u"x\\##"},
                    ParseRow{"AnEscapedHashInFront", u"\\#*", u"", base, {u"[#]", u"*", u"=[]"}, u"\\#*"},
                    ParseRow{"AnEscapedBackslashIsOneBackslash", u"a\\\\b", u"", base, {u"[a\\b]"}, u"a\\\\b"},
                    ParseRow{
                        "AnEscapedBackslashEscapesNothing", u"a\\\\#", u"", base, {u"[a\\]", u"#", u"=[]"}, u"a\\\\#"},
                    ParseRow{"AnEscapedLetterIsTheLetter", u"a\\bc", u"", base, {u"[abc]"}, u"a\\bc"},
                    ParseRow{"AnEscapedWildIsText", u"a\\*b", u"", base, {u"[a*b]"}, u"a\\*b"},
                    ParseRow{"ABackslashAtTheEndIsDropped", u"ab\\", u"", base, {u"[ab]"}, u"ab\\"}),
    parse_sentence);

INSTANTIATE_TEST_SUITE_P(
    Extensions, ParsePatternRow,
    testing::Values(
        ParseRow{
            "AnExtensionFollowsAsText", u"IMG_#", u".jpg", with_extension, {u"[IMG_]", u"#", u"[.jpg]"}, u"IMG_#.jpg"},
        ParseRow{"AnExtensionIsJoinedToTheLastText",
                 u"a*b",
                 u".jpg",
                 with_extension,
                 {u"[a]", u"*", u"[b.jpg]"},
                 u"a*b.jpg"},
        ParseRow{"AnExtensionIsJoinedToTheOnlyText", u"notes", u".txt", with_extension, {u"[notes.txt]"}, u"notes.txt"},
        ParseRow{"AnExtensionIsJoinedToNoText", u"", u".txt", with_extension, {u"[.txt]"}, u".txt"},
        ParseRow{"DifferentExtensionsAreAWild",
                 u"IMG_#",
                 u".*",
                 with_extension,
                 {u"[IMG_]", u"#", u"=[]", u".*"},
                 u"IMG_#.*"},
        ParseRow{"DifferentExtensionsBehindText", u"notes", u".*", with_extension, {u"[notes]", u".*"}, u"notes.*"},
        ParseRow{"NoExtensionAddsNothing", u"IMG_#", u"", with_extension, {u"[IMG_]", u"#", u"=[]"}, u"IMG_#"},
        ParseRow{"AHashOfTheExtensionIsEscapedInTheShownText",
                 u"notes",
                 u".c#",
                 with_extension,
                 {u"[notes.c#]"},
                 u"notes.c\\#"},
        ParseRow{"NamesWithoutExtensionIgnoreIt", u"a*", u".jpg", base, {u"[a]", u"*", u"=[]"}, u"a*"},
        ParseRow{"NamesWithoutExtensionIgnoreAWildOne", u"a*", u".*", base, {u"[a]", u"*", u"=[]"}, u"a*"},
        ParseRow{"WholeNamesIgnoreIt", u"a*", u".jpg", whole, {u"[a]", u"*", u"=[]"}, u"a*"}),
    parse_sentence);

TEST(ParsePattern, PartsBeginWithTheirDefaults)
{
    const NamePattern pattern = parsePattern(u"*#", u".*", NameMode::BaseWithExtensionPart);
    ASSERT_EQ(pattern.parts.size(), 6U);
    for (const std::size_t wild : {1U, 5U}) {
        EXPECT_EQ(pattern.parts[wild].length, 8);
        EXPECT_EQ(pattern.parts[wild].startNumber, -1);
        EXPECT_FALSE(pattern.parts[wild].truncate);
        EXPECT_EQ(pattern.parts[wild].caseStyle, CaseStyle::Unchanged);
    }
    EXPECT_EQ(pattern.parts[3].length, 4);
    EXPECT_EQ(pattern.parts[3].startNumber, -1);
    EXPECT_EQ(pattern.parts[3].baseNumber, 0);
}

TEST(ParsePattern, TextThatNamesMayNotHoldIsInvalid)
{
    const NamePattern pattern = parsePattern(u"a\\\\b#c", u"", NameMode::BaseOnly);
    EXPECT_TRUE(pattern.parts[0].invalid);
    EXPECT_FALSE(pattern.parts[2].invalid);
}

TEST(ParsePattern, AnExtensionIsJudgedTogetherWithTheTextBeforeIt)
{
    EXPECT_TRUE(parsePattern(u"a\\\\", u".b", NameMode::BaseWithExtensionPart).parts[0].invalid);
    EXPECT_FALSE(parsePattern(u"a", u".b", NameMode::BaseWithExtensionPart).parts[0].invalid);
}

TEST(EscapeHashes, PutsABackslashBeforeEachHash)
{
    EXPECT_EQ(escape_hashes(u"a#b##"), u"a\\#b\\#\\#");
    EXPECT_EQ(escape_hashes(u"a*b"), u"a*b");
    EXPECT_EQ(escape_hashes(u""), u"");
}

TEST(HasNumberMarker, AnEscapedHashIsNone)
{
    EXPECT_TRUE(has_number_marker(u"#"));
    EXPECT_TRUE(has_number_marker(u"a*b#c"));
    EXPECT_TRUE(has_number_marker(u"x\\##"));
    EXPECT_FALSE(has_number_marker(u"x\\#"));
    EXPECT_FALSE(has_number_marker(u"\\#*\\#"));
    EXPECT_FALSE(has_number_marker(u""));
    EXPECT_FALSE(has_number_marker(u"abc*"));
}

TEST(HasNumberMarker, AHashAfterAnEscapedBackslashIsOne) { EXPECT_TRUE(has_number_marker(u"\\\\#")); }

} // namespace
} // namespace multirename
