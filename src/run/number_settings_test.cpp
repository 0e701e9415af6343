#include "run/number_settings.h"

#include <gtest/gtest.h>

#include "platform/testing/fake_user_values.h"

namespace multirename {
namespace {

class NumberSettingsTest : public testing::Test {
protected:
    std::optional<std::uint32_t> stored(std::u16string_view value)
    {
        return values.read(u"SOFTWARE\\Velloria Labs\\Tallyhand", value);
    }

    FakeUserValues values;
    ChangeNumberDlgSettings remembered{values, u"Tallyhand"};
    NamePart part = NamePart::make_number();
};

} // namespace

TEST_F(NumberSettingsTest, OpenOnAFreshPartWithNoChange)
{
    const NumberSettings settings(part, remembered);
    EXPECT_EQ(settings.number(), NumberChoice::NoChange);
    EXPECT_EQ(settings.zeros(), LeadingZerosMode::Unchanged);
    EXPECT_EQ(settings.first_start_text(), u"1");
    EXPECT_EQ(settings.first_digits_text(), u"4");
    EXPECT_FALSE(settings.reset_enabled());
    EXPECT_TRUE(settings.clear_text_enabled());
    EXPECT_TRUE(settings.zeros_enabled());
    EXPECT_FALSE(settings.start_enabled());
    EXPECT_FALSE(settings.digits_enabled());
}

TEST_F(NumberSettingsTest, ShowTheStartOfARenumberedPart)
{
    part.renumber = true;
    part.startNumber = 30;
    part.baseNumber = 12;
    EXPECT_EQ(NumberSettings(part, remembered).first_start_text(), u"30");
    part.startNumber = 0;
    EXPECT_EQ(NumberSettings(part, remembered).first_start_text(), u"0");
    part.startNumber = -1;
    EXPECT_EQ(NumberSettings(part, remembered).first_start_text(), u"12");
    part.renumber = false;
    EXPECT_EQ(NumberSettings(part, remembered).first_start_text(), u"1");
}

TEST_F(NumberSettingsTest, ShowThePartsDigitsOnlyWhenItMakesDigits)
{
    part.length = 7;
    EXPECT_EQ(NumberSettings(part, remembered).first_digits_text(), u"4");
    part.leadingZeros = LeadingZerosMode::FixedDigits;
    EXPECT_EQ(NumberSettings(part, remembered).first_digits_text(), u"7");
}

TEST_F(NumberSettingsTest, AClearedPartIsShownAsClearedThoughItIsRenumberedToo)
{
    part.clearText = true;
    part.renumber = true;
    EXPECT_EQ(NumberSettings(part, remembered).number(), NumberChoice::ClearText);
}

TEST_F(NumberSettingsTest, AnUnknownModeIsShownAsUnchanged)
{
    part.leadingZeros = LeadingZerosMode{7};
    EXPECT_EQ(NumberSettings(part, remembered).zeros(), LeadingZerosMode::Unchanged);
}

TEST_F(NumberSettingsTest, EitherOfTheTwoGroupsCanBeReset)
{
    EXPECT_FALSE(NumberSettings(part, remembered).reset_enabled());
    part.leadingZeros = LeadingZerosMode::RemoveZeros;
    const NumberSettings without_zeros(part, remembered);
    EXPECT_EQ(without_zeros.zeros(), LeadingZerosMode::RemoveZeros);
    EXPECT_EQ(without_zeros.number(), NumberChoice::NoChange);
    EXPECT_TRUE(without_zeros.reset_enabled());
    part.leadingZeros = LeadingZerosMode::Unchanged;
    part.renumber = true;
    EXPECT_TRUE(NumberSettings(part, remembered).reset_enabled());
}

TEST_F(NumberSettingsTest, ClearTextClosesTheZerosButNotTheirDigits)
{
    NumberSettings settings(part, remembered);
    settings.choose(LeadingZerosMode::FixedDigits);
    settings.clear_text();
    EXPECT_FALSE(settings.zeros_enabled());
    EXPECT_FALSE(settings.clear_text_enabled());
    EXPECT_TRUE(settings.digits_enabled());
    EXPECT_TRUE(settings.reset_enabled());
    EXPECT_EQ(settings.zeros(), LeadingZerosMode::FixedDigits);
}

TEST_F(NumberSettingsTest, ResetPutsBothGroupsToNoChange)
{
    NumberSettings settings(part, remembered);
    settings.choose(LeadingZerosMode::RemoveZeros);
    settings.choose(NumberChoice::Renumber);
    EXPECT_TRUE(settings.start_enabled());
    settings.reset();
    EXPECT_EQ(settings.number(), NumberChoice::NoChange);
    EXPECT_EQ(settings.zeros(), LeadingZerosMode::Unchanged);
    EXPECT_FALSE(settings.reset_enabled());
}

TEST_F(NumberSettingsTest, RenumberingFromAnEmptyTextStartsAtZero)
{
    NumberSettings settings(part, remembered);
    settings.choose(NumberChoice::Renumber);
    settings.store(u"", u"4", part, remembered);
    EXPECT_TRUE(part.renumber);
    EXPECT_EQ(part.startNumber, 0);
    EXPECT_EQ(remembered.start, 0);
    EXPECT_EQ(stored(u"NumberDlg Start"), 0U);
}

TEST_F(NumberSettingsTest, WithoutRenumberingThePartKeepsItsStartYetTheTypedOneIsRemembered)
{
    part.startNumber = 5;
    const NumberSettings settings(part, remembered);
    settings.store(u"9", u"6", part, remembered);
    EXPECT_EQ(part.startNumber, 5);
    EXPECT_EQ(part.length, 6);
    EXPECT_EQ(remembered.start, 9);
    EXPECT_EQ(stored(u"NumberDlg Start"), 9U);
    EXPECT_EQ(stored(u"NumberDlg NDigits"), 6U);
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), std::nullopt);
}

TEST_F(NumberSettingsTest, WhatIsAsAtFirstIsNotStored)
{
    const NumberSettings settings(part, remembered);
    settings.store(u"1", u"4", part, remembered);
    EXPECT_EQ(stored(u"NumberDlg Start"), std::nullopt);
    EXPECT_EQ(stored(u"NumberDlg NDigits"), std::nullopt);
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), std::nullopt);
}

TEST_F(NumberSettingsTest, AStartBeyond32BitsIsRememberedButNotStored)
{
    NumberSettings settings(part, remembered);
    settings.choose(NumberChoice::Renumber);
    settings.store(u"3000000000", u"4", part, remembered);
    EXPECT_EQ(part.startNumber, 3000000000);
    EXPECT_EQ(remembered.start, 3000000000);
    EXPECT_EQ(stored(u"NumberDlg Start"), std::nullopt);
}

TEST_F(NumberSettingsTest, TheModeIsStoredWithThePartAndRemembered)
{
    NumberSettings settings(part, remembered);
    settings.choose(LeadingZerosMode::RemoveZeros);
    settings.store(u"1", u"4", part, remembered);
    EXPECT_EQ(part.leadingZeros, LeadingZerosMode::RemoveZeros);
    EXPECT_EQ(remembered.mode, LeadingZerosMode::RemoveZeros);
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), 2U);
}

TEST_F(NumberSettingsTest, ClearingThePartEndsItsRenumbering)
{
    part.renumber = true;
    NumberSettings settings(part, remembered);
    settings.clear_text();
    settings.store(u"1", u"4", part, remembered);
    EXPECT_TRUE(part.clearText);
    EXPECT_FALSE(part.renumber);
}

} // namespace multirename
