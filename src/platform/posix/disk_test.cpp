#include "platform/disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/testing/listed_folder.h"
#include "platform/testing/temporary_folder.h"
#include "text/posix_name.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

class PosixDiskTest : public testing::Test {
protected:
    [[nodiscard]] fs::path path(const std::string& name) const { return temporary_.path() / name; }
    [[nodiscard]] ListedFolder listing() const
    {
        return listed_folder(system_disk(), path_from_bytes(temporary_.path().string() + "/"));
    }

    [[nodiscard]] std::vector<std::u16string> names() const
    {
        std::vector<std::u16string> all;
        for (const DirectoryEntry& entry : listing().entries)
            all.push_back(entry.name);
        std::ranges::sort(all);
        return all;
    }

    /// Makes a folder whose whole path has exactly `length` bytes.
    [[nodiscard]] fs::path folder_of_length(std::size_t length) const
    {
        constexpr std::size_t longest_name = 200;
        fs::path deep = temporary_.path();
        while (length - deep.string().size() > longest_name + 1)
            deep /= std::string(std::min(longest_name, length - deep.string().size() - 3), 'd');
        deep /= std::string(length - deep.string().size() - 1, 'e');
        fs::create_directories(deep);
        return deep;
    }

    TemporaryFolder temporary_;
};

TEST_F(PosixDiskTest, NamesOfEveryKindAreListed)
{
    for (const char* name : {"plain.txt", ".hidden", "a:b", "back\\slash", "caf\xC3\xA9", "stray\xFF"})
        temporary_.write(name, "x");
    const std::vector<std::u16string> expected = {u".hidden",   u"a\uF03Ab",  u"back\uF05Cslash",
                                                  u"caf\u00E9", u"plain.txt", u"stray\xDCFF"};
    EXPECT_EQ(names(), expected);
}

TEST_F(PosixDiskTest, ALinkIsListedAsTheLinkItIs)
{
    fs::create_directory(path("target"));
    fs::create_directory_symlink(path("target"), path("link"));
    fs::create_symlink("nowhere", path("broken"));
    for (const DirectoryEntry& entry : listing().entries)
        EXPECT_EQ(entry.is_folder, entry.name == u"target");
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(PosixDiskTest, AFolderThatTellsCaseApartSaysSo)
{
    const auto says_so = [this] { return listing().tells_case_apart; };
    EXPECT_TRUE(says_so());
    temporary_.write("123", "x");
    EXPECT_TRUE(says_so());
    temporary_.write("name", "x");
    EXPECT_TRUE(says_so());
    fs::create_hard_link(path("name"), path("Name")); // the same entry under the name in the other case
    EXPECT_TRUE(says_so());
}

TEST_F(PosixDiskTest, AWorkingDirectoryOf259CharactersIsToldAndALongerOneIsNot)
{
    const WorkingDirectory here(folder_of_length(259));
    const auto told = system_disk().working_directory();
    ASSERT_TRUE(told);
    EXPECT_EQ(told->size(), 259U);
    fs::current_path(folder_of_length(260));
    EXPECT_EQ(system_disk().working_directory(), std::nullopt);
}

TEST_F(PosixDiskTest, AWorkingDirectoryThatIsGoneIsNotTold)
{
    fs::create_directory(path("gone"));
    const WorkingDirectory here(path("gone"));
    fs::remove(path("gone"));
    EXPECT_EQ(system_disk().working_directory(), std::nullopt);
}

} // namespace
} // namespace multirename
