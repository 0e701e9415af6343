#include "text/decimal.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace multirename {
namespace {

constexpr std::int64_t largest = INT64_MAX;
constexpr std::int64_t smallest = INT64_MIN;

TEST(Digit, IsExactlyOneOfTheTenFromZeroToNine)
{
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        EXPECT_EQ(is_digit(static_cast<char16_t>(unit)), unit >= 0x30 && unit <= 0x39) << unit;
}

TEST(EndOfDigits, IsJustPastTheRun)
{
    EXPECT_EQ(end_of_digits(u"a123b", 1), 4U);
    EXPECT_EQ(end_of_digits(u"a123b", 2), 4U);
    EXPECT_EQ(end_of_digits(u"123", 0), 3U);
}

TEST(EndOfDigits, IsThePositionItselfWhereNoDigitStands)
{
    EXPECT_EQ(end_of_digits(u"a1", 0), 0U);
    EXPECT_EQ(end_of_digits(u"1", 1), 1U);
    EXPECT_EQ(end_of_digits(u"", 0), 0U);
    EXPECT_EQ(end_of_digits(u"\u0663", 0), 0U);
}

struct DecimalRow {
    const char* sentence;
    std::u16string_view text;
    std::int64_t expected;
};
class ReadDecimalRow : public testing::TestWithParam<DecimalRow> { };
TEST_P(ReadDecimalRow, Holds) { EXPECT_EQ(read_decimal(GetParam().text), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    All, ReadDecimalRow,
    testing::Values(
        DecimalRow{"NoTextIsZero", u"", 0}, DecimalRow{"NoDigitIsZero", u"abc", 0},
        DecimalRow{"LeadingZerosCountForNothing", u"007", 7}, DecimalRow{"LeadingWhiteSpaceIsSkipped", u" \t42", 42},
        DecimalRow{"MinusMakesItNegative", u"-42", -42}, DecimalRow{"WhiteSpaceMayStandBeforeTheMinus", u"  -5", -5},
        DecimalRow{"ASecondMinusIsNoDigit", u"--5", 0}, DecimalRow{"AMinusAloneIsZero", u"-", 0},
        DecimalRow{"TheFirstOtherCharacterEndsIt", u"12a34", 12}, DecimalRow{"ForeignDigitsEndIt", u"1\u0663", 1},
        DecimalRow{"AControlIsNoWhiteSpace", u"\b5", 0},
        DecimalRow{"TheFirstOtherCharacterEndsALongOneToo", u"1234567890123456789a1", 1234567890123456789},
        DecimalRow{"TheLargestIsRead", u"9223372036854775807", largest},
        DecimalRow{"OneMoreGivesTheLargest", u"9223372036854775808", largest},
        DecimalRow{"ManyDigitsGiveTheLargest",
                   u"11111111111111111111111111111111111111111111111111111111111111111111111111111111111111", largest},
        DecimalRow{"TheSmallestIsRead", u"-9223372036854775808", smallest},
        DecimalRow{"OneLessGivesTheSmallest", u"-9223372036854775809", smallest}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(SmallNumber, IsTheNearestOf32Bits)
{
    EXPECT_EQ(read_small_number(u"12 or so"), 12);
    EXPECT_EQ(read_small_number(u"x1"), 0);
    EXPECT_EQ(read_small_number(u"2147483647"), INT32_MAX);
    EXPECT_EQ(read_small_number(u"2147483648"), INT32_MAX);
    EXPECT_EQ(read_small_number(u"99999999999999999999"), INT32_MAX);
    EXPECT_EQ(read_small_number(u"-2147483648"), INT32_MIN);
    EXPECT_EQ(read_small_number(u"-3000000000"), INT32_MIN);
}

TEST(DecimalText, HasNoLeadingZerosAndKeepsTheSign)
{
    EXPECT_EQ(decimal_text(0), u"0");
    EXPECT_EQ(decimal_text(1040), u"1040");
    EXPECT_EQ(decimal_text(-7), u"-7");
    EXPECT_EQ(decimal_text(largest), u"9223372036854775807");
    EXPECT_EQ(decimal_text(smallest), u"-9223372036854775808");
}

TEST(Saturating, ResultsThatFitAreExact)
{
    EXPECT_EQ(saturating_add(2, 3), 5);
    EXPECT_EQ(saturating_subtract(2, 3), -1);
    EXPECT_EQ(saturating_multiply(-4, 3), -12);
    EXPECT_EQ(saturating_add(largest, smallest), -1);
    EXPECT_EQ(saturating_subtract(smallest, smallest), 0);
}

TEST(Saturating, ResultsThatDoNotFitGiveTheNearestThatDoes)
{
    EXPECT_EQ(saturating_add(largest, 1), largest);
    EXPECT_EQ(saturating_add(smallest, -1), smallest);
    EXPECT_EQ(saturating_subtract(smallest, 1), smallest);
    EXPECT_EQ(saturating_subtract(largest, -1), largest);
    EXPECT_EQ(saturating_subtract(0, smallest), largest);
    EXPECT_EQ(saturating_multiply(largest, 2), largest);
    EXPECT_EQ(saturating_multiply(largest, -2), smallest);
    EXPECT_EQ(saturating_multiply(smallest, -1), largest);
    EXPECT_EQ(saturating_multiply(smallest, 0), 0);
}

} // namespace
} // namespace multirename
