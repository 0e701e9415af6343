#include "platform/local_time.h"

#include <gtest/gtest.h>

#include "platform/testing/moment_at.h"

namespace multirename {
namespace {

constexpr FileTime one_second = 10'000'000;

TEST(LocalTime, TellsTheClockOnTheWall)
{
    const FileTime moment = moment_at(2024, 3, 5, 14, 7, 9);
    const auto time = local_time(moment);
    ASSERT_TRUE(time);
    EXPECT_EQ(time->tm_year, 124);
    EXPECT_EQ(time->tm_mon, 2);
    EXPECT_EQ(time->tm_mday, 5);
    EXPECT_EQ(time->tm_wday, 2);
    EXPECT_EQ(time->tm_hour, 14);
    EXPECT_EQ(time->tm_min, 7);
    EXPECT_EQ(time->tm_sec, 9);
}

TEST(LocalTime, PartsOfASecondAreDropped)
{
    const FileTime moment = moment_at(2024, 3, 5, 14, 7, 9);
    ASSERT_TRUE(local_time(moment + one_second - 1));
    EXPECT_EQ(local_time(moment + one_second - 1)->tm_sec, 9);
    EXPECT_EQ(local_time(moment + one_second)->tm_sec, 10);
}

TEST(LocalTime, MomentsTooFarOffAreNotTold)
{
    EXPECT_FALSE(local_time(FileTime{1} << 63));
    EXPECT_FALSE(local_time(~FileTime{0}));
}

TEST(LocalTime, TheFirstMomentLiesInTheYear1600Or1601OrCannotBeTold)
{
    const auto time = local_time(0);
    EXPECT_TRUE(!time || time->tm_year <= 1601 - 1900);
}

std::tm fifth_of_march()
{
    std::tm time{};
    time.tm_year = 124;
    time.tm_mon = 2;
    time.tm_mday = 5;
    time.tm_wday = 2;
    time.tm_hour = 4;
    time.tm_min = 7;
    time.tm_sec = 9;
    return time;
}

TEST(FormatTime, KnowsEveryCodeThatDatesAreMadeOf)
{
    EXPECT_EQ(format_time(fifth_of_march(), "%Y-%m-%d %H:%M:%S"), u"2024-03-05 04:07:09");
    EXPECT_EQ(format_time(fifth_of_march(), "%y %B %b %A %a"), u"24 March Mar Tuesday Tue");
}

TEST(FormatTime, AHashAfterThePercentSignDropsLeadingZeros)
{
    EXPECT_EQ(format_time(fifth_of_march(), "%#d.%#m.%#Y"), u"5.3.2024");
}

TEST(FormatTime, APercentSignAtTheEndStands)
{
    EXPECT_EQ(format_time(fifth_of_march(), "%"), u"%");
    EXPECT_EQ(format_time(fifth_of_march(), "%d%"), u"05%");
}

TEST(FormatTime, OtherBytesAreCopiedAsTheUnitsOfTheirValue)
{
    EXPECT_EQ(format_time(fifth_of_march(), "a\xE9\xFFz"), u"a\u00E9\u00FFz");
    EXPECT_EQ(format_time(fifth_of_march(), ""), u"");
}

TEST(FormatTime, NeverGivesMoreThanAHundredCharacters)
{
    std::string format;
    for (int i = 0; i < 60; ++i)
        format += "%Y";
    EXPECT_LE(format_time(fifth_of_march(), format).size(), 100U);
    EXPECT_LE(format_time(fifth_of_march(), std::string(300, 'x')).size(), 100U);
    EXPECT_EQ(format_time(fifth_of_march(), std::string(90, 'x')).size(), 90U);
}

} // namespace
} // namespace multirename
