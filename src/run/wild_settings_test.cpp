#include "run/wild_settings.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

NamePart wild_part(bool truncate, std::int32_t length, CaseStyle style)
{
    NamePart part = NamePart::make_wild();
    part.truncate = truncate;
    part.length = length;
    part.caseStyle = style;
    return part;
}

} // namespace

TEST(WildSettings, OpenOnAFreshPartWithNothingToReset)
{
    const WildSettings settings(NamePart::make_wild());
    EXPECT_EQ(settings.style(), CaseStyle::Unchanged);
    EXPECT_FALSE(settings.truncates());
    EXPECT_FALSE(settings.length_enabled());
    EXPECT_EQ(settings.length_text(), u"8");
    EXPECT_FALSE(settings.reset_enabled());
    EXPECT_TRUE(settings.clear_text_enabled());
}

TEST(WildSettings, ShowTheLengthWithoutTruncationToo)
{
    EXPECT_EQ(WildSettings(wild_part(false, 17, CaseStyle::Upper)).length_text(), u"17");
    EXPECT_TRUE(WildSettings(wild_part(true, 17, CaseStyle::Upper)).length_enabled());
}

TEST(WildSettings, ClearTextTruncatesToNothingAndLeavesTheLengthClosed)
{
    NamePart part = NamePart::make_wild();
    WildSettings settings(part);
    settings.clear_text();
    EXPECT_TRUE(settings.truncates());
    EXPECT_EQ(settings.length_text(), u"0");
    EXPECT_FALSE(settings.length_enabled());
    EXPECT_FALSE(settings.clear_text_enabled());
    EXPECT_TRUE(settings.reset_enabled());
    settings.store(part);
    EXPECT_TRUE(part.truncate);
    EXPECT_EQ(part.length, 0);
}

TEST(WildSettings, ResetLeavesTheLengthOpenAndItsTextAlone)
{
    WildSettings settings(wild_part(true, 5, CaseStyle::Title));
    settings.reset();
    EXPECT_EQ(settings.style(), CaseStyle::Unchanged);
    EXPECT_FALSE(settings.truncates());
    EXPECT_TRUE(settings.length_enabled());
    EXPECT_EQ(settings.length_text(), u"5");
    EXPECT_FALSE(settings.reset_enabled());
}

TEST(WildSettings, AClickOnTheBoxOpensAndClosesTheLength)
{
    WildSettings settings(NamePart::make_wild());
    settings.click_truncate(true);
    EXPECT_TRUE(settings.length_enabled());
    EXPECT_TRUE(settings.reset_enabled());
    settings.click_truncate(false);
    EXPECT_FALSE(settings.length_enabled());
}

TEST(WildSettings, AnEmptyLengthCountsAsZero)
{
    WildSettings settings(NamePart::make_wild());
    settings.click_truncate(true);
    settings.set_length_text(u"");
    EXPECT_FALSE(settings.clear_text_enabled());
    settings.set_length_text(u"3");
    EXPECT_TRUE(settings.clear_text_enabled());
}

TEST(WildSettings, AnyOtherStyleCanBeReset)
{
    WildSettings settings(NamePart::make_wild());
    settings.select_style(CaseStyle::Kebab);
    EXPECT_TRUE(settings.reset_enabled());
    settings.select_style(std::nullopt);
    EXPECT_FALSE(settings.reset_enabled());
}

TEST(WildSettings, AnUnknownStyleSelectsNothingAndIsStoredAsUnchanged)
{
    NamePart part = wild_part(false, 8, static_cast<CaseStyle>(case_style_labels.size()));
    const WildSettings settings(part);
    EXPECT_EQ(settings.style(), std::nullopt);
    settings.store(part);
    EXPECT_EQ(part.caseStyle, CaseStyle::Unchanged);
}

TEST(WildSettings, StoreTheLengthWithoutTruncationToo)
{
    NamePart part = NamePart::make_wild();
    WildSettings settings(part);
    settings.select_style(CaseStyle::Snake);
    settings.set_length_text(u"12 or so");
    settings.store(part);
    EXPECT_EQ(part.caseStyle, CaseStyle::Snake);
    EXPECT_FALSE(part.truncate);
    EXPECT_EQ(part.length, 12);
}

TEST(WildSettings, ALengthBeyond32BitsIsStoredAsTheLargest)
{
    NamePart part = NamePart::make_wild();
    WildSettings settings(part);
    settings.set_length_text(u"99999999999999999999");
    settings.store(part);
    EXPECT_EQ(part.length, 2147483647);
}

} // namespace multirename
