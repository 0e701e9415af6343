#include "settings/registry.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "platform/testing/fake_user_values.h"
#include "platform/testing/user_values_sandbox.h"

namespace multirename {
namespace {

TEST(Registry, NeedsAProductName)
{
    FakeUserValues store;
    try {
        const Registry registry(store, u"");
        FAIL() << "an empty product name was taken";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "Registry::Registry(): Product name cannot be empty");
    }
}

struct KeyRow {
    const char* sentence;
    std::u16string_view value_name;
    std::u16string_view key;
    std::u16string_view value;
};
class RegistryKeyRow : public testing::TestWithParam<KeyRow> { };
TEST_P(RegistryKeyRow, Written)
{
    FakeUserValues store;
    EXPECT_TRUE(Registry(store, u"Tallyhand").write(GetParam().value_name, 5));
    ASSERT_EQ(store.values.size(), 1U);
    EXPECT_EQ(store.values.begin()->first.first, GetParam().key);
    EXPECT_EQ(store.values.begin()->first.second, GetParam().value);
    EXPECT_EQ(store.values.begin()->second, 5U);
}
TEST_P(RegistryKeyRow, Read)
{
    FakeUserValues store;
    store.values[{std::u16string(GetParam().key), std::u16string(GetParam().value)}] = 6;
    std::uint32_t value = 0;
    EXPECT_TRUE(Registry(store, u"Tallyhand").read(GetParam().value_name, value));
    EXPECT_EQ(value, 6U);
}
INSTANTIATE_TEST_SUITE_P(
    All, RegistryKeyRow,
    testing::Values(KeyRow{"AnOrdinaryValue", u"MultiRenameDlgWidth", u"SOFTWARE\\Velloria Labs\\Tallyhand",
                           u"MultiRenameDlgWidth"},
                    KeyRow{"AValueInASubkey", u"Sub\\Name", u"SOFTWARE\\Velloria Labs\\Tallyhand\\Sub", u"Name"},
                    KeyRow{"OnlyTheFirstBackslashSplits", u"Sub\\Deeper\\Name",
                           u"SOFTWARE\\Velloria Labs\\Tallyhand\\Sub", u"Deeper\\Name"},
                    KeyRow{"AnEmptySubkeyIsNone", u"\\Name", u"SOFTWARE\\Velloria Labs\\Tallyhand", u"Name"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(Registry, AFailedReadLeavesTheDefault)
{
    FakeUserValues store;
    std::uint32_t value = 42;
    EXPECT_FALSE(Registry(store, u"Tallyhand").read(u"Absent", value));
    EXPECT_EQ(value, 42U);
}

TEST(Registry, AStoreThatRefusesGivesFalse)
{
    FakeUserValues store;
    store.refuses = true;
    EXPECT_FALSE(Registry(store, u"Tallyhand").write(u"Value", 1));
}

TEST(Registry, KeepsNothingInMind)
{
    FakeUserValues store;
    Registry registry(store, u"Tallyhand");
    registry.write(u"Value", 1);
    store.values.begin()->second = 2;
    std::uint32_t value = 0;
    EXPECT_TRUE(registry.read(u"Value", value));
    EXPECT_EQ(value, 2U);
}

TEST(Registry, ProductsAreApart)
{
    FakeUserValues store;
    Registry(store, u"One").write(u"Value", 1);
    std::uint32_t value = 0;
    EXPECT_FALSE(Registry(store, u"Two").read(u"Value", value));
}

TEST(RegistryOfTheSystem, GivesBackWhatWasWritten)
{
    const UserValuesSandbox sandbox;
    Registry registry(system_user_values(), sandbox.product_name());
    EXPECT_TRUE(registry.write(u"Value", 0xFFFFFFFB));
    EXPECT_TRUE(registry.write(u"Sub\\Value", 2));
    std::uint32_t value = 0;
    EXPECT_TRUE(registry.read(u"Value", value));
    EXPECT_EQ(value, 0xFFFFFFFBU);
    EXPECT_TRUE(registry.read(u"Sub\\Value", value));
    EXPECT_EQ(value, 2U);
    EXPECT_EQ(system_user_values().read(sandbox.product_key() + u"\\Sub", u"Value"), 2U);
}

TEST(RegistryOfTheSystem, MakesNoKeyBeforeTheFirstWrite)
{
    const UserValuesSandbox sandbox;
    Registry registry(system_user_values(), sandbox.product_name());
    std::uint32_t value = 7;
    EXPECT_FALSE(registry.read(u"Value", value));
    EXPECT_EQ(value, 7U);
    EXPECT_FALSE(sandbox.has_key(sandbox.product_key()));
    EXPECT_TRUE(registry.write(u"Value", 1));
    EXPECT_TRUE(sandbox.has_key(sandbox.product_key()));
}

TEST(RegistryOfTheSystem, AValueOfAnotherTypeIsNotRead)
{
    const UserValuesSandbox sandbox;
    sandbox.store_text(sandbox.product_key(), u"Value");
    std::uint32_t value = 7;
    EXPECT_FALSE(Registry(system_user_values(), sandbox.product_name()).read(u"Value", value));
    EXPECT_EQ(value, 7U);
}

} // namespace
} // namespace multirename
