#include "platform/rename_obstacles.h"

#include <gtest/gtest.h>

#include "text/wtf8.h"

namespace multirename {
namespace {

TEST(WindowsRenameObstacles, ANewPathOf260CharactersIsTooLong)
{
    RenameObstacles obstacles;
    const std::string folder = "C:\\" + std::string(200, 'd') + "\\"; // 204 characters
    EXPECT_EQ(obstacles.find(folder, "a", std::string(55, 'n'), false), std::nullopt);
    EXPECT_EQ(obstacles.find(folder, "a", std::string(56, 'n'), false),
              "the path with the new name has 260 characters, and Windows takes at most 259");
}

TEST(WindowsRenameObstacles, CharactersAreCountedAndNotBytes)
{
    RenameObstacles obstacles;
    const std::string folder = "C:\\" + std::string(200, 'd') + "\\";
    EXPECT_EQ(obstacles.find(folder, "a", to_wtf8(std::u16string(55, u'\u00E9')), false), std::nullopt);
    EXPECT_TRUE(obstacles.find(folder, "a", to_wtf8(std::u16string(56, u'\u00E9')), false));
}

TEST(WindowsRenameObstacles, DevicesKeepTheirNames)
{
    RenameObstacles obstacles;
    EXPECT_EQ(obstacles.find("C:\\d\\", "a.txt", "nul.txt", false), "Windows keeps this name for a device");
    EXPECT_EQ(obstacles.find("C:\\d\\", "nul.txt", "null.txt", false), std::nullopt);
}

} // namespace
} // namespace multirename
