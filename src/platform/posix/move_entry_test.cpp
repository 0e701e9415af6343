#include "platform/move_entry.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <array>
#include <cstddef>

#include "platform/testing/posix_child.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class PosixEntryMover : public testing::Test {
protected:
    [[nodiscard]] fs::path path(const std::string& name) const { return temporary_.path() / name; }
    [[nodiscard]] std::string in_folder() const { return temporary_.path().string() + "/"; }
    std::error_code move(const std::string& from, const std::string& to) { return mover_.move(in_folder(), from, to); }

    TemporaryFolder temporary_;
    EntryMover mover_;
};

TEST_F(PosixEntryMover, RenamesALinkItself)
{
    temporary_.write("target", "content");
    fs::create_symlink("target", path("link"));
    fs::create_symlink("nowhere", path("broken"));
    EXPECT_FALSE(move("link", "new link"));
    EXPECT_FALSE(move("broken", "still broken"));
    EXPECT_EQ(temporary_.names(), (Names{"new link", "still broken", "target"}));
    EXPECT_EQ(fs::read_symlink(path("new link")), "target");
    EXPECT_EQ(fs::read_symlink(path("still broken")), "nowhere");
}

TEST_F(PosixEntryMover, NeverReplacesALink)
{
    temporary_.write("a", "content");
    fs::create_symlink("a", path("link"));
    fs::create_symlink("nowhere", path("broken"));
    EXPECT_EQ(move("a", "link"), std::errc::file_exists);
    EXPECT_EQ(move("a", "broken"), std::errc::file_exists);
    EXPECT_EQ(temporary_.names(), (Names{"a", "broken", "link"}));
    EXPECT_EQ(fs::read_symlink(path("broken")), "nowhere");
    EXPECT_EQ(temporary_.content("a"), "content");
}

TEST_F(PosixEntryMover, FollowsLinksInTheFoldersPathOnlyWhenItMay)
{
    fs::create_directories(path("real/inner"));
    temporary_.write("real/inner/a", "content");
    fs::create_directory_symlink("real", path("link"));
    fs::create_directory_symlink("inner", path("real/last"));
    for (const char* folder : {"link/inner/", "link/inner", "real/last/", "real/last", "link//last//"}) {
        std::error_code error;
        EXPECT_EQ(mover_.move(in_folder() + folder, "a", "b"), std::errc::too_many_symbolic_link_levels) << folder;
        EXPECT_FALSE(mover_.exists(in_folder() + folder, "a", error)) << folder;
        EXPECT_EQ(error, std::errc::too_many_symbolic_link_levels) << folder;
        EntryMover follower(EntryMover::FolderLinks::Follow);
        EXPECT_FALSE(follower.move(in_folder() + folder, "a", "b")) << folder;
        EXPECT_FALSE(mover_.move(in_folder() + "real//inner", "b", "a")) << folder;
    }
}

TEST_F(PosixEntryMover, TakesRelativeFoldersAndTheRoot)
{
    const WorkingDirectory here(temporary_.path());
    fs::create_directory("inner");
    temporary_.write("inner/a", "content");
    EXPECT_FALSE(mover_.move("inner/", "a", "b"));
    EXPECT_FALSE(mover_.move("./inner", "b", "c"));
    EXPECT_EQ(temporary_.content("inner/c"), "content");
    std::error_code error;
    EXPECT_TRUE(mover_.exists("/", "proc", error));
    EXPECT_TRUE(mover_.exists(".", "inner", error));
    EXPECT_TRUE(mover_.exists("", "inner", error));
    EXPECT_EQ(mover_.move("inner/c/", "c", "d"), std::errc::not_a_directory);
}

TEST_F(PosixEntryMover, ChangesTheCaseInTheListingToo)
{
    temporary_.write("a", "content");
    EXPECT_FALSE(move("a", "A"));
    EXPECT_EQ(temporary_.names(), Names{"A"});
}

TEST_F(PosixEntryMover, TwoLinksOfOneFileStayTwo)
{
    temporary_.write("a", "content");
    for (const char* other : {"A", "b"}) {
        fs::create_hard_link(path("a"), path(other));
        EXPECT_EQ(move("a", other), std::errc::file_exists);
    }
    EXPECT_EQ(temporary_.names(), (Names{"A", "a", "b"}));
}

TEST_F(PosixEntryMover, TwoEntriesThatDifferInCaseStayTwo)
{
    temporary_.write("a", "first");
    temporary_.write("A", "second");
    EXPECT_EQ(move("a", "A"), std::errc::file_exists);
    EXPECT_EQ(temporary_.content("a"), "first");
    EXPECT_EQ(temporary_.content("A"), "second");
}

TEST_F(PosixEntryMover, RenamesWhatIsNeitherFileNorFolder)
{
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(move("pipe", "renamed"));
    EXPECT_EQ(temporary_.names(), Names{"renamed"});
}

TEST_F(PosixEntryMover, TakesNamesOfAnyBytes)
{
    temporary_.write("a", "content");
    EXPECT_FALSE(move("a", "\xFF\\:*?\"<>|\n"));
    EXPECT_EQ(temporary_.names(), Names{"\xFF\\:*?\"<>|\n"});
}

TEST_F(PosixEntryMover, SaysThatANameIsTooLong)
{
    temporary_.write("a", "");
    EXPECT_EQ(move("a", std::string(256, 'n')), std::errc::filename_too_long);
}

TEST_F(PosixEntryMover, SaysThatTheFolderMayNotBeChanged)
{
    temporary_.write("a", "content");
    fs::permissions(temporary_.path(), fs::perms{0555});
    EXPECT_EQ(status_as_nobody([this] { return move("a", "b") == std::errc::permission_denied ? 0 : 1; }), 0);
    fs::permissions(temporary_.path(), fs::perms{0755});
    EXPECT_EQ(temporary_.names(), Names{"a"});
}

TEST_F(PosixEntryMover, SaysThatItCannotTellWhetherAnEntryExists)
{
    fs::create_directory(path("closed"));
    temporary_.write("closed/a", "");
    fs::permissions(path("closed"), fs::perms{0600});
    EXPECT_EQ(status_as_nobody([this] {
                  std::error_code error;
                  const bool is_there = mover_.exists(in_folder() + "closed/", "a", error);
                  return !is_there && error == std::errc::permission_denied ? 0 : 1;
              }),
              0);
}

TEST_F(PosixEntryMover, ABrokenLinkExists)
{
    fs::create_symlink("nowhere", path("broken"));
    std::error_code error;
    EXPECT_TRUE(mover_.exists(in_folder(), "broken", error));
    EXPECT_FALSE(error);
}

// From here on this process gets the answer that some file systems give to a rename that refuses to replace.
bool lose_exclusive_rename()
{
    // On some machines the other rename goes by the same system call, with no flags.
    constexpr std::uint32_t number = offsetof(seccomp_data, nr);
    constexpr std::uint32_t flags = offsetof(seccomp_data, args) + 4 * sizeof(std::uint64_t);
    std::array filter = {
        sock_filter{BPF_LD | BPF_W | BPF_ABS, 0, 0, number},
        sock_filter{BPF_JMP | BPF_JEQ | BPF_K, 0, 3, SYS_renameat2},
        sock_filter{BPF_LD | BPF_W | BPF_ABS, 0, 0, flags},
        sock_filter{BPF_JMP | BPF_JEQ | BPF_K, 1, 0, 0},
        sock_filter{BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | EINVAL},
        sock_filter{BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
    };
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

class WithoutExclusiveRename : public PosixEntryMover {
protected:
    void SetUp() override
    {
        if (status_in_child([] { return lose_exclusive_rename() ? 0 : 1; }) != 0)
            GTEST_SKIP() << "this system does not let its calls be refused";
    }

    /// Whether the rename gives that error, or none, and the mover says that it did without.
    [[nodiscard]] bool gives(const std::string& from, const std::string& to, std::error_condition expected = {})
    {
        return status_in_child([&] {
                   if (!lose_exclusive_rename() || move(from, to) != expected)
                       return 1;
                   return mover_.did_without_exclusive_rename() ? 0 : 2;
               }) == 0;
    }
};

TEST_F(WithoutExclusiveRename, FilesFoldersAndLinksAreRenamed)
{
    temporary_.write("file", "content");
    fs::create_directory(path("folder"));
    temporary_.write("folder/inside", "inside");
    fs::create_symlink("nowhere", path("link"));
    EXPECT_TRUE(gives("file", "new file"));
    EXPECT_TRUE(gives("folder", "new folder"));
    EXPECT_TRUE(gives("link", "new link"));
    EXPECT_EQ(temporary_.names(), (Names{"new file", "new folder", "new link"}));
    EXPECT_EQ(temporary_.content("new file"), "content");
    EXPECT_EQ(temporary_.content("new folder/inside"), "inside");
    EXPECT_EQ(fs::read_symlink(path("new link")), "nowhere");
}

TEST_F(WithoutExclusiveRename, NothingIsReplaced)
{
    temporary_.write("file", "content");
    fs::create_directory(path("folder"));
    const Names obstacles = {"empty", "full", "link", "other"};
    fs::create_directory(path("empty"));
    fs::create_directory(path("full"));
    temporary_.write("full/inside", "inside");
    fs::create_symlink("nowhere", path("link"));
    temporary_.write("other", "other content");
    for (const std::string& name : obstacles) {
        EXPECT_TRUE(gives("file", name, std::errc::file_exists)) << name;
        EXPECT_TRUE(gives("folder", name, std::errc::file_exists)) << name;
    }
    EXPECT_EQ(temporary_.names(), (Names{"empty", "file", "folder", "full", "link", "other"}));
    EXPECT_EQ(temporary_.content("other"), "other content");
    EXPECT_EQ(temporary_.content("full/inside"), "inside");
    EXPECT_EQ(fs::read_symlink(path("link")), "nowhere");
}

TEST_F(WithoutExclusiveRename, TwoLinksOfOneFileStayTwo)
{
    temporary_.write("a", "content");
    fs::create_hard_link(path("a"), path("A"));
    EXPECT_TRUE(gives("a", "A", std::errc::file_exists));
    EXPECT_EQ(temporary_.names(), (Names{"A", "a"}));
}

TEST_F(WithoutExclusiveRename, TheCaseAloneIsChanged)
{
    temporary_.write("a", "content");
    EXPECT_TRUE(gives("a", "A"));
    EXPECT_EQ(temporary_.names(), Names{"A"});
}

TEST_F(WithoutExclusiveRename, AMissingEntryIsSaidToBeMissing)
{
    EXPECT_TRUE(gives("absent", "b", std::errc::no_such_file_or_directory));
    EXPECT_TRUE(temporary_.names().empty());
}

} // namespace
} // namespace multirename
