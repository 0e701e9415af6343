#include "platform/name_key.h"

#include <gtest/gtest.h>

#include <clocale>
#include <set>
#include <string>

#include "text/decimal.h"

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

struct ComparedRow {
    const char* sentence;
    std::u16string_view a;
    std::u16string_view b;
};
class ComparedNames : public testing::TestWithParam<ComparedRow> { };
TEST_P(ComparedNames, CompareAsTheirKeysDo)
{
    const auto [sentence, a, b] = GetParam();
    const auto sign = [](int order) { return (order > 0 ? 1 : 0) - (order < 0 ? 1 : 0); };
    EXPECT_EQ(sign(compare_keys(a, b)), sign(name_key(a).compare(name_key(b))));
    EXPECT_EQ(sign(compare_keys(b, a)), sign(name_key(b).compare(name_key(a))));
    EXPECT_EQ(have_one_key(a, b), name_key(a) == name_key(b));
    EXPECT_EQ(key_hash(a) == key_hash(b), name_key(a) == name_key(b));
    EXPECT_EQ(name_hash(a) == name_hash(b), a == b);
}
INSTANTIATE_TEST_SUITE_P(
    All, ComparedNames,
    testing::Values(ComparedRow{"WhenEqual", u"IMG_0001.jpg", u"IMG_0001.jpg"},
                    ComparedRow{"WhenBothAreEmpty", u"", u""}, ComparedRow{"WhenOneIsEmpty", u"", u"a"},
                    ComparedRow{"WhenTheyDifferInCase", u"img_0001.JPG", u"IMG_0001.jpg"},
                    ComparedRow{"WhenOneBeginsTheOther", u"abcdefgh", u"abcdefghi"},
                    ComparedRow{"WhenTheLastUnitDiffers", u"abcdefg1", u"abcdefg2"},
                    ComparedRow{"WhenTheFirstUnitOfAWordDiffers", u"abcdEfgh", u"abcdXfgh"},
                    ComparedRow{"WhenTheUnderscoreMeetsALetter", u"ab_d", u"abzd"},
                    ComparedRow{"WhenNeighboursOfTheLettersMeet", u"@[`{", u"`{@["},
                    ComparedRow{"WhenLettersBeyondAsciiDifferInCase", u"\u00E9t\u00E9.txt", u"\u00C9T\u00C9.TXT"},
                    ComparedRow{"WhenLettersBeyondAsciiDiffer", u"abc\u00E9", u"abc\u00E8"},
                    ComparedRow{"WhenWideUnitsMeetNarrowOnes", u"abc\u4E00", u"abcz"},
                    ComparedRow{"WhenHighUnitsComeFirstInOneWord", u"\uFF5Eabc", u"\u00E9abd"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(ComparedNames, AWordOfAKeyHasZerosBehindTheEndAndItsFirstUnitInFront)
{
    EXPECT_EQ(key_word(u"abCd\u00E9", 0), 0x0041'0042'0043'0044U);
    EXPECT_EQ(key_word(u"abCd\u00E9", 1), 0x0042'0043'0044'00C9U);
    EXPECT_EQ(key_word(u"abCd\u00E9", 4), 0x00C9'0000'0000'0000U);
    EXPECT_EQ(key_word(u"abCd\u00E9", 5), 0U);
    EXPECT_EQ(key_word(u"abCd\u00E9", 9), 0U);
}

TEST(ComparedNames, EveryUnitIsTakenForItsKeyWhereverItStandsInAWord)
{
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto unit = static_cast<char16_t>(code);
        const char16_t upper_case = name_key({&unit, 1}).front();
        for (std::size_t place = 0; place < 5; ++place) {
            std::u16string name = u"aBc-e";
            name[place] = unit;
            const std::u16string key = name_key(name);
            ASSERT_EQ(key[place], upper_case) << code;
            ASSERT_TRUE(have_one_key(name, key)) << code;
            ASSERT_EQ(key_hash(name), key_hash(key)) << code;
        }
    }
}

TEST(ComparedNames, HaveHashesThatSeldomMeet)
{
    std::set<std::uint64_t> hashes;
    for (int i = 0; i < 20'000; ++i)
        hashes.insert(key_hash(u"IMG_" + decimal_text(i) + u".jpg"));
    EXPECT_EQ(hashes.size(), 20'000U);
}

} // namespace
} // namespace multirename
