#include "text/utf8.h"

#include <gtest/gtest.h>

#include <random>

namespace multirename {
namespace {

struct Utf8Row {
    const char* sentence;
    std::string bytes;
    std::u16string text;
};
class Utf8RoundTrip : public testing::TestWithParam<Utf8Row> { };
TEST_P(Utf8RoundTrip, ToTheEngine) { EXPECT_EQ(from_bytes(GetParam().bytes), GetParam().text); }
TEST_P(Utf8RoundTrip, AndBack) { EXPECT_EQ(to_bytes(GetParam().text), GetParam().bytes); }
INSTANTIATE_TEST_SUITE_P(
    All, Utf8RoundTrip,
    testing::Values(Utf8Row{"NothingIsNothing", "", u""}, Utf8Row{"AsciiIsItself", "a b.txt", u"a b.txt"},
                    Utf8Row{"TwoBytes", "\xC3\xA9", u"\u00E9"}, Utf8Row{"ThreeBytes", "\xE2\x82\xAC", u"\u20AC"},
                    Utf8Row{"FourBytesAreASurrogatePair", "\xF0\x9F\x98\x80", u"\xD83D\xDE00"},
                    Utf8Row{"TheLastCharacter", "\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
                    Utf8Row{"TheEdgesOfTwoBytes", "\x7F\xC2\x80\xDF\xBF", u"\x7F\x80\x7FF"},
                    Utf8Row{"TheEdgesOfThreeBytes", "\xE0\xA0\x80\xEF\xBF\xBF", u"\x800\xFFFF"},
                    Utf8Row{"TheCharactersAroundTheHalvesOfPairs", "\xED\x9F\xBF\xEE\x80\x80", u"\xD7FF\xE000"},
                    Utf8Row{"TheFirstOfFourBytes", "\xF0\x90\x80\x80", u"\xD800\xDC00"},
                    Utf8Row{"TheFirstAndTheLastEncodedHalf", "\xED\xA0\x80\xED\xBF\xBF",
                            u"\xDCED\xDCA0\xDC80\xDCED\xDCBF\xDCBF"},
                    Utf8Row{"AByteThatStartsNothing", "a\xFFz", u"a\xDCFFz"},
                    Utf8Row{"AStrayContinuation", "\x80", u"\xDC80"},
                    Utf8Row{"ASequenceThatBreaksOff", "\xE2\x82", u"\xDCE2\xDC82"},
                    Utf8Row{"ASequenceThatBreaksOffBeforeALetter", "\xE2\x82z", u"\xDCE2\xDC82z"},
                    Utf8Row{"AnOverlongForm", "\xC0\xAF", u"\xDCC0\xDCAF"},
                    Utf8Row{"AnOverlongFormOfThreeBytes", "\xE0\x80\xAF", u"\xDCE0\xDC80\xDCAF"},
                    Utf8Row{"AnEncodedHalfOfAPair", "\xED\xB2\x80", u"\xDCED\xDCB2\xDC80"},
                    Utf8Row{"BeyondTheLastCharacter", "\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(ToBytes, OtherHalvesOfPairsBecomeTheReplacementCharacter)
{
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(to_bytes(u"a\xD800z"), "a" + replacement + "z");
    EXPECT_EQ(to_bytes(u"\xDC7F"), replacement);
    EXPECT_EQ(to_bytes(u"\xDD00"), replacement);
    EXPECT_EQ(to_bytes(u"\xD83D"), replacement);
}

TEST(Utf8, AnyBytesComeBackAsTheyWere)
{
    std::mt19937 random(1);
    // Lead and continuation bytes far more often than chance would have them, so that near misses are common.
    const std::string frequent = "a\x80\xBF\xC0\xC3\xE0\xED\xA0\xEF\xF0\x90\xF4\x8F\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (std::size_t length = random() % 12; bytes.size() < length;)
            bytes.push_back(random() % 3 == 0 ? static_cast<char>(random() % 256)
                                              : frequent[random() % frequent.size()]);
        ASSERT_EQ(to_bytes(from_bytes(bytes)), bytes);
    }
}

TEST(PrintableAscii, IsAppendedAndAnythingElseIsNot)
{
    std::string bytes = "before ";
    EXPECT_TRUE(append_printable_ascii(bytes, u" a~"));
    EXPECT_TRUE(append_printable_ascii(bytes, u""));
    EXPECT_EQ(bytes, "before  a~");
    for (const char16_t other : {u'\0', u'\n', u'\x1F', u'\x7F', u'\x80', u'\x0141', u'\xD83D', u'\xF03A'}) {
        EXPECT_FALSE(append_printable_ascii(bytes, std::u16string(u"text") + other));
        EXPECT_EQ(bytes, "before  a~");
    }
}

} // namespace
} // namespace multirename
