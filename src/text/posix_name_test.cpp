#include "text/posix_name.h"

#include <gtest/gtest.h>

#include <random>

namespace multirename {
namespace {

struct PosixNameRow {
    const char* sentence;
    std::string bytes;
    std::u16string name;
};
class PosixNameRoundTrip : public testing::TestWithParam<PosixNameRow> { };
TEST_P(PosixNameRoundTrip, ToTheEngine) { EXPECT_EQ(name_from_bytes(GetParam().bytes), GetParam().name); }
TEST_P(PosixNameRoundTrip, AndBack) { EXPECT_EQ(bytes_from_name(GetParam().name), GetParam().bytes); }
INSTANTIATE_TEST_SUITE_P(
    All, PosixNameRoundTrip,
    testing::Values(PosixNameRow{"OrdinaryNamesAreThemselves", "a b.txt", u"a b.txt"},
                    PosixNameRow{"LettersBeyondAsciiToo", "\xC3\xA9\xF0\x9F\x98\x80", u"\u00E9\xD83D\xDE00"},
                    PosixNameRow{"TheEightCharactersMoveAside", "\\:*?\"<>|",
                                 u"\xF05C\xF03A\xF02A\xF03F\xF022\xF03C\xF03E\xF07C"},
                    PosixNameRow{"OthersOfThePrivateAreaStay", "\xEF\x81\x81", u"\xF041"},
                    PosixNameRow{"WhatLooksLikeAMovedCharacterBecomesBytes", "\xEF\x80\xBA", u"\xDCEF\xDC80\xDCBA"},
                    PosixNameRow{"BytesThatAreNoUtf8", "a\xFF", u"a\xDCFF"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(PosixName, HoldsNoneOfTheEightCharactersBehindTheBorder)
{
    for (const char c : std::string("\\:*?\"<>|"))
        EXPECT_EQ(name_from_bytes(std::string(1, c)).find_first_of(u"\\:*?\"<>|"), std::u16string::npos) << c;
}

TEST(PosixName, IsShownWithTheEightCharactersInTheirPlaces)
{
    EXPECT_EQ(shown_name(u"a\xF03A\xF041\xDCFF"), u"a:\xF041\xDCFF");
}

TEST(PosixName, WhatIsTypedStaysAsItIsExceptWhatLooksMovedAside)
{
    EXPECT_EQ(typed_from_bytes("a:<N:1>\xC3\xA9\xFF"), u"a:<N:1>\u00E9\xDCFF");
    EXPECT_EQ(typed_from_bytes("\xEF\x80\xBA"), u"\xDCEF\xDC80\xDCBA");
}

TEST(PosixName, AnyBytesComeBackAsTheyWere)
{
    std::mt19937 random(2);
    const std::string frequent = "a\\:*?\"<>|\xEF\x80\xBA\x81\x9C\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (std::size_t length = random() % 12; bytes.size() < length;) {
            const char byte =
                random() % 3 == 0 ? static_cast<char>(random() % 256) : frequent[random() % frequent.size()];
            if (byte != '/')
                bytes.push_back(byte);
        }
        ASSERT_EQ(bytes_from_name(name_from_bytes(bytes)), bytes);
    }
}

TEST(PosixName, TheMemoryOfAnotherNameMayTakeItsBytes)
{
    std::string bytes = "a longer name that was there before.txt";
    for (const std::u16string_view name : {u"a b.txt", u"", u"caf\u00E9\xF03A\xDCFF", u"c"}) {
        bytes_from_name(name, bytes);
        EXPECT_EQ(bytes, bytes_from_name(name));
    }
}

TEST(PosixName, IsTheSameFromItsBytesUnlessItsUnitsHaveNone)
{
    std::mt19937 random(4);
    const std::u16string frequent = u"a:\\\xF03A\xF041\u00E9\xD83D\xDE00\xDCC3\xDCA9";
    for (int round = 0; round < 20000; ++round) {
        std::u16string name;
        for (std::size_t length = random() % 5; name.size() < length;)
            name.push_back(frequent[random() % frequent.size()]);
        ASSERT_EQ(is_same_from_bytes(name), name_from_bytes(bytes_from_name(name)) == name);
        ASSERT_EQ(is_plain_name(name), name.find_first_not_of(u'a') == std::u16string::npos);
    }
}

TEST(PosixPath, HasBackslashesBehindTheBorder)
{
    EXPECT_EQ(path_from_bytes("/home/a:b/c\\d.txt"),
              u"\\home\\a\xF03A"
              u"b\\c\xF05C"
              u"d.txt");
    EXPECT_EQ(path_from_bytes("/"), u"\\");
    EXPECT_EQ(path_from_bytes("relative.txt"), u"relative.txt");
    EXPECT_EQ(path_from_bytes("folder/"), u"folder\\");
}

TEST(PosixPath, AnyBytesComeBackAsTheyWere)
{
    std::mt19937 random(3);
    const std::string frequent = "a/\\:\xEF\x80\xBA\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (std::size_t length = random() % 16; bytes.size() < length;)
            bytes.push_back(frequent[random() % frequent.size()]);
        ASSERT_EQ(bytes_from_path(path_from_bytes(bytes)), bytes);
    }
}

} // namespace
} // namespace multirename
