#include "platform/user_folders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/testing/posix_child.h"
#include "platform/testing/scoped_variable.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

TEST(PosixUserFolders, TheStateLiesWhereItsVariableSays)
{
    const ScopedVariable state("XDG_STATE_HOME", "/somewhere/state");
    EXPECT_EQ(user_state_folder(), "/somewhere/state/multirename");
}

TEST(PosixUserFolders, TheStateLiesInTheHomeFolderWhenItsVariableSaysNothing)
{
    const ScopedVariable home("HOME", "/home/somebody");
    for (const std::optional<std::string>& value :
         {std::optional<std::string>(), std::optional<std::string>(""), std::optional<std::string>("relative/state")}) {
        const ScopedVariable state("XDG_STATE_HOME", value);
        EXPECT_EQ(user_state_folder(), "/home/somebody/.local/state/multirename");
    }
}

TEST(PosixUserFolders, TheHomeFolderIsLookedUpWhenNoVariableNamesIt)
{
    const passwd* user = getpwuid(geteuid());
    if (user == nullptr || user->pw_dir == nullptr || *user->pw_dir != '/')
        GTEST_SKIP() << "this user has no home folder";
    const ScopedVariable state("XDG_STATE_HOME", std::nullopt);
    const fs::path expected = fs::path(user->pw_dir) / ".local/state/multirename";
    for (const std::optional<std::string>& value :
         {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const ScopedVariable home("HOME", value);
        EXPECT_EQ(user_state_folder(), expected);
    }
}

TEST(PosixUserFolders, NewFoldersAreForTheirOwnerAlone)
{
    const TemporaryFolder temporary;
    fs::create_directory(temporary.path() / "old");
    fs::permissions(temporary.path() / "old", fs::perms{0755});
    const mode_t before = umask(0);
    EXPECT_FALSE(make_private_folder(temporary.path() / "old" / "new" / "deep"));
    umask(before);
    EXPECT_EQ(fs::status(temporary.path() / "old").permissions(), fs::perms{0755});
    EXPECT_EQ(fs::status(temporary.path() / "old" / "new").permissions(), fs::perms{0700});
    EXPECT_EQ(fs::status(temporary.path() / "old" / "new" / "deep").permissions(), fs::perms{0700});
}

TEST(PosixUserFolders, AFolderThatMayNotBeMadeSaysWhy)
{
    const TemporaryFolder temporary;
    fs::create_directory(temporary.path() / "closed");
    fs::permissions(temporary.path() / "closed", fs::perms{0});
    fs::permissions(temporary.path(), fs::perms{0555});
    const auto is_denied = [&temporary](const char* folder) {
        return status_as_nobody(
            [&] { return make_private_folder(temporary.path() / folder) == std::errc::permission_denied ? 0 : 1; });
    };
    EXPECT_EQ(is_denied("new"), 0);
    EXPECT_EQ(is_denied("closed/new"), 0);
    fs::permissions(temporary.path(), fs::perms{0755});
}

TEST(PosixUserFolders, ALinkToAFolderIsAFolder)
{
    const TemporaryFolder temporary;
    fs::create_directory(temporary.path() / "target");
    fs::create_directory_symlink("target", temporary.path() / "link");
    EXPECT_FALSE(make_private_folder(temporary.path() / "link" / "new"));
    EXPECT_TRUE(fs::is_directory(temporary.path() / "target" / "new"));
}

TEST(PosixUserFolders, DraftsAreForTheirOwnerAlone)
{
    const TemporaryFolder temporary;
    const ScopedVariable place("TMPDIR", temporary.path().string());
    fs::path draft;
    ASSERT_FALSE(make_draft("content", draft));
    EXPECT_EQ(draft.parent_path(), temporary.path());
    EXPECT_EQ(fs::status(draft).permissions(), fs::perms{0600});
}

TEST(PosixUserFolders, ADraftThatCannotBeMadeLeavesThePathAlone)
{
    const TemporaryFolder temporary;
    const ScopedVariable place("TMPDIR", (temporary.path() / "absent").string());
    fs::path draft = "before";
    EXPECT_TRUE(make_draft("content", draft));
    EXPECT_EQ(draft, "before");
}

TEST(PosixUserFolders, PathsMayHoldAnyBytes)
{
    const std::string bytes = "stray\xFF\xFE";
    EXPECT_EQ(path_of_native_bytes(bytes).native(), bytes);
    EXPECT_EQ(native_bytes(bytes), bytes);
}

} // namespace
} // namespace multirename
