#include "fileset/rename_folder.h"

#include <gtest/gtest.h>

#include "platform/testing/fake_disk.h"

namespace multirename {
namespace {

constexpr const char16_t* path = u"C:\\Some Folder\\";

TEST(RenameFolder, KeepsItsPathAsSpelledAndItsKeyInUpperCase)
{
    const RenameFolder folder(u"C:\\Some Folder\\");
    EXPECT_EQ(folder.path, u"C:\\Some Folder\\");
    EXPECT_EQ(folder.key, u"C:\\SOME FOLDER\\");
    EXPECT_EQ(folder.entries, nullptr);
    EXPECT_TRUE(folder.rename_order.empty());
    EXPECT_EQ(folder.next_sequence, 0U);
}

TEST(RenameFolder, FindsNothingBeforeItIsListed) { EXPECT_EQ(RenameFolder(path).find(u"x"), nullptr); }

TEST(RenameFolder, EachEntryHoldsWhatTheListingTells)
{
    FakeDisk disk;
    DirectoryEntry& listed = disk.add(path, u"Photo.JPG");
    listed.is_folder = true;
    listed.read_only = true;
    listed.size = 5ULL << 32 | 7;
    listed.created = 11;
    listed.last_write = 12;
    RenameFolder folder(path);
    folder.load(disk);
    ASSERT_EQ(folder.entries->size(), 1U);
    const Filename& entry = *folder.entries->begin();
    EXPECT_EQ(entry.name, u"Photo.JPG");
    EXPECT_EQ(entry.key(), u"PHOTO.JPG");
    EXPECT_TRUE(entry.is_folder);
    EXPECT_TRUE(entry.read_only);
    EXPECT_EQ(entry.size, 5ULL << 32 | 7);
    EXPECT_EQ(entry.created, 11U);
    EXPECT_EQ(entry.other_time, 12U);
    EXPECT_TRUE(entry.not_listed);
    EXPECT_FALSE(entry.in_scope);
    EXPECT_EQ(entry.status, Status::Pending);
    EXPECT_EQ(entry.new_name, u"");
    EXPECT_EQ(entry.folder, &folder);
}

TEST(RenameFolder, AsksTheDiskForItsPath)
{
    FakeDisk disk;
    RenameFolder folder(path);
    folder.load(disk);
    EXPECT_EQ(disk.listings, std::vector<std::u16string>{path});
}

TEST(RenameFolder, AFolderThatCannotBeReadBecomesEmpty)
{
    FakeDisk disk;
    RenameFolder folder(path);
    folder.load(disk);
    ASSERT_NE(folder.entries, nullptr);
    EXPECT_TRUE(folder.entries->empty());
}

TEST(RenameFolder, FindsANameInAnyCase)
{
    FakeDisk disk;
    disk.with(path, {u"Photo.JPG", u"..x"});
    RenameFolder folder(path);
    folder.load(disk);
    ASSERT_NE(folder.find(u"photo.jpg"), nullptr);
    EXPECT_EQ(folder.find(u"photo.jpg")->name, u"Photo.JPG");
    EXPECT_NE(folder.find(u"..X"), nullptr);
    EXPECT_EQ(folder.find(u"photo"), nullptr);
    EXPECT_EQ(folder.find(u""), nullptr);
}

TEST(RenameFolder, OfNamesThatDifferInCaseOnlyTheFirstListedStays)
{
    FakeDisk disk;
    disk.with(path, {u"a.TXT", u"A.txt"});
    RenameFolder folder(path);
    folder.load(disk);
    ASSERT_EQ(folder.entries->size(), 1U);
    EXPECT_EQ(folder.entries->begin()->name, u"a.TXT");
}

TEST(RenameFolder, ListedAgainItKeepsTheMarksOfListedEntriesAndNothingElse)
{
    FakeDisk disk;
    disk.with(path, {u"a", u"b", u"gone"});
    RenameFolder folder(path);
    folder.load(disk);
    const auto old_entry = folder.find(u"a");
    old_entry->not_listed = false;
    old_entry->in_scope = true;
    old_entry->manual_name = true;
    old_entry->new_name = u"z";
    old_entry->sequence = 3;
    old_entry->status = Status::Ready;
    folder.find(u"gone")->not_listed = false;
    disk.folders[path] = {};
    disk.with(path, {u"A", u"b", u"c"});
    const std::weak_ptr<FilenameSet> old_entries = folder.entries;

    folder.load(disk);

    EXPECT_FALSE(old_entries.expired()) << "somebody may still hold an old record";
    ASSERT_EQ(folder.entries->size(), 3U);
    const auto entry = folder.find(u"a");
    EXPECT_NE(entry, old_entry);
    EXPECT_EQ(entry->name, u"A");
    EXPECT_FALSE(entry->not_listed);
    EXPECT_FALSE(entry->in_scope);
    EXPECT_FALSE(entry->manual_name);
    EXPECT_EQ(entry->new_name, u"");
    EXPECT_EQ(entry->sequence, 0U);
    EXPECT_EQ(entry->status, Status::Pending);
    EXPECT_EQ(entry->folder, &folder);
    EXPECT_TRUE(folder.find(u"b")->not_listed);
    EXPECT_TRUE(folder.find(u"c")->not_listed);
    EXPECT_EQ(folder.find(u"gone"), nullptr);
}

TEST(RenameFolder, WhereCaseIsToldApartFindsNamesExactly)
{
    FakeDisk disk;
    disk.tells_case_apart = true;
    disk.with(u"C:\\A\\", {u"a", u"A"});
    RenameFolder folder(u"C:\\A\\");
    folder.load(disk);
    ASSERT_EQ(folder.entries->size(), 2U);
    EXPECT_EQ(folder.find(u"a")->name, u"a");
    EXPECT_EQ(folder.find(u"A")->name, u"A");
    EXPECT_FALSE(folder.entries->are_one_name(u"b", u"B"));
    folder.find(u"A")->not_listed = false;
    folder.load(disk);
    EXPECT_FALSE(folder.find(u"A")->not_listed);
    EXPECT_TRUE(folder.find(u"a")->not_listed);
}

TEST(RenameFolder, TellsOfEntriesThatHaveAppearedAndKeepsItsOwn)
{
    FakeDisk disk;
    disk.with(path, {u"a", u"b"});
    RenameFolder folder(path);
    EXPECT_TRUE(folder.entries_that_appeared().empty());
    folder.load(disk);
    const auto entries = folder.entries;
    EXPECT_TRUE(folder.entries_that_appeared().empty());
    disk.folders[path] = {};
    disk.with(path, {u"A", u"c"});
    const FilenameSet appeared = folder.entries_that_appeared();
    EXPECT_EQ(appeared.size(), 1U);
    EXPECT_NE(appeared.find(u"C"), nullptr);
    EXPECT_EQ(folder.entries, entries);
    EXPECT_NE(folder.find(u"b"), nullptr);
}

TEST(RenameFolder, TellsOfNoneThatHaveAppearedWhenItCannotBeReadToItsEnd)
{
    FakeDisk disk;
    disk.with(path, {u"a"});
    RenameFolder folder(path);
    folder.load(disk);
    disk.with(path, {u"b"});
    disk.error_behind_entries = std::make_error_code(std::errc::io_error);
    EXPECT_TRUE(folder.entries_that_appeared().empty());
    disk.folders.clear();
    EXPECT_TRUE(folder.entries_that_appeared().empty());
}

TEST(RenameFolder, AsksForDetailsOnceAndOnlyWhereTheListingDidNotTellThem)
{
    FakeDisk disk;
    disk.gives_details = false;
    DirectoryEntry& on_disk = disk.add(path, u"a");
    on_disk.size = 5;
    on_disk.read_only = true;
    RenameFolder folder(path);
    folder.load(disk);
    Filename& entry = *folder.find(u"a");
    EXPECT_FALSE(entry.has_details);
    EXPECT_FALSE(entry.read_only);
    EXPECT_EQ(entry.size, 0U);
    EXPECT_EQ(disk.details_read, (std::vector<std::u16string>{}));
    folder.read_details(entry);
    folder.read_details(entry);
    EXPECT_EQ(entry.size, 5U);
    EXPECT_TRUE(entry.read_only);
    EXPECT_EQ(disk.details_read, (std::vector<std::u16string>{u"C:\\Some Folder\\a"}));
    disk.gives_details = true;
    folder.load(disk);
    folder.read_details(*folder.find(u"a"));
    EXPECT_EQ(disk.details_read.size(), 1U);
}

TEST(RenameFolder, TellsWhyItCouldNotBeRead)
{
    FakeDisk disk;
    RenameFolder folder(u"C:\\Absent\\");
    folder.load(disk);
    EXPECT_EQ(folder.listing_error, std::errc::no_such_file_or_directory);
    disk.with(u"C:\\Absent\\", {});
    folder.load(disk);
    EXPECT_FALSE(folder.listing_error);
}

} // namespace
} // namespace multirename
