#include "platform/user_values.h"

#include <gtest/gtest.h>

#include "platform/testing/user_values_sandbox.h"

namespace multirename {
namespace {

TEST(SystemUserValues, GivesBackWhatWasWritten)
{
    const UserValuesSandbox sandbox;
    UserValues& values = system_user_values();
    EXPECT_TRUE(values.write(sandbox.product_key(), u"One", 1));
    EXPECT_TRUE(values.write(sandbox.product_key(), u"All bits", 0xFFFFFFFF));
    EXPECT_EQ(values.read(sandbox.product_key(), u"One"), 1U);
    EXPECT_EQ(values.read(sandbox.product_key(), u"All bits"), 0xFFFFFFFFU);
}

TEST(SystemUserValues, TheLastWriteCounts)
{
    const UserValuesSandbox sandbox;
    UserValues& values = system_user_values();
    EXPECT_TRUE(values.write(sandbox.product_key(), u"Number", 1));
    EXPECT_TRUE(values.write(sandbox.product_key(), u"Number", 0));
    EXPECT_EQ(values.read(sandbox.product_key(), u"Number"), 0U);
}

TEST(SystemUserValues, HasNothingAtFirst)
{
    const UserValuesSandbox sandbox;
    EXPECT_EQ(system_user_values().read(sandbox.product_key(), u"Number"), std::nullopt);
    EXPECT_FALSE(sandbox.has_key(sandbox.product_key()));
}

TEST(SystemUserValues, ReadingMakesNoKeyAndWritingDoes)
{
    const UserValuesSandbox sandbox;
    EXPECT_EQ(system_user_values().read(sandbox.product_key(), u"Number"), std::nullopt);
    EXPECT_FALSE(sandbox.has_key(sandbox.product_key()));
    EXPECT_TRUE(system_user_values().write(sandbox.product_key(), u"Number", 1));
    EXPECT_TRUE(sandbox.has_key(sandbox.product_key()));
}

TEST(SystemUserValues, KeysAndValuesAreApart)
{
    const UserValuesSandbox sandbox;
    UserValues& values = system_user_values();
    EXPECT_TRUE(values.write(sandbox.product_key(), u"Number", 1));
    EXPECT_TRUE(values.write(sandbox.product_key() + u"\\Sub", u"Number", 2));
    EXPECT_EQ(values.read(sandbox.product_key(), u"Number"), 1U);
    EXPECT_EQ(values.read(sandbox.product_key() + u"\\Sub", u"Number"), 2U);
    EXPECT_EQ(values.read(sandbox.product_key(), u"Other"), std::nullopt);
    EXPECT_EQ(values.read(sandbox.product_key() + u"\\Other", u"Number"), std::nullopt);
}

TEST(SystemUserValues, AValueOfAnotherTypeIsNone)
{
    const UserValuesSandbox sandbox;
    sandbox.store_text(sandbox.product_key(), u"Number");
    EXPECT_EQ(system_user_values().read(sandbox.product_key(), u"Number"), std::nullopt);
}

TEST(SystemUserValues, AWriteReplacesAValueOfAnotherType)
{
    const UserValuesSandbox sandbox;
    sandbox.store_text(sandbox.product_key(), u"Number");
    EXPECT_TRUE(system_user_values().write(sandbox.product_key(), u"Number", 5));
    EXPECT_EQ(system_user_values().read(sandbox.product_key(), u"Number"), 5U);
}

} // namespace
} // namespace multirename
