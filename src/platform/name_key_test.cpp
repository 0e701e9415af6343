#include "platform/name_key.h"

#include <gtest/gtest.h>

#include <clocale>

namespace multirename {
namespace {

TEST(NameKey, RaisesAsciiLettersAndLeavesTheRest)
{
    EXPECT_EQ(name_key(u"abc-XYZ_09.txt"), u"ABC-XYZ_09.TXT");
    EXPECT_EQ(name_key(u""), u"");
}

TEST(NameKey, RaisesLettersBeyondAsciiToo)
{
    EXPECT_EQ(name_key(u"\u00E9.txt"), u"\u00C9.TXT");
    EXPECT_EQ(name_key(u"\u00E9.txt"), name_key(u"\u00C9.TXT"));
    EXPECT_EQ(name_key(u"\u0436\u03C9"), u"\u0416\u03A9");
}

TEST(NameKey, OfLettersThatShareAnUpperCaseRaisesTheOneThatItLeadsBackTo)
{
    EXPECT_EQ(name_key(u"i\u03C3\u0443"), u"I\u03A3\u0423");
    const std::u16string others = u"\u0131\u03C2\u017F\u00B5\u01C5\u1E9B\u1FBE\u1C82\u0345";
    EXPECT_EQ(name_key(others), others);
}

TEST(NameKey, DoesNotFollowTheLocale)
{
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(name_key(u"\u00E9"), u"\u00C9");
    std::setlocale(LC_CTYPE, before.c_str());
}

TEST(NameKey, EveryUnitStaysOneUnit)
{
    std::u16string all;
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        all.push_back(static_cast<char16_t>(unit));
    EXPECT_EQ(name_key(all).size(), all.size());
    EXPECT_EQ(name_key(u"\u00DF"), u"\u00DF");
}

TEST(NameKey, LeavesSurrogatesAlone)
{
    std::u16string surrogates;
    for (unsigned unit = 0xD800; unit < 0xE000; ++unit)
        surrogates.push_back(static_cast<char16_t>(unit));
    EXPECT_EQ(name_key(surrogates), surrogates);
}

} // namespace
} // namespace multirename
