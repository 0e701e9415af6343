#include "platform/move_entry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/native_text.h"
#include "platform/testing/temporary_folder.h"
#include "platform/user_folders.h"
#include "platform/windows/file_handle.h"

namespace multirename {
namespace {

using Names = std::vector<std::string>;

class WindowsEntryMover : public testing::Test {
protected:
    [[nodiscard]] std::string in_folder() const { return native_bytes(temporary_.path()) + "\\"; }

    TemporaryFolder temporary_;
    EntryMover mover_;
};

TEST_F(WindowsEntryMover, AFileThatIsOpenElsewhereMayNotBeRenamed)
{
    temporary_.write("a", "content");
    const UniqueFile held(CreateFileW((temporary_.path() / "a").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(held);
    EXPECT_EQ(mover_.move(in_folder(), "a", "b"), std::errc::permission_denied);
    EXPECT_EQ(temporary_.names(), Names{"a"});
}

TEST_F(WindowsEntryMover, ANameInAnotherCaseIsTaken)
{
    temporary_.write("a", "first");
    temporary_.write("b", "second");
    EXPECT_EQ(mover_.move(in_folder(), "a", "B"), std::errc::file_exists);
    std::error_code error;
    EXPECT_TRUE(mover_.exists(in_folder(), "B", error));
    EXPECT_EQ(temporary_.content("b"), "second");
}

TEST_F(WindowsEntryMover, ChangesTheCaseInTheListingToo)
{
    temporary_.write("a", "content");
    EXPECT_FALSE(mover_.move(in_folder(), "a", "A"));
    if (temporary_.names() == Names{"a"})
        GTEST_SKIP() << "this system takes the two names for one and leaves the first";
    EXPECT_EQ(temporary_.names(), Names{"A"});
}

TEST_F(WindowsEntryMover, TakesHalvesOfPairs)
{
    const std::wstring path = temporary_.path().native() + L"\\half\xD83D";
    if (!CreateDirectoryW(path.c_str(), nullptr))
        GTEST_SKIP() << "this file system takes whole characters only";
    ASSERT_TRUE(RemoveDirectoryW(path.c_str()));
    temporary_.write("a", "content");
    const std::string half = native_from_name(u"half\xD83D");
    EXPECT_FALSE(mover_.move(in_folder(), "a", half));
    std::error_code error;
    EXPECT_TRUE(mover_.exists(in_folder(), half, error));
    EXPECT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_FALSE(mover_.move(in_folder(), half, "a"));
}

TEST_F(WindowsEntryMover, TakesPathsOf260CharactersAndMore)
{
    const std::wstring deep = L"\\\\?\\" + temporary_.path().native() + L"\\" + std::wstring(250, L'd');
    ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
    ASSERT_TRUE(CreateDirectoryW((deep + L"\\a").c_str(), nullptr));
    EXPECT_FALSE(mover_.move(in_folder() + std::string(250, 'd') + "\\", "a", "b"));
    EXPECT_TRUE(RemoveDirectoryW((deep + L"\\b").c_str()));
    EXPECT_TRUE(RemoveDirectoryW(deep.c_str()));
}

} // namespace
} // namespace multirename
