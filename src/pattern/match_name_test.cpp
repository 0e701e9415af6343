#include "pattern/match_name.h"

#include <gtest/gtest.h>

#include <random>

#include "pattern/match_name_reference.h"

namespace multirename {
namespace {

using Texts = std::vector<std::u16string>;

NamePattern parsed(std::u16string_view text) { return parsePattern(text, u"", NameMode::WholeName); }

Texts captures_of(const NameMatch& match)
{
    Texts texts;
    for (const PartCapture& capture : match.captures)
        texts.emplace_back(capture.text);
    return texts;
}

struct MatchRow {
    const char* sentence;
    NamePattern pattern;
    std::u16string name;
    bool matched;
    Texts captures;
};
class MatchNameRow : public testing::TestWithParam<MatchRow> { };
TEST_P(MatchNameRow, Result)
{
    EXPECT_EQ(matchName(GetParam().name, GetParam().pattern.parts).matched, GetParam().matched);
}
TEST_P(MatchNameRow, Captures)
{
    EXPECT_EQ(captures_of(matchName(GetParam().name, GetParam().pattern.parts)), GetParam().captures);
}
TEST_P(MatchNameRow, CapturesReferToTheirPartsInOrder)
{
    const NameMatch match = matchName(GetParam().name, GetParam().pattern.parts);
    for (std::size_t i = 0; i < match.captures.size(); ++i)
        EXPECT_EQ(match.captures[i].part, &GetParam().pattern.parts[i]);
}

std::string match_sentence(const testing::TestParamInfo<MatchRow>& row) { return row.param.sentence; }

INSTANTIATE_TEST_SUITE_P(
    Texts, MatchNameRow,
    testing::Values(MatchRow{"TextMatchesItself", parsed(u"abc"), u"abc", true, {u"abc"}},
                    MatchRow{"TextIsComparedWithCase", parsed(u"abc"), u"aBc", false, {}},
                    MatchRow{"TextLeftOverFailsWithItsCaptures", parsed(u"abc"), u"abcd", false, {u"abc"}},
                    MatchRow{"TextThatEndsEarlyFails", parsed(u"abc"), u"ab", false, {}},
                    MatchRow{"NothingMatchesNothing", parsed(u""), u"", true, {u""}}),
    match_sentence);

INSTANTIATE_TEST_SUITE_P(
    Numbers, MatchNameRow,
    testing::Values(MatchRow{"ANumberTakesItsRun", parsed(u"IMG_#"), u"IMG_0042", true, {u"IMG_", u"0042", u""}},
                    MatchRow{"ANumberTakesTheLongestRun", parsed(u"#1"), u"21", false, {u"", u"21"}},
                    MatchRow{"ANumberNeedsADigit", parsed(u"a#b"), u"ab", false, {u"a"}},
                    MatchRow{"AForeignDigitIsNone", parsed(u"a#"), u"a\u0663", false, {u"a"}},
                    MatchRow{
                        "WhatStandsBeforeAFailureStays", parsed(u"a#b#c"), u"a1b2d", false, {u"a", u"1", u"b", u"2"}},
                    MatchRow{"ANumberTakes260Digits",
                             parsed(u"#"),
                             std::u16string(260, u'1'),
                             true,
                             {u"", std::u16string(260, u'1'), u""}},
                    MatchRow{"ANumberTakesNoMoreThan260Digits",
                             parsed(u"#"),
                             std::u16string(261, u'1'),
                             false,
                             {u"", std::u16string(260, u'1'), u""}},
                    MatchRow{"TheDigitsBeyond260AreLeftForTheNextPart",
                             parsed(u"#2"),
                             std::u16string(260, u'1') + u"2",
                             true,
                             {u"", std::u16string(260, u'1'), u"2"}}),
    match_sentence);

INSTANTIATE_TEST_SUITE_P(
    Wilds, MatchNameRow,
    testing::Values(
        MatchRow{"AWildTakesAll", parsed(u"*"), u"a.b", true, {u"", u"a.b", u""}},
        MatchRow{"AWildTakesNothing", parsed(u"a*"), u"a", true, {u"a", u"", u""}},
        MatchRow{"TheFirstWildTakesTheShortestText", parsed(u"*-*"), u"a-b-c", true, {u"", u"a", u"-", u"b-c", u""}},
        MatchRow{"AWildGrowsUntilTheRestMatches", parsed(u"*-c"), u"a-b-c", true, {u"", u"a-b", u"-c"}},
        MatchRow{"WildsInARow", parsed(u"**"), u"ab", true, {u"", u"", u"", u"ab", u""}},
        MatchRow{"AWildLeavesTheWholeRunToANumber", parsed(u"*#"), u"a12", true, {u"", u"a", u"", u"12", u""}},
        MatchRow{"AWildBeforeANumberTakesAsLittleAsPossible",
                 parsed(u"*#b"),
                 u"1a22b",
                 true,
                 {u"", u"1a", u"", u"22", u"b"}},
        MatchRow{"WhatWasCapturedInsideAFailedWildIsDropped", parsed(u"a*b#c"), u"axb1d", false, {u"a"}},
        MatchRow{"WhatStandsBeforeAFailedWildStays", parsed(u"a#b*c"), u"a1bxd", false, {u"a", u"1", u"b"}},
        MatchRow{"OfTwoFailedWildsTheFirstDecides", parsed(u"a*b*c"), u"axbyd", false, {u"a"}}),
    match_sentence);

NamePattern with_wild(std::u16string_view text, std::size_t part, std::int32_t min_length, bool fixed)
{
    NamePattern pattern = parsed(text);
    pattern.parts[part].minLength = min_length;
    pattern.parts[part].fixedLength = fixed;
    return pattern;
}

INSTANTIATE_TEST_SUITE_P(
    WildLengths, MatchNameRow,
    testing::Values(
        MatchRow{"AWildTakesAtLeastItsMinimum",
                 with_wild(u"*b*", 1, 2, false),
                 u"abab",
                 true,
                 {u"", u"aba", u"b", u"", u""}},
        MatchRow{"AWildMayTakeMoreThanItsMinimum", with_wild(u"*b", 1, 2, false), u"aaaab", true, {u"", u"aaaa", u"b"}},
        MatchRow{"AWildFailsWhenTheTextEndsBeforeItsMinimum", with_wild(u"a*", 1, 2, false), u"ab", false, {u"a"}},
        MatchRow{"AWildTakesItsMinimumToTheEnd", with_wild(u"a*", 1, 2, false), u"abc", true, {u"a", u"bc", u""}},
        MatchRow{"AFixedWildTakesItsLength", with_wild(u"*b", 1, 2, true), u"aab", true, {u"", u"aa", u"b"}},
        MatchRow{"AFixedWildTakesNoMore", with_wild(u"*b", 1, 2, true), u"aaab", false, {u""}},
        MatchRow{"AFixedWildOfNoLengthTakesNothing", with_wild(u"a*b", 1, 0, true), u"ab", true, {u"a", u"", u"b"}},
        MatchRow{"AFixedWildOfNoLengthTakesNothingEver", with_wild(u"a*b", 1, 0, true), u"axb", false, {u"a"}}),
    match_sentence);

NamePattern with_extension_wild(std::u16string_view text)
{
    return parsePattern(text, u".*", NameMode::BaseWithExtensionPart);
}

INSTANTIATE_TEST_SUITE_P(
    ExtensionWilds, MatchNameRow,
    testing::Values(
        MatchRow{"AnExtensionWildTakesAnExtension",
                 with_extension_wild(u"IMG_#"),
                 u"IMG_1.jpg",
                 true,
                 {u"IMG_", u"1", u"", u".jpg"}},
        MatchRow{"AnExtensionWildNeedsItsPeriod", with_extension_wild(u"IMG_#"), u"IMG_1", false, {u"IMG_", u"1", u""}},
        MatchRow{"AnExtensionWildTakesNoOtherCharacterFirst",
                 with_extension_wild(u"IMG_#"),
                 u"IMG_1-.jpg",
                 false,
                 {u"IMG_", u"1", u""}},
        MatchRow{"AnExtensionWildTakesFromTheFirstPeriodThatAWildBeforeItLeaves",
                 with_extension_wild(u"*"),
                 u"photo.2020.jpg",
                 true,
                 {u"", u"photo", u"", u".2020.jpg"}},
        MatchRow{"AnExtensionWildThatFailsBehindAWildLeavesNothingOfIt",
                 with_extension_wild(u"*"),
                 u"README",
                 false,
                 {u""}}),
    match_sentence);

TEST(MatchName, TenWildsAgainstALongNameThatDoesNotMatchAnswer)
{
    std::u16string text;
    for (int i = 0; i < 10; ++i)
        text += u"*a";
    const NamePattern pattern = parsed(text + u"b");
    EXPECT_FALSE(matchName(std::u16string(255, u'a'), pattern.parts).matched);
    EXPECT_EQ(captures_of(matchName(std::u16string(255, u'a'), pattern.parts)), (Texts{u""}));
    EXPECT_TRUE(matchName(std::u16string(255, u'a') + u"b", pattern.parts).matched);
}

TEST(MatchName, TenWildsAndNumbersAgainstALongNameAnswer)
{
    std::u16string text;
    for (int i = 0; i < 10; ++i)
        text += u"*#";
    const NamePattern pattern = parsed(text + u"x");
    EXPECT_FALSE(matchName(std::u16string(255, u'1'), pattern.parts).matched);
}

TEST(MatchName, AgreesWithTheRulesTakenOneByOne)
{
    std::mt19937 random(1);
    const std::u16string pattern_alphabet = u"ab1.**##";
    const std::u16string name_alphabet = u"ab1.";
    int matches = 0;
    for (int round = 0; round < 20000; ++round) {
        std::u16string text;
        for (std::size_t length = random() % 7; text.size() < length;)
            text.push_back(pattern_alphabet[random() % pattern_alphabet.size()]);
        NamePattern pattern = random() % 3 == 0 ? with_extension_wild(text) : parsed(text);
        for (NamePart& part : pattern.parts) {
            if (part.kind == NamePartKind::Wild && random() % 4 == 0) {
                part.minLength = static_cast<std::int32_t>(random() % 3);
                part.fixedLength = random() % 2 == 0;
            }
        }
        std::u16string name;
        for (std::size_t length = random() % 8; name.size() < length;)
            name.push_back(name_alphabet[random() % name_alphabet.size()]);
        const std::optional<ReferenceMatch> expected = reference_match(name, pattern.parts);
        const NameMatch match = matchName(name, pattern.parts);
        ASSERT_EQ(match.matched, expected->matched) << testing::PrintToString(text) << testing::PrintToString(name);
        ASSERT_EQ(captures_of(match), expected->captures)
            << testing::PrintToString(text) << testing::PrintToString(name);
        matches += match.matched ? 1 : 0;
    }
    EXPECT_GT(matches, 1000);
}

TEST(RememberedMatches, AreThoseOfTheFirstRoundInEveryRound)
{
    const Texts names = {
        u"IMG_12-a.jpg", u"IMG_7-b-c.jpg", u"unfit", u"IMG_0-.jpg", u"IMG_1-" + std::u16string(300, u'x') + u".jpg",
        u"IMG_123-z.jpg"};
    const NamePattern pattern = parsed(u"IMG_#-*.jpg");
    RememberedMatches matches(pattern.parts);
    for (int round = 0; round < 3; ++round) {
        matches.start_round();
        for (const std::u16string& name : names) {
            const NameMatch expected = matchName(name, pattern.parts);
            const NameMatch& match = matches.next(name);
            EXPECT_EQ(match.matched, expected.matched) << round;
            EXPECT_EQ(captures_of(match), captures_of(expected)) << round;
        }
    }
}

TEST(RememberedMatches, OfAPatternWithoutPartsToRemember)
{
    const NamePattern pattern = parsed(u"same");
    RememberedMatches matches(pattern.parts);
    for (int round = 0; round < 2; ++round) {
        matches.start_round();
        EXPECT_TRUE(matches.next(u"same").matched);
        EXPECT_FALSE(matches.next(u"other").matched);
    }
}

TEST(DescribedName, IsTheWholeNameWhenThePatternIncludesTheExtension)
{
    NamePattern pattern;
    pattern.includesExtension = true;
    EXPECT_EQ(described_name(pattern, u"photo.2020.jpg"), u"photo.2020.jpg");
}

TEST(DescribedName, EndsBeforeTheLastPeriodOtherwise)
{
    const NamePattern pattern;
    EXPECT_EQ(described_name(pattern, u"photo.2020.jpg"), u"photo.2020");
    EXPECT_EQ(described_name(pattern, u"README"), u"README");
    EXPECT_EQ(described_name(pattern, u".bashrc"), u"");
}

} // namespace
} // namespace multirename
