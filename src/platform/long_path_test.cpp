#include "platform/long_path.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(LongPathForm, PutsTheMarkInFrontOfAnOrdinaryPath)
{
    EXPECT_EQ(long_path_form(u"C:\\A\\x.txt"), u"\\\\?\\C:\\A\\x.txt");
    EXPECT_EQ(long_path_form(u"\\A\\"), u"\\\\?\\\\A\\");
}

TEST(LongPathForm, ReplacesTheTwoBackslashesOfANetworkPath)
{
    EXPECT_EQ(long_path_form(u"\\\\server\\share\\f"), u"\\\\?\\UNC\\server\\share\\f");
}

TEST(LongPathForm, LeavesAPathInThatFormAlone)
{
    EXPECT_EQ(long_path_form(u"\\\\?\\C:\\A\\"), u"\\\\?\\C:\\A\\");
    EXPECT_EQ(long_path_form(u"\\\\?\\UNC\\server\\share\\"), u"\\\\?\\UNC\\server\\share\\");
}

TEST(ListingSearchText, AsksForEveryEntryInTheLongForm)
{
    EXPECT_EQ(listing_search_text(u"C:\\A\\"), u"\\\\?\\C:\\A\\*");
    EXPECT_EQ(listing_search_text(u"\\\\server\\share\\"), u"\\\\?\\UNC\\server\\share\\*");
    EXPECT_EQ(listing_search_text(u"\\\\?\\C:\\A\\"), u"\\\\?\\C:\\A\\*");
}

} // namespace
} // namespace multirename
