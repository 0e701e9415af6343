#include "run/dialog_size.h"

#include <gtest/gtest.h>

#include "platform/testing/fake_user_values.h"

namespace multirename {
namespace {

class DialogSizeTest : public testing::Test {
protected:
    std::optional<std::uint32_t> stored(std::u16string_view value)
    {
        return values.read(u"SOFTWARE\\Velloria Labs\\Tallyhand", value);
    }

    FakeUserValues values;
    Registry settings{values, u"Tallyhand"};
};

} // namespace

TEST_F(DialogSizeTest, IsUnknownAtFirst) { EXPECT_EQ(remembered_size(settings, 96), std::nullopt); }

TEST_F(DialogSizeTest, ComesBackAsItWas)
{
    remember_size(settings, {800, 600}, 96);
    EXPECT_EQ(stored(u"MultiRenameDlgWidth"), 800U);
    EXPECT_EQ(stored(u"MultiRenameDlgHeight"), 600U);
    EXPECT_EQ(remembered_size(settings, 96), (DialogSize{800, 600}));
}

TEST_F(DialogSizeTest, OpensLargerOnAScreenOfHigherResolution)
{
    remember_size(settings, {800, 600}, 96);
    EXPECT_EQ(remembered_size(settings, 144), (DialogSize{1200, 900}));
}

TEST_F(DialogSizeTest, IsStoredAsIfAt96DotsPerInch)
{
    remember_size(settings, {1200, 901}, 144);
    EXPECT_EQ(stored(u"MultiRenameDlgWidth"), 800U);
    EXPECT_EQ(stored(u"MultiRenameDlgHeight"), 601U) << "halves are rounded up";
}

TEST_F(DialogSizeTest, NeedsBothLengths)
{
    settings.write(u"MultiRenameDlgWidth", 800);
    EXPECT_EQ(remembered_size(settings, 96), std::nullopt);
    settings.write(u"MultiRenameDlgHeight", 0);
    EXPECT_EQ(remembered_size(settings, 96), std::nullopt);
    settings.write(u"MultiRenameDlgHeight", 600);
    EXPECT_EQ(remembered_size(settings, 96), (DialogSize{800, 600}));
    settings.write(u"MultiRenameDlgWidth", 0);
    EXPECT_EQ(remembered_size(settings, 96), std::nullopt);
}

TEST_F(DialogSizeTest, IsNotTakenFromLengthsThatNoScreenHas)
{
    settings.write(u"MultiRenameDlgWidth", 0xFFFFFFFF);
    settings.write(u"MultiRenameDlgHeight", 600);
    EXPECT_EQ(remembered_size(settings, 96), std::nullopt);
    settings.write(u"MultiRenameDlgWidth", 100'001);
    EXPECT_EQ(remembered_size(settings, 96), std::nullopt);
    settings.write(u"MultiRenameDlgWidth", 800);
    settings.write(u"MultiRenameDlgHeight", 100'001);
    EXPECT_EQ(remembered_size(settings, 96), std::nullopt);
    settings.write(u"MultiRenameDlgWidth", 100'000);
    settings.write(u"MultiRenameDlgHeight", 100'000);
    EXPECT_NE(remembered_size(settings, 96), std::nullopt);
}

} // namespace multirename
