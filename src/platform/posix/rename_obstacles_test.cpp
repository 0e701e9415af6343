#include "platform/rename_obstacles.h"

#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/testing/posix_child.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

using testing::HasSubstr;
using testing::Optional;

constexpr uid_t root = 0;

class PosixRenameObstacles : public testing::Test {
protected:
    [[nodiscard]] std::string in_folder() const { return temporary_.path().string() + "/"; }
    void allow(mode_t mode) const { ASSERT_EQ(chmod(temporary_.path().c_str(), mode), 0); }

    /// Whether someone without rights finds an obstacle in whose words this stands.
    [[nodiscard]] int finds_as_nobody(const std::string& name, const std::string& words) const
    {
        return status_as_nobody([&] {
            const auto found = RenameObstacles().find(in_folder(), name, "new", false);
            if (!found)
                return 1;
            return found->find(words) != std::string::npos ? 0 : 2;
        });
    }
    static constexpr int finds_nothing = 1;

    TemporaryFolder temporary_;
};

TEST_F(PosixRenameObstacles, AFolderThatMayNotBeChangedIsOneForAllItsEntries)
{
    temporary_.write("a", "");
    allow(0555);
    EXPECT_EQ(finds_as_nobody("a", "the folder does not let its entries be renamed: "), 0);
    EXPECT_EQ(finds_as_nobody("b", "the folder does not let its entries be renamed: "), 0);
    allow(0777);
    EXPECT_EQ(finds_as_nobody("a", ""), finds_nothing);
}

TEST_F(PosixRenameObstacles, InAStickyFolderTheEntriesOfOthersAre)
{
    if (geteuid() != root)
        GTEST_SKIP() << "only root can make entries of others";
    constexpr uid_t nobody = 65534;
    temporary_.write("of root", "");
    temporary_.write("of nobody", "");
    ASSERT_EQ(chown((in_folder() + "of nobody").c_str(), nobody, nobody), 0);
    allow(01777);
    EXPECT_EQ(finds_as_nobody("of root", "only the owner"), 0);
    EXPECT_EQ(finds_as_nobody("of nobody", ""), finds_nothing);
    EXPECT_EQ(RenameObstacles().find(in_folder(), "of nobody", "new", false), std::nullopt);
    ASSERT_EQ(chown(temporary_.path().c_str(), nobody, nobody), 0);
    EXPECT_EQ(finds_as_nobody("of root", ""), finds_nothing);
}

TEST_F(PosixRenameObstacles, ANameOfMoreBytesThanTheFileSystemTakesIsOne)
{
    temporary_.write("a", "");
    RenameObstacles obstacles;
    std::string accents;
    for (int i = 0; i < 128; ++i)
        accents += "\xC3\xA9";
    EXPECT_EQ(obstacles.find(in_folder(), "a", std::string(255, 'n'), false), std::nullopt);
    EXPECT_THAT(obstacles.find(in_folder(), "a", std::string(256, 'n'), false), Optional(HasSubstr("255")));
    EXPECT_THAT(obstacles.find(in_folder(), "a", accents, false), Optional(HasSubstr("256 bytes")));
    EXPECT_EQ(obstacles.find(in_folder(), "a", accents.substr(2), false), std::nullopt);
}

TEST_F(PosixRenameObstacles, AMissingFolderIsOne)
{
    EXPECT_TRUE(RenameObstacles().find(in_folder() + "absent/", "a", "b", false));
}

TEST_F(PosixRenameObstacles, AMountedFileSystemIsOne)
{
    const std::string mounted = in_folder() + "mounted";
    std::filesystem::create_directory(mounted);
    if (mount("none", mounted.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "nothing may be mounted here";
    const auto found = RenameObstacles().find(in_folder(), "mounted", "new", true);
    umount2(mounted.c_str(), MNT_DETACH);
    EXPECT_THAT(found, Optional(HasSubstr("mounted on this folder")));
    EXPECT_EQ(RenameObstacles().find(in_folder(), "mounted", "new", true), std::nullopt);
}

} // namespace
} // namespace multirename
