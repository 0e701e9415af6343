#include "platform/native_text.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(PosixNativeText, CharactersThatANameMayNotHoldAreMovedAside)
{
    EXPECT_EQ(name_from_native("12:30"), u"12\uF03A30");
    EXPECT_EQ(native_from_name(u"12\uF03A30"), "12:30");
    EXPECT_EQ(shown_native_name(u"12\uF03A30"), u"12:30");
    EXPECT_EQ(typed_from_native("12:30"), u"12:30");
}

TEST(PosixNativeText, PathsHaveBackslashesBehindTheBorder)
{
    EXPECT_EQ(path_from_native("/a/b\\c/"), u"\\a\\b\uF05Cc\\");
    EXPECT_EQ(native_from_path(u"\\a\\b\uF05Cc\\"), "/a/b\\c/");
}

TEST(PosixNativeText, BytesThatAreNotUtf8ComeBack)
{
    const std::string bytes = "stray\xFF\xC3";
    EXPECT_EQ(name_from_native(bytes), u"stray\xDCFF\xDCC3");
    EXPECT_EQ(native_from_name(name_from_native(bytes)), bytes);
}

struct Row {
    const char* sentence;
    std::u16string new_name;
    std::u16string old_name;
    std::u16string typed;
    bool expected;
};
class CanBeWritten : public testing::TestWithParam<Row> { };

TEST_P(CanBeWritten, Holds)
{
    EXPECT_EQ(can_be_written(GetParam().new_name, GetParam().old_name, GetParam().typed), GetParam().expected);
}

// U+1F480 is the pair D83D DC80, whose second half looks like the stray byte 0x80.
INSTANTIATE_TEST_SUITE_P(
    All, CanBeWritten,
    testing::Values(Row{"AWholePair", u"\U0001F480 new", u"\U0001F480", u"new", true},
                    Row{"ACharacterMovedAside", u"12\uF03A30 new", u"12\uF03A30", u"new", true},
                    Row{"AStrayByteOfTheOldName", u"new\xDCFF", u"old\xDCFF", u"new", true},
                    Row{"AStrayByteOfTheOldNameTwice", u"\xDCFF\xDCFF", u"old\xDCFF", u"", true},
                    Row{"AStrayByteThatWasTyped", u"old\xDCFE", u"old", u"\xDCFE", true},
                    Row{"NotAStrayByteOfNeither", u"old\xDCFE", u"old\xDCFF", u"typed", false},
                    Row{"NotAFirstHalf", u"\xD83D", u"\U0001F480", u"", false},
                    Row{"NotASecondHalf", u"\xDE00", u"\U0001F600", u"", false},
                    Row{"NotAHalfThatWasAloneBefore", u"\xDE00", u"\xDE00", u"\xDE00", false},
                    Row{"NotAHalfThatLooksLikeAStrayByte", u"\xDC80", u"\U0001F480", u"", false},
                    Row{"NotAHalfOfATypedPairEither", u"old\xDC80", u"old", u"\U0001F480", false},
                    Row{"AHalfThatLooksLikeAStrayByteOfTheName", u"\xDC80", u"\U0001F480 \xDC80", u"", true},
                    Row{"NotStrayBytesThatComeTogetherToACharacter", u"\xDCC3\xDCA9", u"\xDCA9\xDCC3", u"", false},
                    Row{"StrayBytesThatStayApart", u"\xDCA9\xDCC3", u"\xDCC3 \xDCA9", u"", true},
                    Row{"NotACharacterThatReadsAsOneMovedAside", u"a:b", u"ab", u":", false}),
    [](const auto& row) { return std::string(row.param.sentence); });

} // namespace
} // namespace multirename
