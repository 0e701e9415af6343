#include "fileset/scope_filter.h"

#include <gtest/gtest.h>

#include "fileset/scope_filter_reference.h"
#include "fileset/testing/all_texts.h"

namespace multirename {
namespace {

struct ScopeRow {
    const char* sentence;
    std::u16string_view pattern;
    std::u16string_view text;
    bool expected;
};
class ScopePatternRow : public testing::TestWithParam<ScopeRow> { };
TEST_P(ScopePatternRow, Holds)
{
    EXPECT_EQ(matches_scope_pattern(GetParam().pattern, GetParam().text), GetParam().expected);
}

std::string sentence_of(const testing::TestParamInfo<ScopeRow>& row) { return row.param.sentence; }

INSTANTIATE_TEST_SUITE_P(Literals, ScopePatternRow,
                         testing::Values(ScopeRow{"NothingMatchesNothing", u"", u"", true},
                                         ScopeRow{"NothingMatchesNoText", u"", u"A", false},
                                         ScopeRow{"TextMatchesItself", u"A.B", u"A.B", true},
                                         ScopeRow{"OtherTextDoesNot", u"AB", u"AC", false},
                                         ScopeRow{"CaseIsComparedExactly", u"A", u"a", false},
                                         ScopeRow{"TextLeftOverFails", u"AB", u"ABC", false},
                                         ScopeRow{"PatternLeftOverFails", u"ABC", u"AB", false}),
                         sentence_of);

INSTANTIATE_TEST_SUITE_P(Wild, ScopePatternRow,
                         testing::Values(ScopeRow{"AWildMatchesNoText", u"*", u"", true},
                                         ScopeRow{"AWildMatchesAnyText", u"*", u"A.B", true},
                                         ScopeRow{"AWildAtTheEndMatchesTheRest", u"A*", u"ABC", true},
                                         ScopeRow{"AWildAtTheEndMatchesNoRest", u"A*", u"A", true},
                                         ScopeRow{"AWildInFrontMatchesARun", u"*C", u"ABC", true},
                                         ScopeRow{"AWildInFrontMatchesAnEmptyRun", u"*A", u"A", true},
                                         ScopeRow{"AWildInsideMatchesAnEmptyRun", u"A*B", u"AB", true},
                                         ScopeRow{"AWildInsideMatchesARun", u"A*B", u"AXYB", true},
                                         ScopeRow{"LaterPlacesAreTriedToo", u"A*B", u"ABXB", true},
                                         ScopeRow{"TheRestMustMatchSomewhere", u"A*B", u"AXYC", false},
                                         ScopeRow{"WildsInARowMatchAnyText", u"**", u"A", true},
                                         ScopeRow{"WildsInARowMatchNoText", u"***", u"", true},
                                         ScopeRow{"WildsAtTheEndAreSkipped", u"A**", u"A", true},
                                         ScopeRow{"ManyWilds", u"*A*B*C*", u"XAYBZC", true},
                                         ScopeRow{"ManyWildsInOrderOnly", u"*A*B*C*", u"XAYCZB", false},
                                         ScopeRow{"AWildWithMorePatternNeedsACharacter", u"A*?", u"A", false},
                                         ScopeRow{"WhatCouldMatchNothingIsNotTriedAtTheEnd", u"*/", u"A", false},
                                         ScopeRow{"NorAfterText", u"A*/", u"AB", false},
                                         ScopeRow{"AWildBehindWhatMatchesNothingTakesAll", u"*/*", u"A", true},
                                         ScopeRow{"AnEarlierWildTakesMoreWhenALaterOneFails", u"*A*/", u"AA", true}),
                         sentence_of);

INSTANTIATE_TEST_SUITE_P(OneCharacter, ScopePatternRow,
                         testing::Values(ScopeRow{"AQuestionMarkMatchesOne", u"A?C", u"ABC", true},
                                         ScopeRow{"APeriodToo", u"A?C", u"A.C", true},
                                         ScopeRow{"NotNone", u"?", u"", false}, ScopeRow{"NotTwo", u"?", u"AB", false},
                                         ScopeRow{"BehindAWild", u"*?", u"A", true}),
                         sentence_of);

INSTANTIATE_TEST_SUITE_P(Numbers, ScopePatternRow,
                         testing::Values(ScopeRow{"AHashMatchesARunOfDigits", u"A#B", u"A0123456789B", true},
                                         ScopeRow{"AHashMatchesOneDigit", u"#", u"7", true},
                                         ScopeRow{"AHashNeedsADigit", u"A#", u"A", false},
                                         ScopeRow{"AHashMatchesNoLetter", u"#", u"A", false},
                                         ScopeRow{"AHashMatchesNoForeignDigit", u"#", u"\u0663", false},
                                         ScopeRow{"AHashTakesTheLongestRun", u"#1", u"21", false},
                                         ScopeRow{"TwoHashesNeverShareARun", u"##", u"12", false},
                                         ScopeRow{"AHashBehindAWild", u"*#", u"AB12", true},
                                         ScopeRow{"AHashBehindAWildMayTakeAllOfARun", u"*#", u"12", true},
                                         ScopeRow{"AHashBehindAWildNeedsItsDigitsAtTheEnd", u"*#", u"12A", false},
                                         ScopeRow{"AHashBehindAWildLeavesNoDigit", u"*#1", u"A211", false}),
                         sentence_of);

INSTANTIATE_TEST_SUITE_P(Escapes, ScopePatternRow,
                         testing::Values(ScopeRow{"AnEscapedHashIsAHash", u"A\\#", u"A#", true},
                                         ScopeRow{"AnEscapedHashIsNoNumber", u"A\\#", u"A1", false},
                                         ScopeRow{"AnEscapedWildIsAStar", u"A\\*", u"A*", true},
                                         ScopeRow{"AnEscapedWildMatchesNoRun", u"A\\*", u"AB", false},
                                         ScopeRow{"AnEscapedWildAtTheEndIsNotSkipped", u"A\\*", u"A", false},
                                         ScopeRow{"AnEscapedQuestionMark", u"\\?", u"A", false},
                                         ScopeRow{"AnEscapedBackslash", u"\\\\", u"\\", true},
                                         ScopeRow{"AnEscapedLetterIsTheLetter", u"\\A", u"A", true},
                                         ScopeRow{"AnEscapedHashBehindAWild", u"*\\#", u"AB#", true},
                                         ScopeRow{"ABackslashAtTheEndMatchesNoCharacter", u"A\\", u"AB", false},
                                         ScopeRow{"ABackslashAtTheEndMatchesNoBackslash", u"A\\", u"A\\", false},
                                         ScopeRow{"ABackslashAtTheEndIsNotSkipped", u"A\\", u"A", false}),
                         sentence_of);

INSTANTIATE_TEST_SUITE_P(Slashes, ScopePatternRow,
                         testing::Values(ScopeRow{"ASlashIsSkipped", u"A/B", u"AB", true},
                                         ScopeRow{"ASlashMatchesNoSlash", u"A/B", u"A/B", false},
                                         ScopeRow{"ASlashAloneMatchesNoText", u"/", u"", true},
                                         ScopeRow{"ASlashAloneMatchesNoCharacter", u"/", u"A", false},
                                         ScopeRow{"SlashesAndWildsAtTheEndAreSkipped", u"A/*/*", u"A", true},
                                         ScopeRow{"OtherPatternAtTheEndIsNot", u"A/?", u"A", false}),
                         sentence_of);

void expect_agreement(std::u16string_view pattern_alphabet, std::u16string_view text_alphabet, std::size_t longest)
{
    const auto texts = all_texts(text_alphabet, longest);
    for (const std::u16string& pattern : all_texts(pattern_alphabet, longest)) {
        if (ends_within_escape(pattern))
            continue;
        for (const std::u16string& text : texts) {
            ASSERT_EQ(matches_scope_pattern(pattern, text), reference_matches_scope_pattern(pattern, text))
                << testing::PrintToString(pattern) << " against " << testing::PrintToString(text);
        }
    }
}

TEST(ScopePattern, EveryShortPatternMatchesWhatTheRulesSay) { expect_agreement(u"A1*?#\\", u"A1#", 4); }

TEST(ScopePattern, LongerPatternsOfTextNumbersAndWildsToo) { expect_agreement(u"A1*#", u"A1", 6); }

TEST(ScopePattern, EveryShortPatternWithSlashesToo) { expect_agreement(u"A1*/#", u"A1", 5); }

TEST(ScopePattern, ManyWildsAgainstALongNameThatDoesNotMatchAnswer)
{
    std::u16string pattern;
    for (int i = 0; i < 10; ++i)
        pattern += u"*A";
    EXPECT_FALSE(matches_scope_pattern(pattern + u"B", std::u16string(255, u'A')));
    EXPECT_TRUE(matches_scope_pattern(pattern, std::u16string(255, u'A')));
    EXPECT_FALSE(matches_scope_pattern(std::u16string(10, u'*') + u"B", std::u16string(255, u'A')));
}

TEST(ScopePattern, ManyWildsAndNumbersAgainstALongNameAnswer)
{
    std::u16string pattern;
    std::u16string text;
    for (int i = 0; i < 10; ++i)
        pattern += u"*#*?";
    for (int i = 0; i < 127; ++i)
        text += u"1A";
    EXPECT_FALSE(matches_scope_pattern(pattern + u"B", text));
    EXPECT_TRUE(matches_scope_pattern(pattern, text));
}

} // namespace
} // namespace multirename
