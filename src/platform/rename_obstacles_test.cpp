#include "platform/rename_obstacles.h"

#include <gtest/gtest.h>

#include "platform/testing/temporary_folder.h"
#include "platform/user_folders.h"

namespace multirename {
namespace {

TEST(RenameObstaclesTest, AFileAndAFolderInOnesOwnFolderHaveNone)
{
    const TemporaryFolder temporary;
    temporary.write("file", "");
    std::filesystem::create_directory(temporary.path() / "folder");
    const std::string folder = native_bytes((temporary.path() / "").make_preferred());
    RenameObstacles obstacles;
    EXPECT_EQ(obstacles.find(folder, "file", "new file", false), std::nullopt);
    EXPECT_EQ(obstacles.find(folder, "folder", "new folder", true), std::nullopt);
    EXPECT_EQ(obstacles.find(folder, "file", "FILE", false), std::nullopt);
}

} // namespace
} // namespace multirename
