#include "platform/disk.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/testing/listed_folder.h"
#include "text/posix_name.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

class PosixDiskTest : public testing::Test {
protected:
    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "multirename_disk_XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = fs::canonical(name);
    }

    void TearDown() override
    {
        fs::current_path(before_);
        std::error_code error;
        fs::remove_all(folder_, error);
    }

    [[nodiscard]] std::vector<std::u16string> names() const
    {
        std::vector<std::u16string> all;
        for (const DirectoryEntry& entry :
             listed_folder(system_disk(), path_from_bytes(folder_.string() + "/")).entries)
            all.push_back(entry.name);
        std::ranges::sort(all);
        return all;
    }

    /// Makes a folder whose whole path has exactly `length` bytes.
    [[nodiscard]] fs::path folder_of_length(std::size_t length) const
    {
        constexpr std::size_t longest_name = 200;
        fs::path deep = folder_;
        while (length - deep.string().size() > longest_name + 1)
            deep /= std::string(std::min(longest_name, length - deep.string().size() - 3), 'd');
        deep /= std::string(length - deep.string().size() - 1, 'e');
        fs::create_directories(deep);
        return deep;
    }

    fs::path folder_;
    fs::path before_ = fs::current_path();
};

TEST_F(PosixDiskTest, NamesOfEveryKindAreListed)
{
    for (const char* name : {"plain.txt", ".hidden", "a:b", "back\\slash", "caf\xC3\xA9", "stray\xFF"})
        std::ofstream(folder_ / name).put('x');
    const std::vector<std::u16string> expected = {u".hidden",   u"a\uF03Ab",  u"back\uF05Cslash",
                                                  u"caf\u00E9", u"plain.txt", u"stray\xDCFF"};
    EXPECT_EQ(names(), expected);
}

TEST_F(PosixDiskTest, ALinkIsListedAsTheLinkItIs)
{
    fs::create_directory(folder_ / "target");
    fs::create_directory_symlink(folder_ / "target", folder_ / "link");
    fs::create_symlink("nowhere", folder_ / "broken");
    for (const DirectoryEntry& entry : listed_folder(system_disk(), path_from_bytes(folder_.string() + "/")).entries)
        EXPECT_EQ(entry.is_folder, entry.name == u"target");
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(PosixDiskTest, AFolderThatTellsCaseApartSaysSo)
{
    const auto says_so = [this] {
        return listed_folder(system_disk(), path_from_bytes(folder_.string() + "/")).tells_case_apart;
    };
    EXPECT_TRUE(says_so());
    std::ofstream(folder_ / "123").put('x');
    EXPECT_TRUE(says_so());
    std::ofstream(folder_ / "name").put('x');
    EXPECT_TRUE(says_so());
    fs::create_hard_link(folder_ / "name", folder_ / "Name"); // the same entry under the name in the other case
    EXPECT_TRUE(says_so());
}

TEST_F(PosixDiskTest, AWorkingDirectoryOf259CharactersIsToldAndALongerOneIsNot)
{
    fs::current_path(folder_of_length(259));
    const auto told = system_disk().working_directory();
    ASSERT_TRUE(told);
    EXPECT_EQ(told->size(), 259U);
    fs::current_path(folder_of_length(260));
    EXPECT_EQ(system_disk().working_directory(), std::nullopt);
}

TEST_F(PosixDiskTest, AWorkingDirectoryThatIsGoneIsNotTold)
{
    fs::create_directory(folder_ / "gone");
    fs::current_path(folder_ / "gone");
    fs::remove(folder_ / "gone");
    EXPECT_EQ(system_disk().working_directory(), std::nullopt);
}

} // namespace
} // namespace multirename
