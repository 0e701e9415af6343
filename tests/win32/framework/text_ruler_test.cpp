// Widths of many texts in one font.

#include <windows.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "win32/framework/cwnd.h"
#include "win32/framework/handles.h"

namespace {

using multirename::text_width;
using multirename::TextRuler;

class TextRulerTest : public testing::Test {
protected:
    multirename::UniqueWindow window{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    multirename::UniqueFont font{CreateFontW(-15, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                             OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                             DEFAULT_PITCH | FF_DONTCARE, L"Segoe UI")};
    TextRuler ruler{window.get(), font.get()};

    void expect_agreement(const std::u16string& text)
    {
        EXPECT_EQ(ruler.width(text), text_width(window.get(), font.get(), text)) << testing::PrintToString(text);
    }
};

} // namespace

TEST_F(TextRulerTest, AgreesWithTheWidthOfTheWholeText)
{
    for (const char16_t* const text : {u"", u"a", u"IMG_0001.jpg", u"AVAToffii.", u"\u00C4\u00D6\u00DC\u0142",
                                       u"e\u0301a\u0308", u"\u65E5\u672C\u8A9E", u"\u05E9\u05DC\u05D5\u05DD",
                                       u"\U0001F600 smile", u"tab\there", u"a mix \u65E5 of both"})
        expect_agreement(text);
}

TEST_F(TextRulerTest, AgreesOnRandomLatinTexts)
{
    std::mt19937 random(1);
    for (int i = 0; i < 2'000; ++i) {
        std::u16string text;
        for (auto length = random() % 40; length > 0; --length)
            text.push_back(static_cast<char16_t>(0x20 + random() % 0x300));
        expect_agreement(text);
    }
}

TEST_F(TextRulerTest, KnowsTheFontItWasGiven)
{
    const multirename::UniqueFont large(multirename::create_font_like(font.get(), 700, 2, 1));
    TextRuler other(window.get(), large.get());
    EXPECT_EQ(other.width(u"Width"), text_width(window.get(), large.get(), u"Width"));
    EXPECT_GT(other.width(u"Width"), ruler.width(u"Width"));
}
