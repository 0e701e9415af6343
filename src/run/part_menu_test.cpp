#include "run/part_menu.h"

#include <gtest/gtest.h>

#include "platform/testing/fake_user_values.h"

namespace multirename {
namespace {

using Texts = std::vector<std::u16string>;
using Choices = std::vector<bool>;

class PartMenuTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<PartMenuItem> menu(const NamePart& part) const
    {
        return part_menu(part, &remembered, &built_in_text);
    }
    [[nodiscard]] Texts texts(const NamePart& part) const
    {
        Texts all;
        for (const PartMenuItem& item : menu(part))
            all.push_back(item.text);
        return all;
    }
    [[nodiscard]] Choices enabled(const NamePart& part) const
    {
        Choices all;
        for (const PartMenuItem& item : menu(part))
            all.push_back(item.is_enabled);
        return all;
    }

    void remember(std::int64_t start, LeadingZerosMode mode, std::int32_t digits)
    {
        remembered.start = start;
        remembered.mode = mode;
        remembered.digits = digits;
    }

    FakeUserValues values;
    ChangeNumberDlgSettings remembered{values, u"Tallyhand"};
    NamePart wild = NamePart::make_wild();
    NamePart number = NamePart::make_number();
};

} // namespace

TEST_F(PartMenuTest, IsEmptyForText)
{
    NamePart text = NamePart::make_text(u"a");
    EXPECT_TRUE(menu(text).empty());
    choose(PartCommand::ClearText, text, &remembered);
    EXPECT_FALSE(text.clearText);
    EXPECT_FALSE(text.truncate);
}

TEST_F(PartMenuTest, OffersTwoChoicesForAWildPart) { EXPECT_EQ(texts(wild), (Texts{u"Reset", u"Clear Text"})); }

TEST_F(PartMenuTest, HasNothingToResetInAFreshWildPart) { EXPECT_EQ(enabled(wild), (Choices{false, true})); }

TEST_F(PartMenuTest, ResetsAWildPartThatHasAStyleOrIsTruncated)
{
    wild.caseStyle = CaseStyle::Lower;
    EXPECT_EQ(enabled(wild), (Choices{true, true}));
    wild.caseStyle = CaseStyle::Unchanged;
    wild.truncate = true;
    wild.length = 3;
    EXPECT_EQ(enabled(wild), (Choices{true, true}));
}

TEST_F(PartMenuTest, ClearsAWildPartByTruncatingItToNothing)
{
    wild.caseStyle = CaseStyle::Title;
    choose(PartCommand::ClearText, wild, &remembered);
    EXPECT_TRUE(wild.truncate);
    EXPECT_EQ(wild.length, 0);
    EXPECT_EQ(wild.caseStyle, CaseStyle::Title);
    EXPECT_EQ(enabled(wild), (Choices{true, false}));
}

TEST_F(PartMenuTest, LeavesAWildPartAsItIsWhereTheChoiceIsForNumbers)
{
    wild.caseStyle = CaseStyle::Title;
    choose(PartCommand::Renumber, wild, &remembered);
    EXPECT_FALSE(wild.truncate);
    EXPECT_FALSE(wild.renumber);
    EXPECT_EQ(wild.caseStyle, CaseStyle::Title);
}

TEST_F(PartMenuTest, KeepsTheLengthOfAWildPartThatIsReset)
{
    choose(PartCommand::ClearText, wild, &remembered);
    wild.caseStyle = CaseStyle::Title;
    choose(PartCommand::Reset, wild, &remembered);
    EXPECT_FALSE(wild.truncate);
    EXPECT_EQ(wild.caseStyle, CaseStyle::Unchanged);
    EXPECT_EQ(wild.length, 0);
    EXPECT_EQ(enabled(wild), (Choices{false, true}));
}

TEST_F(PartMenuTest, OffersThreeChoicesForANumberPart)
{
    EXPECT_EQ(texts(number), (Texts{u"Reset", u"Clear Text", u"Renumber from 1"}));
    EXPECT_TRUE(menu(number).back().starts_group);
    EXPECT_EQ(enabled(number), (Choices{false, true, true}));
}

TEST_F(PartMenuTest, NamesTheRememberedStartAndDigits)
{
    remember(7, LeadingZerosMode::FixedDigits, 3);
    EXPECT_EQ(texts(number).back(), u"Renumber from 7 (make 3 digits)");
    remember(5'000'000'000, LeadingZerosMode::RemoveZeros, 3);
    EXPECT_EQ(texts(number).back(), u"Renumber from 5000000000");
}

TEST_F(PartMenuTest, ResetsANumberPartThatHasAnySetting)
{
    number.renumber = true;
    EXPECT_TRUE(enabled(number)[0]);
    number.renumber = false;
    number.leadingZeros = LeadingZerosMode::RemoveZeros;
    EXPECT_TRUE(enabled(number)[0]);
    choose(PartCommand::Reset, number, &remembered);
    EXPECT_EQ(number.leadingZeros, LeadingZerosMode::Unchanged);
    EXPECT_EQ(enabled(number), (Choices{false, true, true}));
}

TEST_F(PartMenuTest, BringsAClearedNumberBack)
{
    choose(PartCommand::ClearText, number, &remembered);
    EXPECT_TRUE(number.clearText);
    EXPECT_EQ(enabled(number), (Choices{true, false, true}));
    choose(PartCommand::Reset, number, &remembered);
    EXPECT_FALSE(number.clearText);
}

TEST_F(PartMenuTest, RenumbersAsRemembered)
{
    remember(7, LeadingZerosMode::FixedDigits, 3);
    choose(PartCommand::ClearText, number, &remembered);
    choose(PartCommand::Renumber, number, &remembered);
    EXPECT_FALSE(number.clearText);
    EXPECT_TRUE(number.renumber);
    EXPECT_EQ(number.startNumber, 7);
    EXPECT_EQ(number.leadingZeros, LeadingZerosMode::FixedDigits);
    EXPECT_EQ(number.length, 3);
    EXPECT_FALSE(enabled(number).back()) << "it would change nothing now";
}

TEST_F(PartMenuTest, LeavesTheDigitsAloneWhereNoneAreRemembered)
{
    remember(7, LeadingZerosMode::RemoveZeros, 3);
    number.leadingZeros = LeadingZerosMode::FixedDigits;
    number.length = 6;
    choose(PartCommand::Renumber, number, &remembered);
    EXPECT_EQ(number.leadingZeros, LeadingZerosMode::Unchanged);
    EXPECT_EQ(number.length, 6);
}

TEST_F(PartMenuTest, OffersRenumberingAgainAsSoonAsAnythingDiffers)
{
    remember(7, LeadingZerosMode::FixedDigits, 3);
    choose(PartCommand::Renumber, number, &remembered);
    remember(8, LeadingZerosMode::FixedDigits, 3);
    EXPECT_TRUE(enabled(number).back());
    remember(7, LeadingZerosMode::FixedDigits, 4);
    EXPECT_TRUE(enabled(number).back());
    remember(7, LeadingZerosMode::RemoveZeros, 3);
    EXPECT_TRUE(enabled(number).back());
}

TEST_F(PartMenuTest, ComparesTheDigitsThoughNeitherSideMakesAny)
{
    remember(7, LeadingZerosMode::Unchanged, 3);
    number.renumber = true;
    number.startNumber = 7;
    number.length = 4;
    EXPECT_TRUE(enabled(number).back());
    number.length = 3;
    EXPECT_FALSE(enabled(number).back());
    number.leadingZeros = LeadingZerosMode::RemoveZeros;
    EXPECT_FALSE(enabled(number).back()) << "only fixed digits count as a mode of their own";
}

TEST_F(PartMenuTest, TakesTheSmallestOldNumberWhereTheStartIsNotSet)
{
    remember(12, LeadingZerosMode::Unchanged, 4);
    number.renumber = true;
    number.startNumber = -1;
    number.baseNumber = 12;
    number.length = 4;
    EXPECT_FALSE(enabled(number).back());
    number.baseNumber = 13;
    EXPECT_TRUE(enabled(number).back());
    remember(0, LeadingZerosMode::Unchanged, 4);
    number.startNumber = 0;
    EXPECT_FALSE(enabled(number).back());
}

TEST_F(PartMenuTest, RenumbersFromOneWhenNothingIsRemembered)
{
    const std::vector<PartMenuItem> items = part_menu(number, nullptr, &built_in_text);
    EXPECT_EQ(items.back().text, u"Renumber from 1");
    EXPECT_TRUE(items.back().is_enabled);
    choose(PartCommand::Renumber, number, nullptr);
    EXPECT_TRUE(number.renumber);
    EXPECT_EQ(number.startNumber, 1);
    EXPECT_EQ(number.leadingZeros, LeadingZerosMode::Unchanged);
    EXPECT_FALSE(part_menu(number, nullptr, &built_in_text).back().is_enabled);
}

} // namespace multirename
