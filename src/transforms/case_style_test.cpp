#include "transforms/case_style.h"

#include <gtest/gtest.h>

#include <random>

namespace multirename {
namespace {

using Words = std::vector<std::u16string>;

struct CaseRow {
    const char* sentence;
    CaseStyle style;
    std::u16string_view text;
    std::u16string_view expected;
};
class CaseStyleRow : public testing::TestWithParam<CaseRow> { };
TEST_P(CaseStyleRow, Holds) { EXPECT_EQ(ApplyCaseStyle(GetParam().style, GetParam().text), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    All, CaseStyleRow,
    testing::Values(
        CaseRow{"UnchangedIsACopy", CaseStyle::Unchanged, u"aB c-D_1", u"aB c-D_1"},
        CaseRow{"AValueAboveTheLastStyleIsACopy", static_cast<CaseStyle>(case_style_labels.size()), u"aB c-D_1",
                u"aB c-D_1"},
        CaseRow{"TheLargestValueIsACopy", static_cast<CaseStyle>(0xFFFFFFFF), u"aB c-D_1", u"aB c-D_1"},
        CaseRow{"UpperRaisesEveryLetter", CaseStyle::Upper, u"aB c-d_1.x", u"AB C-D_1.X"},
        CaseRow{"LowerLowersEveryLetter", CaseStyle::Lower, u"aB C-D_1.X", u"ab c-d_1.x"},

        CaseRow{"TitleKeepsSmallWordsLowInside", CaseStyle::Title, u"the lord of the rings", u"The Lord of the Rings"},
        CaseRow{"TitleKnowsSmallWordsInAnyCase", CaseStyle::Title, u"A TALE OF TWO CITIES", u"A Tale of Two Cities"},
        CaseRow{"TitleRaisesFirstAndLast", CaseStyle::Title, u"the end of the line", u"The End of the Line"},
        CaseRow{"TitleRaisesASmallWordAlone", CaseStyle::Title, u"of", u"Of"},
        CaseRow{"TitleRaisesTwoSmallWords", CaseStyle::Title, u"OF THE", u"Of The"},
        CaseRow{"TitleTakesTheLastLettersForTheLastWord", CaseStyle::Title, u"go to 2", u"Go To 2"},
        CaseRow{"TitleLeavesWhatIsNoLetterAlone", CaseStyle::Title, u"--- ...", u"--- ..."},
        CaseRow{"TitleStartsAWordAfterAnApostrophe", CaseStyle::Title, u"don't stop", u"Don'T Stop"},
        CaseRow{"TitleStartsAWordAfterADigit", CaseStyle::Title, u"2nd place", u"2Nd Place"},
        CaseRow{"TitleSplitsAtUnderscores", CaseStyle::Title, u"snake_OF_case", u"Snake_of_Case"},
        CaseRow{"TitleLowersTheRestOfAWord", CaseStyle::Title, u"mIXED cASE", u"Mixed Case"},
        CaseRow{"TitleTakesOnlyWholeSmallWords", CaseStyle::Title, u"x often x", u"X Often X"},
        CaseRow{"TitleCountsASmallWordThatIsFirstAfterDigits", CaseStyle::Title, u"12 the end", u"12 The End"},

        CaseRow{"SentenceRaisesAfterFullStopsAndMarks", CaseStyle::Sentence, u"hello. WORLD! ok", u"Hello. World! Ok"},
        CaseRow{"SentenceRaisesAfterAQuestion", CaseStyle::Sentence, u"what?YES it is", u"What?Yes it is"},
        CaseRow{"SentenceWaitsForTheFirstLetter", CaseStyle::Sentence, u"1st try", u"1St try"},
        CaseRow{"SentenceRaisesOnlyAfterThoseThree", CaseStyle::Sentence, u"a,B;C:D-E", u"A,b;c:d-e"},
        CaseRow{"SentenceKeepsTheDueCapitalOverDigits", CaseStyle::Sentence, u"x. 22 y", u"X. 22 Y"},
        CaseRow{"SentenceLeavesWhatIsNoLetterAlone", CaseStyle::Sentence, u"--- ...", u"--- ..."},

        CaseRow{"TheLastUnitOfAsciiSeparates", CaseStyle::Snake, u"a\u007Fb", u"a_b"},
        CaseRow{"ForeignSignsDoNotSeparate", CaseStyle::Snake, u"a\u0080c\u00A0d", u"a\u0080c\u00A0d"},
        CaseRow{"CamelJoinsWords", CaseStyle::Camel, u"Hello big_world", u"helloBigWorld"},
        CaseRow{"CamelLowersARunOfCapitalsInFront", CaseStyle::Camel, u"PDFFileName", u"pdfFileName"},
        CaseRow{"CamelOfSeparatorsIsEmpty", CaseStyle::Camel, u"--- ...", u""},
        CaseRow{"CamelRaisesTheFirstLetterOfAWordNotItsFirstUnit", CaseStyle::Camel, u"a 1b", u"a1B"},
        CaseRow{"PascalRaisesTheFirstWordToo", CaseStyle::Pascal, u"hello world", u"HelloWorld"},
        CaseRow{"PascalLowersRunsOfCapitals", CaseStyle::Pascal, u"PDFFileName", u"PdfFileName"},
        CaseRow{"PascalOfSeparatorsIsEmpty", CaseStyle::Pascal, u"--- ...", u""},

        CaseRow{"SnakeOfAFileName", CaseStyle::Snake, u"My File.v2 (final)", u"my_file_v2_final"},
        CaseRow{"KebabUpperOfAFileName", CaseStyle::KebabUpper, u"My File.v2 (final)", u"MY-FILE-V2-FINAL"},
        CaseRow{"SnakeUpperOfAFileName", CaseStyle::SnakeUpper, u"My File.v2 (final)", u"MY_FILE_V2_FINAL"},
        CaseRow{"KebabOfAFileName", CaseStyle::Kebab, u"My File.v2 (final)", u"my-file-v2-final"},
        CaseRow{"SnakeSplitsBeforeTheLastCapitalOfARun", CaseStyle::Snake, u"PDFFileName", u"pdf_file_name"},
        CaseRow{"SnakeKeepsDigitsWithTheLettersBefore", CaseStyle::Snake, u"abc123DEF", u"abc123_def"},
        CaseRow{"SnakeKeepsADashBeyondAsciiInTheWord", CaseStyle::Snake, u"Caf\u00E9\u2013Bar", u"caf\u00E9\u2013bar"},
        CaseRow{"SnakeOfSeparatorsIsEmpty", CaseStyle::Snake, u"--- ...", u""},
        CaseRow{"SnakeUpperOfSeparatorsIsEmpty", CaseStyle::SnakeUpper, u"--- ...", u""},
        CaseRow{"KebabOfSeparatorsIsEmpty", CaseStyle::Kebab, u"--- ...", u""},
        CaseRow{"KebabUpperOfSeparatorsIsEmpty", CaseStyle::KebabUpper, u"--- ...", u""},
        CaseRow{"SnakeHasNoSeparatorAtTheEnds", CaseStyle::Snake, u"_a_", u"a"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(CaseStyle, EmptyTextStaysEmptyInEveryStyle)
{
    for (const CaseStyleLabel& row : case_style_labels)
        EXPECT_EQ(ApplyCaseStyle(row.style, u""), u"");
}

TEST(CaseStyle, TitleWritesEachOfTheSmallWordsLowInside)
{
    const Words small = {u"a",  u"an", u"the", u"and", u"but", u"or", u"nor", u"for", u"yet", u"so",  u"at",
                         u"by", u"in", u"of",  u"on",  u"to",  u"up", u"as",  u"if",  u"off", u"per", u"via"};
    for (const std::u16string& word : small)
        EXPECT_EQ(ApplyCaseStyle(CaseStyle::Title, u"x " + ToUpper(word) + u" y"), u"X " + word + u" Y");
}

TEST(CaseStyle, TitleRaisesShortWordsThatAreNotAmongThem)
{
    for (const std::u16string_view word : {u"is", u"it", u"from", u"with", u"into", u"we", u"over"}) {
        const std::u16string raised = CapitalizeWord(word);
        EXPECT_EQ(ApplyCaseStyle(CaseStyle::Title, u"x " + std::u16string(word) + u" y"), u"X " + raised + u" Y");
    }
}

TEST(CaseStyle, LabelsStandInTheOrderOfTheirValues)
{
    const Words labels = {u"Unchanged",        u"UPPER CASE", u"lower case",      u"Title Case",
                          u"Sentence case",    u"camelCase",  u"PascalCase",      u"snake_case",
                          u"SNAKE_CASE_UPPER", u"kebab-case", u"KEBAB-CASE-UPPER"};
    ASSERT_EQ(case_style_labels.size(), labels.size());
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(case_style_labels[i].style), i);
        EXPECT_EQ(case_style_labels[i].label, labels[i]);
    }
}

struct SplitRow {
    const char* sentence;
    std::u16string_view text;
    Words expected;
};
class SplitIntoWordsRow : public testing::TestWithParam<SplitRow> { };
TEST_P(SplitIntoWordsRow, Holds) { EXPECT_EQ(SplitIntoWords(GetParam().text), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    All, SplitIntoWordsRow,
    testing::Values(SplitRow{"NothingHasNoWords", u"", {}}, SplitRow{"SeparatorsHaveNoWords", u"--- ...", {}},
                    SplitRow{"ControlCharactersSeparate",
                             u"a\tb\x7F"
                             u"c",
                             {u"a", u"b", u"c"}},
                    SplitRow{"SeparatorsInARowSplitOnce", u" a  b--c ", {u"a", u"b", u"c"}},
                    SplitRow{"LowerThenUpper", u"fileName", {u"file", u"Name"}},
                    SplitRow{"TheLastCapitalOfARunOpensTheNextWord", u"PDFFileName", {u"PDF", u"File", u"Name"}},
                    SplitRow{"CapitalsAloneStayOneWord", u"ABC", {u"ABC"}},
                    SplitRow{"CapitalsBeforeADigitStayOneWord", u"ABC1", {u"ABC1"}},
                    SplitRow{"CapitalsBeforeASeparatorStayOneWord", u"ABC d", {u"ABC", u"d"}},
                    SplitRow{"DigitThenLetter", u"123abc", {u"123", u"abc"}},
                    SplitRow{"ADigitAfterALetterStartsNothing", u"abc123def", {u"abc123", u"def"}},
                    SplitRow{"ADigitAmongLetters", u"file2Name", {u"file2", u"Name"}},
                    SplitRow{"DigitsThenCapitals", u"abc123DEF", {u"abc123", u"DEF"}},
                    SplitRow{"AYearInFront", u"2024report", {u"2024", u"report"}},
                    SplitRow{"AFileName", u"My File.v2 (final)", {u"My", u"File", u"v2", u"final"}},
                    SplitRow{"UnitsBeyondAsciiSeparateNothing", u"Caf\u00E9\u2013Bar", {u"Caf\u00E9\u2013Bar"}},
                    SplitRow{"ABulletAloneIsAWord", u" \u2022 ", {u"\u2022"}},
                    SplitRow{"ANoBreakSpaceStaysInsideTheWord", u"a\u00A0b", {u"a\u00A0b"}},
                    SplitRow{"AWordEndsAfterADigitBeforeASymbolBeyondAscii", u"5\u20AC", {u"5", u"\u20AC"}},
                    SplitRow{"HalvesOfPairsAreKept", u"a\xD83D\xDE00 b", {u"a\xD83D\xDE00", u"b"}}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(SplitIntoWords, LosesNothingButAsciiSeparators)
{
    std::mt19937 random(1);
    const std::u16string alphabet = u"abAB12 -_.\u00E9\u2013";
    for (int round = 0; round < 5000; ++round) {
        std::u16string text;
        std::u16string kept;
        for (std::size_t length = random() % 10; text.size() < length;) {
            const char16_t unit = alphabet[random() % alphabet.size()];
            text.push_back(unit);
            if (std::u16string_view(u" -_.").find(unit) == std::u16string_view::npos)
                kept.push_back(unit);
        }
        std::u16string joined;
        for (const std::u16string& word : SplitIntoWords(text)) {
            EXPECT_FALSE(word.empty());
            joined += word;
        }
        ASSERT_EQ(joined, kept);
    }
}

TEST(CapitalizeWord, RaisesTheFirstLetterAndLowersEverythingElse)
{
    EXPECT_EQ(CapitalizeWord(u""), u"");
    EXPECT_EQ(CapitalizeWord(u"aBC"), u"Abc");
    EXPECT_EQ(CapitalizeWord(u"123aBC"), u"123Abc");
    EXPECT_EQ(CapitalizeWord(u"123"), u"123");
}

TEST(CaseMapping, KeepsTheLength)
{
    const std::u16string text = u"aB1 \u00DF\u00E9\xD83D\xDE00";
    EXPECT_EQ(ToUpper(text).size(), text.size());
    EXPECT_EQ(ToLower(text).size(), text.size());
    EXPECT_EQ(ToUpper(u"az09AZ"), u"AZ09AZ");
    EXPECT_EQ(ToLower(u"az09AZ"), u"az09az");
}

} // namespace
} // namespace multirename
