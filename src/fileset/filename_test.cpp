#include "fileset/filename.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(Filename, BeginsUnlistedAndOutOfScope)
{
    const Filename entry;
    EXPECT_FALSE(entry.is_folder);
    EXPECT_FALSE(entry.read_only);
    EXPECT_FALSE(entry.in_scope);
    EXPECT_TRUE(entry.not_listed);
    EXPECT_FALSE(entry.manual_name);
    EXPECT_EQ(entry.status, Status::Pending);
    EXPECT_EQ(entry.sequence, 0U);
    EXPECT_EQ(entry.folder_sequence, 0U);
    EXPECT_EQ(entry.other_time, 0U);
    EXPECT_EQ(entry.created, 0U);
    EXPECT_EQ(entry.new_name, u"");
    EXPECT_EQ(entry.folder, nullptr);
}

TEST(Status, HasTheNumbersThatScriptsSee)
{
    EXPECT_EQ(static_cast<int>(Status::Pending), 0);
    EXPECT_EQ(static_cast<int>(Status::Ready), 2);
    EXPECT_EQ(static_cast<int>(Status::Unchanged), 3);
    EXPECT_EQ(static_cast<int>(Status::SameName), 4);
    EXPECT_EQ(static_cast<int>(Status::ExistingName), 5);
    EXPECT_EQ(static_cast<int>(Status::Empty), 6);
    EXPECT_EQ(static_cast<int>(Status::SpaceOrPeriod), 7);
    EXPECT_EQ(static_cast<int>(Status::TooLong), 8);
    EXPECT_EQ(static_cast<int>(Status::Forbidden), 9);
}

TEST(Filename, HasItsNameInUpperCaseForAKey)
{
    Filename entry;
    entry.name = u"Photo.jpg";
    EXPECT_EQ(entry.key(), u"PHOTO.JPG");
}

TEST(FilenameSorter, ComparesWithoutRegardToCase)
{
    Filename a;
    Filename b;
    a.name = u"a";
    b.name = u"B";
    EXPECT_TRUE(FilenameSorter()(a, b));
    EXPECT_FALSE(FilenameSorter()(b, a));
    b.name = u"A";
    EXPECT_FALSE(FilenameSorter()(a, b));
    EXPECT_FALSE(FilenameSorter()(b, a));
}

TEST(NameSplit, IsAtTheLastPeriod)
{
    EXPECT_EQ(base_name(u"photo.2020.jpg"), u"photo.2020");
    EXPECT_EQ(extension_of(u"photo.2020.jpg"), u".jpg");
    EXPECT_EQ(base_name(u"x."), u"x");
    EXPECT_EQ(extension_of(u"x."), u".");
}

TEST(NameSplit, ANameWithoutAPeriodHasNoExtension)
{
    EXPECT_EQ(base_name(u"README"), u"README");
    EXPECT_EQ(extension_of(u"README"), u"");
}

TEST(NameSplit, AFirstPeriodCountsToo)
{
    EXPECT_EQ(base_name(u".bashrc"), u"");
    EXPECT_EQ(extension_of(u".bashrc"), u".bashrc");
}

} // namespace
} // namespace multirename
