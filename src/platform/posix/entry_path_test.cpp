#include "platform/entry_path.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

#include "platform/testing/temporary_folder.h"
#include "text/posix_name.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

class PosixEntryPaths : public testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directory(temporary_.path() / "target");
        fs::create_directory_symlink("target", temporary_.path() / "link");
    }

    [[nodiscard]] std::string bytes(const std::string& path) const { return temporary_.path().string() + "/" + path; }

    EntryPath taken_apart(const std::string& path)
    {
        EntryPath found;
        EXPECT_FALSE(paths_.entry(bytes(path), found)) << path;
        return found;
    }

    TemporaryFolder temporary_;
    EntryPaths paths_;
};

TEST_F(PosixEntryPaths, ALinkToAFolderAndTheFolderItselfGiveOneText)
{
    EXPECT_EQ(taken_apart("link/file").folder, path_from_bytes(bytes("target/")));
    EXPECT_EQ(taken_apart("target/file").folder, path_from_bytes(bytes("target/")));
    EXPECT_EQ(taken_apart("link/../file").folder, path_from_bytes(bytes("")));
}

TEST_F(PosixEntryPaths, ALinkThatIsNamedIsTheLinkItself)
{
    for (const char* path : {"link", "link/"}) {
        EXPECT_EQ(taken_apart(path).folder, path_from_bytes(bytes("")));
        EXPECT_EQ(taken_apart(path).name, u"link");
    }
    fs::create_symlink("nowhere", temporary_.path() / "broken");
    EXPECT_EQ(taken_apart("broken").name, u"broken");
}

TEST_F(PosixEntryPaths, CharactersThatANameMayNotHoldBehindTheBorderAreMovedAside)
{
    EXPECT_EQ(taken_apart("a:b").name, u"a\uF03Ab");
    EXPECT_EQ(taken_apart("back\\slash").name, u"back\uF05Cslash");
    EXPECT_EQ(taken_apart("stray\xFF").name, u"stray\xDCFF");
    fs::create_directory(temporary_.path() / "12:30");
    EXPECT_EQ(taken_apart("12:30/file").folder, path_from_bytes(bytes("")) + u"12\uF03A30\\");
}

TEST_F(PosixEntryPaths, TheRootIsAFolderLikeOthers)
{
    EntryPath path;
    EXPECT_FALSE(paths_.entry("/name", path));
    EXPECT_EQ(path.folder, u"\\");
    EXPECT_EQ(path.name, u"name");
    std::u16string root;
    EXPECT_FALSE(paths_.folder("/", root));
    EXPECT_EQ(root, u"\\");
}

TEST_F(PosixEntryPaths, ABrokenLinkAndALoopOfLinksAreNoFolders)
{
    fs::create_symlink("nowhere", temporary_.path() / "broken");
    fs::create_symlink("loop", temporary_.path() / "loop");
    EntryPath path;
    EXPECT_EQ(paths_.entry(bytes("broken/file"), path), std::errc::no_such_file_or_directory);
    EXPECT_EQ(paths_.entry(bytes("loop/file"), path), std::errc::too_many_symbolic_link_levels);
}

TEST_F(PosixEntryPaths, PathsMayBeLong)
{
    std::string deep;
    for (int i = 0; i < 3; ++i)
        deep += std::string(200, 'd') + "/";
    fs::create_directories(bytes(deep));
    EXPECT_EQ(taken_apart(deep + "file").folder, path_from_bytes(bytes(deep)));
}

TEST_F(PosixEntryPaths, TheFirstWayToAFolderStandsForAll)
{
    // A folder in two places is what a file system without regard to case shows for two spellings.
    fs::create_directory(temporary_.path() / "other");
    if (mount(bytes("target").c_str(), bytes("other").c_str(), nullptr, MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "nothing may be mounted here";
    const EntryPath first = taken_apart("target/file");
    const EntryPath second = taken_apart("other/file");
    umount2(bytes("other").c_str(), MNT_DETACH);
    EXPECT_EQ(first.folder, path_from_bytes(bytes("target/")));
    EXPECT_EQ(second.folder, first.folder);
}

} // namespace
} // namespace multirename
