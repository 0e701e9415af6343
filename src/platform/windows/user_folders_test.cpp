#include "platform/user_folders.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/testing/scoped_variable.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

TEST(WindowsUserFolders, TheStateLiesInTheLocalApplicationData)
{
    EXPECT_TRUE(fs::is_directory(user_state_folder().parent_path()));
    EXPECT_EQ(user_state_folder(), user_state_folder().parent_path() / "multirename");
}

TEST(WindowsUserFolders, DraftsLieAmongTheTemporaryFiles)
{
    const TemporaryFolder temporary;
    const ScopedVariable place("TMP", native_bytes(temporary.path()));
    fs::path draft;
    ASSERT_FALSE(make_draft("content", draft));
    EXPECT_EQ(draft.parent_path(), temporary.path());
}

TEST(WindowsUserFolders, ADraftThatCannotBeMadeLeavesThePathAlone)
{
    const TemporaryFolder temporary;
    const ScopedVariable place("TMP", native_bytes(temporary.path() / "absent"));
    fs::path draft = "before";
    EXPECT_EQ(make_draft("content", draft), std::errc::no_such_file_or_directory);
    EXPECT_EQ(draft, "before");
}

TEST(WindowsUserFolders, ADraftThatWasLeftBehindStays)
{
    const TemporaryFolder temporary;
    const ScopedVariable place("TMP", native_bytes(temporary.path()));
    const std::string first = "multirename-" + std::to_string(GetCurrentProcessId()) + "-1.txt";
    temporary.write(first, "left behind");
    fs::path draft;
    ASSERT_FALSE(make_draft("content", draft));
    EXPECT_NE(draft.filename(), first);
    EXPECT_EQ(temporary.content(first), "left behind");
    EXPECT_EQ(temporary.content(draft.filename().string()), "content");
}

TEST(WindowsUserFolders, PathsMayHoldHalvesOfPairs)
{
    EXPECT_EQ(path_of_native_bytes("half\xED\xA0\xBD").native(), L"half\xD83D");
    EXPECT_EQ(native_bytes(L"half\xD83D"), "half\xED\xA0\xBD");
}

} // namespace
} // namespace multirename
