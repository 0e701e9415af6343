#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

#include "support/run_program.h"
#include "support/snapshot.h"
#include "support/test_programs.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(TemporaryFolderTest, IsEmptyAtFirstAndGoneAtTheEnd)
{
    std::string path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        EXPECT_THAT(names_in(path), ElementsAre());
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(TemporaryFolderTest, LiesWhereTheEnvironmentSays)
{
    const TemporaryFolder outer;
    const char* before = std::getenv("TMPDIR");
    const std::string kept = before == nullptr ? "" : before;
    setenv("TMPDIR", outer.path().c_str(), 1);
    {
        const TemporaryFolder inner;
        EXPECT_THAT(inner.path(), StartsWith(outer.path() + "/"));
    }
    if (before == nullptr)
        unsetenv("TMPDIR");
    else
        setenv("TMPDIR", kept.c_str(), 1);
}

TEST(TemporaryFolderTest, MakesTheFoldersThatAPathGoesThrough)
{
    const TemporaryFolder folder;
    EXPECT_EQ(folder.write("a/b/c", "text"), folder.path() + "/a/b/c");
    EXPECT_EQ(folder.make_folder("d/e"), folder.path_of("d/e"));
    EXPECT_EQ(folder.make_link("f/g", "../a"), folder.path_of("f/g"));
    EXPECT_THAT(names_in(folder.path()), ElementsAre("a", "d", "f"));
    EXPECT_EQ(snapshot_of(folder.path()).entries.at("a/b/c").content, "text");
    EXPECT_EQ(snapshot_of(folder.path()).entries.at("f/g").target, "../a");
}

TEST(TemporaryFolderTest, WritesContentAnew)
{
    const TemporaryFolder folder;
    folder.write("a", "a longer text");
    folder.write("a", "short");
    EXPECT_EQ(snapshot_of(folder.path()).entries.at("a").content, "short");
}

TEST(TemporaryFolderTest, SaysWhatCannotBeMade)
{
    const TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_THROW(folder.write("file/below", ""), std::system_error);
    EXPECT_THROW(folder.write(std::string(256, 'x'), ""), std::system_error);
    EXPECT_THROW(folder.make_link("file", "target"), std::system_error);
}

TEST(TemporaryFolderTest, GoesWithFoldersThatNobodyMayEnter)
{
    auto folder = std::make_unique<TemporaryFolder>();
    const std::string path = folder->path();
    folder->write("locked/inner/file", "");
    chmod(folder->path_of("locked/inner").c_str(), 0);
    chmod(folder->path_of("locked").c_str(), 0);
    chmod(path.c_str(), 0);
    folder.reset();
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(TemporaryFolderTest, GoesWhenTheTestActsAsAnotherUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    auto folder = std::make_unique<TemporaryFolder>();
    const std::string path = folder->path();
    folder->write("locked/file", "");
    ASSERT_EQ(seteuid(nobody), 0);
    folder.reset();
    EXPECT_EQ(geteuid(), nobody);
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
}

// As a user who owns the folder but is not above its modes.
TEST(TemporaryFolderTest, GoesWithLockedFoldersOfAnOrdinaryUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    const TemporaryFolder outer;
    ASSERT_EQ(chmod(outer.path().c_str(), 0777), 0);
    const std::string tests = std::filesystem::read_symlink("/proc/self/exe");
    const ProgramResult result =
        run_program({.arguments = {tests, "--gtest_filter=TemporaryFolderTest.GoesWithFoldersThatNobodyMayEnter"},
                     .environment = {{"TMPDIR", outer.path()}, {"GTEST_OUTPUT", std::nullopt}},
                     .user = nobody});
    EXPECT_EQ(result.exit_status, 0) << result.output << result.errors;
    EXPECT_THAT(names_in(outer.path()), ElementsAre());
}

TEST(TemporaryFolderTest, LeavesAloneWhatItsLinksPointAt)
{
    const TemporaryFolder kept;
    kept.write("file", "text");
    {
        const TemporaryFolder folder;
        folder.make_link("link", kept.path());
        folder.make_link("dangling", "nowhere");
    }
    EXPECT_THAT(names_in(kept.path()), ElementsAre("file"));
}

TEST(TemporaryFolderTest, LetsOthersLookIn)
{
    const TemporaryFolder folder;
    struct stat details { };
    ASSERT_EQ(stat(folder.path().c_str(), &details), 0);
    EXPECT_EQ(details.st_mode & 07777U, 0755U);
}

} // namespace
} // namespace multirename
