#include "text/surrogates.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(Surrogates, AHalfIsLoneUnlessItsOtherHalfStandsBesideIt)
{
    EXPECT_EQ(find_lone_half(u"a\xD83D\xDE00z"), std::u16string_view::npos);
    EXPECT_EQ(find_lone_half(u"a\xDE00\xD83D"), 1U);
    EXPECT_EQ(find_lone_half(u"\xD83D\xDE00\xDE00"), 2U);
    EXPECT_EQ(find_lone_half(u"\xD83D\xD83D\xDE00"), 0U);
    EXPECT_EQ(find_lone_half(u"\xD83D\xD83D\xDE00", 1), std::u16string_view::npos);
    EXPECT_EQ(find_lone_half(u""), std::u16string_view::npos);
}

TEST(Surrogates, BothHalvesAreOneCharacter)
{
    EXPECT_TRUE(is_pair_at(u"\xD83D\xDE00", 0));
    EXPECT_FALSE(is_pair_at(u"\xD83D\xDE00", 1));
    EXPECT_EQ(joined_halves(0xD83D, 0xDE00), U'\U0001F600');
    EXPECT_EQ(joined_halves(0xDBFF, 0xDFFF), U'\U0010FFFF');
}

TEST(Surrogates, AHalfThatStandsForAByteGivesItBack)
{
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        const char16_t unit = unit_for_byte(static_cast<char>(byte));
        EXPECT_TRUE(stands_for_byte(unit)) << byte;
        EXPECT_EQ(byte_of_unit(unit), static_cast<char>(byte)) << byte;
    }
    EXPECT_FALSE(stands_for_byte(0xDC7F));
    EXPECT_FALSE(stands_for_byte(0xDD00));
}

} // namespace
} // namespace multirename
