#include "platform/disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "platform/testing/listed_folder.h"
#include "platform/testing/temporary_folder.h"

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
    [[nodiscard]] fs::path path(const std::string& name) const { return temporary_.path() / name; }

    [[nodiscard]] std::vector<DirectoryEntry> listing() const
    {
        auto entries = listed_with_details(engine_path(temporary_.path()) + u"\\").entries;
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

    TemporaryFolder temporary_;
};

TEST_F(SystemDisk, ListsFilesAndFoldersButNotTheFolderItselfOrItsParent)
{
    temporary_.write("b.txt", "12345");
    temporary_.write("..x", "");
    fs::create_directory(path("sub"));
    temporary_.write("sub/deeper.txt", "");
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
    temporary_.write("empty", "");
    temporary_.write("five", "12345");
    EXPECT_EQ(listed(u"empty").size, 0U);
    EXPECT_EQ(listed(u"five").size, 5U);
}

TEST_F(SystemDisk, TellsSizesBeyond32Bits)
{
    constexpr std::uintmax_t five_gibibytes = 5ULL << 30;
    temporary_.write("large", "");
    std::error_code error;
    fs::resize_file(path("large"), five_gibibytes + 1, error);
    if (error)
        GTEST_SKIP() << "no room for a sparse file here";
    EXPECT_EQ(listed(u"large").size, five_gibibytes + 1);
}

TEST_F(SystemDisk, TellsReadOnlyFilesFromOthers)
{
    temporary_.write("open", "");
    temporary_.write("closed", "");
    fs::permissions(path("closed"), fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    EXPECT_FALSE(listed(u"open").read_only);
    EXPECT_TRUE(listed(u"closed").read_only);
}

TEST_F(SystemDisk, TellsHiddenEntriesFromOthers)
{
    temporary_.write(".hidden", "");
    temporary_.write("shown.txt", "");
    EXPECT_TRUE(listed(u".hidden").is_hidden);
    EXPECT_FALSE(listed(u"shown.txt").is_hidden);
}

TEST_F(SystemDisk, TellsTheLastWriteInUnitsOf100Nanoseconds)
{
    temporary_.write("early", "");
    temporary_.write("late", "");
    // Whole seconds, which every file system and runtime keeps.
    const auto early = std::chrono::floor<std::chrono::seconds>(fs::last_write_time(path("early")));
    fs::last_write_time(path("early"), early);
    fs::last_write_time(path("late"), early + std::chrono::hours(1));
    EXPECT_EQ(listed(u"late").last_write - listed(u"early").last_write, 36'000'000'000U);
}

TEST_F(SystemDisk, TellsTimesOfOurOwnDays)
{
    constexpr FileTime start_of_2020 = 132'223'104'000'000'000;
    temporary_.write("new", "");
    const DirectoryEntry entry = listed(u"new");
    EXPECT_GT(entry.last_write, start_of_2020);
    EXPECT_TRUE(entry.created == 0 || entry.created > start_of_2020); // 0: this file system keeps no such time
}

TEST_F(SystemDisk, AFolderThatCannotBeReadHasNoEntriesAndTellsWhy)
{
    temporary_.write("file", "");
    for (const char* name : {"absent", "file"}) {
        const ListedFolder unreadable = listed_folder(system_disk(), engine_path(path(name)) + u"\\");
        EXPECT_TRUE(unreadable.entries.empty());
        EXPECT_TRUE(unreadable.error);
    }
    EXPECT_EQ(listing().size(), 1U);
}

TEST_F(SystemDisk, KnowsTheWorkingDirectory)
{
    const WorkingDirectory here(temporary_.path());
    const auto told = system_disk().working_directory();
    const std::u16string expected = engine_path(fs::current_path());
    ASSERT_TRUE(told);
    EXPECT_EQ(*told, expected);
}

} // namespace
} // namespace multirename
