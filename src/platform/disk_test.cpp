#include "platform/disk.h"
#include "platform/testing/listed_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>

namespace multirename {
namespace {

namespace fs = std::filesystem;

std::u16string engine_path(const fs::path& path)
{
    std::u16string text = path.u16string();
    std::ranges::replace(text, u'/', u'\\');
    return text;
}

class SystemDisk : public testing::Test {
protected:
    void SetUp() override
    {
        std::random_device random;
        folder_ = fs::temp_directory_path() / ("multirename_disk_test_" + std::to_string(random()));
        fs::create_directory(folder_);
    }

    void TearDown() override
    {
        std::error_code error;
        for (const auto& entry : fs::recursive_directory_iterator(folder_, error))
            fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, error);
        fs::remove_all(folder_, error);
    }

    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::vector<DirectoryEntry> listing() const
    {
        auto entries = listed_with_details(engine_path(folder_) + u"\\").entries;
        std::ranges::sort(entries, {}, &DirectoryEntry::name);
        return entries;
    }

    [[nodiscard]] DirectoryEntry listed(const std::u16string& name) const
    {
        for (const DirectoryEntry& entry : listing()) {
            if (entry.name == name)
                return entry;
        }
        ADD_FAILURE() << "not listed";
        return {};
    }

    fs::path folder_;
};

TEST_F(SystemDisk, ListsFilesAndFoldersButNotTheFolderItselfOrItsParent)
{
    write("b.txt", "12345");
    write("..x", "");
    fs::create_directory(folder_ / "sub");
    write("sub/deeper.txt", "");
    const auto entries = listing();
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, u"..x");
    EXPECT_EQ(entries[1].name, u"b.txt");
    EXPECT_EQ(entries[2].name, u"sub");
    EXPECT_FALSE(entries[1].is_folder);
    EXPECT_TRUE(entries[2].is_folder);
}

TEST_F(SystemDisk, TellsTheSizeOfAFile)
{
    write("empty", "");
    write("five", "12345");
    EXPECT_EQ(listed(u"empty").size, 0U);
    EXPECT_EQ(listed(u"five").size, 5U);
}

TEST_F(SystemDisk, TellsSizesBeyond32Bits)
{
    constexpr std::uintmax_t five_gibibytes = 5ULL << 30;
    write("large", "");
    std::error_code error;
    fs::resize_file(folder_ / "large", five_gibibytes + 1, error);
    if (error)
        GTEST_SKIP() << "no room for a sparse file here";
    EXPECT_EQ(listed(u"large").size, five_gibibytes + 1);
}

TEST_F(SystemDisk, TellsReadOnlyFilesFromOthers)
{
    write("open", "");
    write("closed", "");
    fs::permissions(folder_ / "closed", fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    EXPECT_FALSE(listed(u"open").read_only);
    EXPECT_TRUE(listed(u"closed").read_only);
}

TEST_F(SystemDisk, TellsHiddenEntriesFromOthers)
{
    write(".hidden", "");
    write("shown.txt", "");
    EXPECT_TRUE(listed(u".hidden").is_hidden);
    EXPECT_FALSE(listed(u"shown.txt").is_hidden);
}

TEST_F(SystemDisk, TellsTheLastWriteInUnitsOf100Nanoseconds)
{
    write("early", "");
    write("late", "");
    // Whole seconds, which every file system and runtime keeps.
    const auto early = std::chrono::floor<std::chrono::seconds>(fs::last_write_time(folder_ / "early"));
    fs::last_write_time(folder_ / "early", early);
    fs::last_write_time(folder_ / "late", early + std::chrono::hours(1));
    EXPECT_EQ(listed(u"late").last_write - listed(u"early").last_write, 36'000'000'000U);
}

TEST_F(SystemDisk, TellsTimesOfOurOwnDays)
{
    constexpr FileTime start_of_2020 = 132'223'104'000'000'000;
    write("new", "");
    const DirectoryEntry entry = listed(u"new");
    EXPECT_GT(entry.last_write, start_of_2020);
    EXPECT_TRUE(entry.created == 0 || entry.created > start_of_2020); // 0: this file system keeps no such time
}

TEST_F(SystemDisk, AFolderThatCannotBeReadHasNoEntriesAndTellsWhy)
{
    write("file", "");
    for (const char* name : {"absent", "file"}) {
        const ListedFolder unreadable = listed_folder(system_disk(), engine_path(folder_ / name) + u"\\");
        EXPECT_TRUE(unreadable.entries.empty());
        EXPECT_TRUE(unreadable.error);
    }
    EXPECT_EQ(listing().size(), 1U);
}

TEST_F(SystemDisk, KnowsTheWorkingDirectory)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder_);
    const auto told = system_disk().working_directory();
    const std::u16string expected = engine_path(fs::current_path());
    fs::current_path(before);
    ASSERT_TRUE(told);
    EXPECT_EQ(*told, expected);
}

} // namespace
} // namespace multirename
