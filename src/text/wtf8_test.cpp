#include "text/wtf8.h"

#include <gtest/gtest.h>

#include <random>

#include "text/utf8.h"

namespace multirename {
namespace {

TEST(Wtf8, IsUtf8WhereThatCanBe)
{
    const std::u16string text = u"a\u00E9\u20AC\xD83D\xDE00";
    EXPECT_EQ(to_wtf8(text), to_bytes(text));
    EXPECT_EQ(from_wtf8(to_bytes(text)), text);
}

TEST(Wtf8, AHalfThatStandsAloneTakesThreeBytes)
{
    EXPECT_EQ(to_wtf8(u"\xD83D"), "\xED\xA0\xBD");
    EXPECT_EQ(to_wtf8(u"x\xDC80y"), "x\xED\xB2\x80y");
    EXPECT_EQ(from_wtf8("x\xED\xB2\x80y"), u"x\xDC80y");
}

TEST(Wtf8, OtherBytesBecomeReplacementCharacters)
{
    EXPECT_EQ(from_wtf8("a\xFF"), u"a\xFFFD");
    EXPECT_EQ(from_wtf8("\xED\xA0"), u"\xFFFD\xFFFD");
    EXPECT_EQ(from_wtf8("\xED\x20\xA0z"), u"\xFFFD \xFFFDz");
    EXPECT_EQ(from_wtf8("\xED\xA0\x20z"), u"\xFFFD\xFFFD z");
    EXPECT_EQ(from_wtf8("\xED\xA0\xC0z"), u"\xFFFD\xFFFD\xFFFDz");
    EXPECT_EQ(from_wtf8("\xED\xC0\x80z"), u"\xFFFD\xFFFD\xFFFDz");
    EXPECT_EQ(from_wtf8("\xEF\xA0\xFFz"), u"\xFFFD\xFFFD\xFFFDz");
}

TEST(Wtf8, TheFirstAndTheLastHalvesComeBack)
{
    for (const char16_t half :
         {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDC7F', u'\xDC80', u'\xDCFF', u'\xDD00', u'\xDFFF'}) {
        const std::u16string text{u'x', half};
        EXPECT_EQ(to_wtf8(text).size(), 4U);
        EXPECT_EQ(from_wtf8(to_wtf8(text)), text);
    }
}

TEST(Wtf8, AnyTextComesBackAsItWas)
{
    std::mt19937 random(8);
    const std::u16string frequent = u"a\u00E9\xD800\xDBFF\xDC00\xDC80\xDCFF\xDFFF\xFFFD";
    for (int round = 0; round < 20000; ++round) {
        std::u16string text;
        for (std::size_t length = random() % 8; length > 0; --length)
            text.push_back(random() % 4 == 0 ? static_cast<char16_t>(random()) : frequent[random() % frequent.size()]);
        ASSERT_EQ(from_wtf8(to_wtf8(text)), text) << round;
    }
}

} // namespace
} // namespace multirename
