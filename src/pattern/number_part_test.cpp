#include "pattern/number_part.h"

#include <gtest/gtest.h>

#include "fileset/testing/test_files.h"

namespace multirename {
namespace {

constexpr LeadingZerosMode unchanged = LeadingZerosMode::Unchanged;
constexpr LeadingZerosMode fixed_digits = LeadingZerosMode::FixedDigits;
constexpr LeadingZerosMode remove_zeros = LeadingZerosMode::RemoveZeros;

NamePart with_zeros(LeadingZerosMode mode, std::int32_t length = 4)
{
    NamePart part = NamePart::make_number();
    part.leadingZeros = mode;
    part.length = length;
    return part;
}

NamePart renumbered(std::int64_t start, std::int64_t base, LeadingZerosMode mode = unchanged, std::int32_t length = 4)
{
    NamePart part = with_zeros(mode, length);
    part.renumber = true;
    part.startNumber = start;
    part.baseNumber = base;
    return part;
}

NamePart cleared(NamePart part)
{
    part.clearText = true;
    return part;
}

struct NumberRow {
    const char* sentence;
    NamePart part;
    std::u16string_view digits;
    std::u16string_view expected;
};
class NumberPartRow : public testing::TestWithParam<NumberRow> { };
TEST_P(NumberPartRow, Holds) { EXPECT_EQ(formatNumberPart(GetParam().part, GetParam().digits), GetParam().expected); }

std::string number_sentence(const testing::TestParamInfo<NumberRow>& row) { return row.param.sentence; }

INSTANTIATE_TEST_SUITE_P(
    LeadingZeros, NumberPartRow,
    testing::Values(NumberRow{"UnchangedGivesTheDigitsBack", with_zeros(unchanged), u"007", u"007"},
                    NumberRow{"FixedDigitsCutZeros", with_zeros(fixed_digits, 2), u"007", u"07"},
                    NumberRow{"FixedDigitsAddZeros", with_zeros(fixed_digits, 5), u"007", u"00007"},
                    NumberRow{"FixedDigitsNeverCutOtherDigits", with_zeros(fixed_digits, 2), u"1234", u"1234"},
                    NumberRow{"FixedDigitsCutZerosBeforeALongerNumber", with_zeros(fixed_digits, 2), u"00123", u"123"},
                    NumberRow{"FixedDigitsCutNoMoreZerosThanNeeded", with_zeros(fixed_digits, 4), u"00012", u"0012"},
                    NumberRow{"FixedDigitsStopAtTheFirstOtherDigit", with_zeros(fixed_digits, 2), u"0100", u"100"},
                    NumberRow{"FixedDigitsOfTheSameWidth", with_zeros(fixed_digits, 3), u"007", u"007"},
                    NumberRow{"FixedDigitsKeepOneZero", with_zeros(fixed_digits, 1), u"000", u"0"},
                    NumberRow{"NoFixedDigitsCountAsOne", with_zeros(fixed_digits, 0), u"000", u"0"},
                    NumberRow{"NegativeFixedDigitsCountAsOne", with_zeros(fixed_digits, -5), u"012", u"12"},
                    NumberRow{"RemoveZerosRemovesAllOfThem", with_zeros(remove_zeros), u"00700", u"700"},
                    NumberRow{"RemoveZerosLeavesAZero", with_zeros(remove_zeros), u"000", u"0"},
                    NumberRow{"RemoveZerosHasNothingToRemove", with_zeros(remove_zeros), u"70", u"70"},
                    NumberRow{"AnUnknownModeIsUnchanged", with_zeros(static_cast<LeadingZerosMode>(3)), u"007",
                              u"007"}),
    number_sentence);

INSTANTIATE_TEST_SUITE_P(
    Renumber, NumberPartRow,
    testing::Values(NumberRow{"TheBaseBecomesTheStart", renumbered(1, 5), u"5", u"1"},
                    NumberRow{"TheNextStaysTheNext", renumbered(1, 5), u"6", u"2"},
                    NumberRow{"GapsStay", renumbered(1, 5), u"9", u"5"},
                    NumberRow{"NothingGoesBelowZero", renumbered(1, 5), u"3", u"0"},
                    NumberRow{"AStartOfZeroIsAStart", renumbered(0, 5), u"7", u"2"},
                    NumberRow{"ANumberWithLeadingZerosKeepsItsWidth", renumbered(12, 7), u"007", u"012"},
                    NumberRow{"ANumberWithoutHasNone", renumbered(12, 7), u"7", u"12"},
                    NumberRow{"ANumberWithoutMayGetShorter", renumbered(1, 100), u"102", u"3"},
                    NumberRow{"AWidthIsNeverCut", renumbered(12345, 99), u"0099", u"12345"},
                    NumberRow{"ZeroKeepsItsWidth", renumbered(5, 0), u"00", u"05"},
                    NumberRow{"ASingleZeroIsAWidthOfOne", renumbered(12, 0), u"0", u"12"},
                    NumberRow{"AnUnsetStartKeepsTheNumber", renumbered(-1, 5), u"9", u"9"},
                    NumberRow{"AnUnsetStartKeepsTheWidth", renumbered(-1, 7), u"007", u"007"},
                    NumberRow{"AnyNegativeStartIsUnset", renumbered(-20, 7), u"007", u"007"},
                    NumberRow{"FixedDigitsPadTheNewNumber", renumbered(1, 5, fixed_digits, 3), u"006", u"002"},
                    NumberRow{"FixedDigitsForgetTheOldWidth", renumbered(1, 5, fixed_digits, 1), u"0006", u"2"},
                    NumberRow{"FixedDigitsNeverCutTheNewNumber", renumbered(1000, 5, fixed_digits, 2), u"6", u"1001"},
                    NumberRow{"RemoveZerosForgetsTheOldWidth", renumbered(1, 5, remove_zeros), u"0006", u"2"},
                    NumberRow{"RemoveZerosLeavesTheZeroOfANewNumber", renumbered(0, 5, remove_zeros), u"005", u"0"},
                    NumberRow{"NoDigitsAreTheNumberZero", renumbered(3, 0), u"", u"3"},
                    NumberRow{"WhiteSpaceAndAMinusAreRead", renumbered(10, 0), u" -4", u"6"}),
    number_sentence);

INSTANTIATE_TEST_SUITE_P(
    Saturation, NumberPartRow,
    testing::Values(NumberRow{"ANumberThatDoesNotFitIsTheLargest", renumbered(0, 0), u"99999999999999999999",
                              u"9223372036854775807"},
                    NumberRow{"TheLargestCannotGrow", renumbered(10, 0), u"9223372036854775807",
                              u"9223372036854775807"},
                    NumberRow{"TheLargestCanShrink", renumbered(0, 7), u"9223372036854775807", u"9223372036854775800"},
                    NumberRow{"WithoutRenumberingNothingIsRead", with_zeros(unchanged), u"99999999999999999999",
                              u"99999999999999999999"},
                    NumberRow{"FixedDigitsReadNothingEither", with_zeros(fixed_digits, 22), u"99999999999999999999",
                              u"0099999999999999999999"},
                    NumberRow{"AWideNumberKeepsItsWidth", renumbered(1, 0), u"0000000000000000000000000000000000000004",
                              u"0000000000000000000000000000000000000005"}),
    number_sentence);

INSTANTIATE_TEST_SUITE_P(
    ClearText, NumberPartRow,
    testing::Values(NumberRow{"ClearedGivesNothing", cleared(NamePart::make_number()), u"007", u""},
                    NumberRow{"ClearedGivesNothingWithFixedDigits", cleared(with_zeros(fixed_digits, 3)), u"7", u""},
                    NumberRow{"ClearedGivesNothingWithRemovedZeros", cleared(with_zeros(remove_zeros)), u"000", u""},
                    NumberRow{"ClearedGivesNothingWhenRenumbered", cleared(renumbered(1, 5, fixed_digits, 3)), u"6",
                              u""}),
    number_sentence);

NamePattern parsed(std::u16string_view text, NameMode mode = NameMode::BaseOnly)
{
    return parsePattern(text, u"", mode);
}

TEST(BaseNumbers, AreTheSmallestOldNumbersOfTheListedEntries)
{
    const TestFiles test({u"IMG_12_3.jpg", u"IMG_7_40.jpg", u"IMG_9_5.jpg"}, {u"IMG_1_1.jpg"});
    NamePattern pattern = parsed(u"IMG_#_#");
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 7);
    EXPECT_EQ(pattern.parts[3].baseNumber, 3);
}

TEST(BaseNumbers, TellWhetherAnyChanged)
{
    const TestFiles test({u"a5", u"a3"});
    NamePattern pattern = parsed(u"a#");
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_FALSE(computeBaseNumbers(test.files, pattern));
    pattern.parts[1].baseNumber = 4;
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 3);
}

TEST(BaseNumbers, OfANumberThatNoEntryHasStaysAsItIs)
{
    const TestFiles test({u"a5"});
    NamePattern pattern = parsed(u"b#");
    pattern.parts[1].baseNumber = 77;
    EXPECT_FALSE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 77);
}

TEST(BaseNumbers, CountWhatWasTakenBeforeAMatchFailed)
{
    const TestFiles test({u"a5x", u"a3y"});
    NamePattern pattern = parsed(u"a#x#");
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 3);
    EXPECT_EQ(pattern.parts[3].baseNumber, 0);
}

TEST(BaseNumbers, ReadNamesWithoutTheirExtension)
{
    const TestFiles test({u"a5.1", u"a6.0"});
    NamePattern pattern = parsed(u"a#");
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 5);
}

TEST(BaseNumbers, ReadWholeNamesWhenThePatternIncludesTheExtension)
{
    const TestFiles test({u"a5.mp4", u"a6.mp3"});
    NamePattern pattern = parsed(u"a#.mp#", NameMode::WholeName);
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 5);
    EXPECT_EQ(pattern.parts[3].baseNumber, 3);
}

TEST(BaseNumbers, ReachOverAllFolders)
{
    const TestFiles test({u"C:\\B\\a5", u"C:\\A\\a6", u"C:\\C\\a2"});
    NamePattern pattern = parsed(u"a#");
    computeBaseNumbers(test.files, pattern);
    EXPECT_EQ(pattern.parts[1].baseNumber, 2);
}

TEST(BaseNumbers, AreReadInDecimalWhateverTheirZeros)
{
    const TestFiles test({u"a0010", u"a9"});
    NamePattern pattern = parsed(u"a#");
    computeBaseNumbers(test.files, pattern);
    EXPECT_EQ(pattern.parts[1].baseNumber, 9);
}

TEST(BaseNumbers, ThatDoNotFitAreTheLargest)
{
    const TestFiles test({u"a99999999999999999999999"});
    NamePattern pattern = parsed(u"a#");
    computeBaseNumbers(test.files, pattern);
    EXPECT_EQ(pattern.parts[1].baseNumber, INT64_MAX);
}

TEST(BaseNumbers, MayBeZero)
{
    const TestFiles test({u"a0", u"a5"});
    NamePattern pattern = parsed(u"a#");
    pattern.parts[1].baseNumber = 5;
    EXPECT_TRUE(computeBaseNumbers(test.files, pattern));
    EXPECT_EQ(pattern.parts[1].baseNumber, 0);
}

TEST(BaseNumbers, OfAPatternWithoutNumbersNeverChange)
{
    const TestFiles test({u"a5"});
    NamePattern pattern = parsed(u"a*");
    EXPECT_FALSE(computeBaseNumbers(test.files, pattern));
}

} // namespace
} // namespace multirename
