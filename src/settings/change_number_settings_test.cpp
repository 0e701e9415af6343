#include "settings/change_number_settings.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "platform/testing/fake_user_values.h"
#include "platform/testing/user_values_sandbox.h"

namespace multirename {
namespace {

constexpr std::int64_t five_below_zero_as_stored = 4294967291;

/// Runs each test over a store in memory and over that of the system.
class NumberSettings : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        if (GetParam() == std::string_view("System"))
            sandbox_ = std::make_unique<UserValuesSandbox>();
    }

    [[nodiscard]] UserValues& store() { return sandbox_ ? system_user_values() : fake_; }
    [[nodiscard]] std::u16string product() const { return sandbox_ ? sandbox_->product_name() : u"Tallyhand"; }
    [[nodiscard]] std::u16string key() const { return u"SOFTWARE\\Velloria Labs\\" + product(); }
    [[nodiscard]] ChangeNumberDlgSettings load() { return {store(), product()}; }
    [[nodiscard]] std::optional<std::uint32_t> stored(std::u16string_view value) { return store().read(key(), value); }

private:
    FakeUserValues fake_;
    std::unique_ptr<UserValuesSandbox> sandbox_;
};
INSTANTIATE_TEST_SUITE_P(Over, NumberSettings, testing::Values("Memory", "System"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(NumberSettings, AFirstRunHasTheDefaultsAndStoresNothing)
{
    const ChangeNumberDlgSettings settings = load();
    EXPECT_EQ(settings.mode, LeadingZerosMode::Unchanged);
    EXPECT_EQ(settings.start, 1);
    EXPECT_EQ(settings.digits, 4);
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), std::nullopt);
    EXPECT_EQ(stored(u"NumberDlg Start"), std::nullopt);
    EXPECT_EQ(stored(u"NumberDlg NDigits"), std::nullopt);
}

TEST_P(NumberSettings, EachModeComesBack)
{
    for (const LeadingZerosMode mode :
         {LeadingZerosMode::FixedDigits, LeadingZerosMode::RemoveZeros, LeadingZerosMode::Unchanged}) {
        ChangeNumberDlgSettings settings = load();
        settings.remember_mode(mode);
        EXPECT_EQ(settings.mode, mode);
        EXPECT_EQ(stored(u"NumberDlg LeadZeros"), static_cast<std::uint32_t>(mode));
        EXPECT_EQ(load().mode, mode);
    }
}

TEST_P(NumberSettings, AStoredNumberThatIsNoModeIsUnchanged)
{
    store().write(key(), u"NumberDlg LeadZeros", 3);
    EXPECT_EQ(load().mode, LeadingZerosMode::Unchanged);
    store().write(key(), u"NumberDlg LeadZeros", 0xFFFFFFFF);
    EXPECT_EQ(load().mode, LeadingZerosMode::Unchanged);
}

TEST_P(NumberSettings, AModeThatIsNoneIsStoredAsUnchanged)
{
    load().remember_mode(LeadingZerosMode::RemoveZeros);
    load().remember_mode(static_cast<LeadingZerosMode>(9));
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), 0U);
}

TEST_P(NumberSettings, AStartComesBack)
{
    ChangeNumberDlgSettings settings = load();
    settings.remember_start(250);
    EXPECT_EQ(settings.start, 250);
    EXPECT_EQ(stored(u"NumberDlg Start"), 250U);
    EXPECT_EQ(load().start, 250);
}

TEST_P(NumberSettings, ANegativeStartComesBackAsTheUnsignedNumberWithTheSameBits)
{
    ChangeNumberDlgSettings settings = load();
    settings.remember_start(-5);
    EXPECT_EQ(settings.start, -5);
    EXPECT_EQ(load().start, five_below_zero_as_stored);
    settings.remember_start(-1);
    EXPECT_EQ(stored(u"NumberDlg Start"), 4294967295U);
    EXPECT_EQ(load().start, 4294967295);
}

TEST_P(NumberSettings, AStartBeyond32BitsIsRememberedButNotStored)
{
    load().remember_start(250);
    for (const std::int64_t start : {std::int64_t{3000000000}, std::int64_t{2147483648}, std::int64_t{-2147483649}}) {
        ChangeNumberDlgSettings settings = load();
        settings.remember_start(start);
        EXPECT_EQ(settings.start, start);
        EXPECT_EQ(stored(u"NumberDlg Start"), 250U);
        EXPECT_EQ(load().start, 250);
    }
}

TEST_P(NumberSettings, TheOutermostStartsOf32BitsAreStored)
{
    load().remember_start(2147483647);
    EXPECT_EQ(stored(u"NumberDlg Start"), 2147483647U);
    load().remember_start(-2147483648LL);
    EXPECT_EQ(stored(u"NumberDlg Start"), 2147483648U);
    EXPECT_EQ(load().start, 2147483648);
}

TEST_P(NumberSettings, TheDigitsComeBack)
{
    ChangeNumberDlgSettings settings = load();
    settings.remember_digits(7);
    EXPECT_EQ(settings.digits, 7);
    EXPECT_EQ(stored(u"NumberDlg NDigits"), 7U);
    EXPECT_EQ(load().digits, 7);
    settings.remember_digits(0);
    EXPECT_EQ(load().digits, 0);
}

TEST_P(NumberSettings, EachValueIsStoredByItself)
{
    load().remember_digits(7);
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), std::nullopt);
    EXPECT_EQ(stored(u"NumberDlg Start"), std::nullopt);
    load().remember_start(3);
    EXPECT_EQ(stored(u"NumberDlg LeadZeros"), std::nullopt);
    EXPECT_EQ(stored(u"NumberDlg NDigits"), 7U);
}

TEST(NumberSettingsFailures, NeedAProductName)
{
    FakeUserValues store;
    EXPECT_THROW(ChangeNumberDlgSettings(store, u""), std::invalid_argument);
}

TEST(NumberSettingsFailures, AStoreThatRefusesIsPassedOver)
{
    FakeUserValues store;
    store.refuses = true;
    ChangeNumberDlgSettings settings(store, u"Tallyhand");
    EXPECT_EQ(settings.start, 1);
    EXPECT_EQ(settings.digits, 4);
    settings.remember_start(5);
    settings.remember_digits(6);
    settings.remember_mode(LeadingZerosMode::FixedDigits);
    EXPECT_EQ(settings.start, 5);
    EXPECT_EQ(settings.digits, 6);
    EXPECT_EQ(settings.mode, LeadingZerosMode::FixedDigits);
    EXPECT_EQ(store.writes, 3);
}

} // namespace
} // namespace multirename
