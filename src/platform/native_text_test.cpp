#include "platform/native_text.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(NativeText, GoesBothWays)
{
    EXPECT_EQ(name_from_native("caf\xC3\xA9 \xF0\x9F\x93\xB7"), u"caf\u00E9 \U0001F4F7");
    EXPECT_EQ(native_from_name(u"caf\u00E9 \U0001F4F7"), "caf\xC3\xA9 \xF0\x9F\x93\xB7");
    EXPECT_EQ(typed_from_native("a<b:c> \xC3\xA9"), u"a<b:c> \u00E9");
    EXPECT_EQ(native_from_path(path_from_native("caf\xC3\xA9")), "caf\xC3\xA9");
}

TEST(NativeText, NamesThatLeadOutOfTheirFolderAreNone)
{
    for (const char* name : {"a", "...", ".hidden", "a..b", "\xC3\xA9", " ", "-"})
        EXPECT_TRUE(is_native_name(name)) << name;
    for (const char* name : {"", ".", "..", "/", "../a", "a/b", "a/"})
        EXPECT_FALSE(is_native_name(name)) << name;
    EXPECT_FALSE(is_native_name(std::string_view("a\0b", 3)));
}

TEST(NativeText, OrdinaryNamesCanBeWritten)
{
    EXPECT_TRUE(can_be_written(u"new.txt", u"old.txt", u"new"));
    EXPECT_TRUE(can_be_written(u"caf\u00E9 \u5199 \U0001F4F7", u"old", u""));
    EXPECT_TRUE(can_be_written(u"", u"", u""));
}

} // namespace
} // namespace multirename
