#include "platform/native_text.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(WindowsNativeText, HalvesOfPairsHaveBytesOfTheirOwn)
{
    EXPECT_EQ(native_from_name(u"half\xD83D"), "half\xED\xA0\xBD");
    EXPECT_EQ(name_from_native("half\xED\xA0\xBD"), std::u16string(u"half\xD83D"));
}

TEST(WindowsNativeText, NamesThatLeadOutOfTheirFolderAreNone)
{
    for (const char* name : {"a\\b", "..\\a", "C:a", "a:stream"})
        EXPECT_FALSE(is_native_name(name)) << name;
}

TEST(WindowsNativeText, EveryNameCanBeWritten)
{
    EXPECT_TRUE(can_be_written(u"\xD83D", u"\U0001F480", u""));
    EXPECT_TRUE(can_be_written(u"\xDC80", u"", u""));
}

TEST(WindowsNativeText, NothingIsMovedAside)
{
    EXPECT_EQ(path_from_native("C:\\a b\\"), u"C:\\a b\\");
    EXPECT_EQ(native_from_path(u"C:\\a b\\"), "C:\\a b\\");
    EXPECT_EQ(shown_native_name(u"a\uF03Ab"), u"a\uF03Ab");
}

} // namespace
} // namespace multirename
