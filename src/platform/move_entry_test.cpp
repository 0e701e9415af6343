#include "platform/move_entry.h"

#include <gtest/gtest.h>

#include "platform/testing/temporary_folder.h"
#include "platform/user_folders.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class EntryMoverTest : public testing::Test {
protected:
    [[nodiscard]] std::string in_folder(const fs::path& folder = {}) const
    {
        return native_bytes((temporary_.path() / folder / "").make_preferred());
    }

    std::error_code move(const std::string& from, const std::string& to) { return mover_.move(in_folder(), from, to); }

    bool exists(const std::string& name)
    {
        std::error_code error;
        const bool is_there = mover_.exists(in_folder(), name, error);
        EXPECT_FALSE(error) << error.message();
        return is_there;
    }

    TemporaryFolder temporary_;
    EntryMover mover_;
};

TEST_F(EntryMoverTest, RenamesAFile)
{
    temporary_.write("a", "content");
    EXPECT_FALSE(move("a", "b"));
    EXPECT_EQ(temporary_.names(), Names{"b"});
    EXPECT_EQ(temporary_.content("b"), "content");
    EXPECT_FALSE(mover_.did_without_exclusive_rename());
}

TEST_F(EntryMoverTest, RenamesAFolderWithAllThatItHolds)
{
    fs::create_directory(temporary_.path() / "a");
    temporary_.write("a/inside", "content");
    EXPECT_FALSE(move("a", "b"));
    EXPECT_EQ(temporary_.names(), Names{"b"});
    EXPECT_EQ(temporary_.content("b/inside"), "content");
}

TEST_F(EntryMoverTest, NeverReplacesAFile)
{
    temporary_.write("a", "first");
    temporary_.write("b", "second");
    fs::create_directory(temporary_.path() / "folder");
    EXPECT_EQ(move("a", "b"), std::errc::file_exists);
    EXPECT_EQ(move("folder", "b"), std::errc::file_exists);
    EXPECT_EQ(temporary_.names(), (Names{"a", "b", "folder"}));
    EXPECT_EQ(temporary_.content("a"), "first");
    EXPECT_EQ(temporary_.content("b"), "second");
}

TEST_F(EntryMoverTest, NeverReplacesAnEmptyFolder)
{
    temporary_.write("a", "first");
    fs::create_directory(temporary_.path() / "full");
    temporary_.write("full/inside", "content");
    fs::create_directory(temporary_.path() / "empty");
    EXPECT_EQ(move("a", "empty"), std::errc::file_exists);
    EXPECT_EQ(move("full", "empty"), std::errc::file_exists);
    EXPECT_EQ(temporary_.names(), (Names{"a", "empty", "full"}));
    EXPECT_TRUE(fs::is_directory(temporary_.path() / "empty"));
    EXPECT_EQ(temporary_.content("full/inside"), "content");
}

TEST_F(EntryMoverTest, NeverReplacesAFullFolder)
{
    temporary_.write("a", "first");
    fs::create_directory(temporary_.path() / "empty");
    fs::create_directory(temporary_.path() / "full");
    temporary_.write("full/inside", "content");
    EXPECT_EQ(move("a", "full"), std::errc::file_exists);
    EXPECT_EQ(move("empty", "full"), std::errc::file_exists);
    EXPECT_EQ(temporary_.names(), (Names{"a", "empty", "full"}));
    EXPECT_EQ(temporary_.content("full/inside"), "content");
}

TEST_F(EntryMoverTest, SaysThatTheEntryOrItsFolderIsGone)
{
    EXPECT_EQ(move("absent", "b"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(mover_.move(in_folder("absent"), "a", "b"), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(temporary_.names().empty());
}

TEST_F(EntryMoverTest, ChangesTheCaseAlone)
{
    temporary_.write("a", "content");
    fs::create_directory(temporary_.path() / "folder");
    EXPECT_FALSE(move("a", "A"));
    EXPECT_FALSE(move("folder", "Folder"));
    EXPECT_TRUE(exists("A"));
    EXPECT_TRUE(exists("Folder"));
    EXPECT_EQ(temporary_.names().size(), 2U);
    EXPECT_EQ(temporary_.content("A"), "content");
}

TEST_F(EntryMoverTest, WorksInOneFolderAfterTheOther)
{
    for (const char* folder : {"x", "y"}) {
        fs::create_directory(temporary_.path() / folder);
        temporary_.write(std::string(folder) + "/a", folder);
    }
    EXPECT_FALSE(mover_.move(in_folder("x"), "a", "b"));
    EXPECT_FALSE(mover_.move(in_folder("y"), "a", "c"));
    EXPECT_TRUE(mover_.move(in_folder("absent"), "a", "b"));
    EXPECT_FALSE(mover_.move(in_folder("y"), "c", "d"));
    EXPECT_EQ(temporary_.content("x/b"), "x");
    EXPECT_EQ(temporary_.content("y/d"), "y");
}

TEST_F(EntryMoverTest, TakesNamesOfEveryScript)
{
    temporary_.write("a", "content");
    EXPECT_FALSE(move("a", "caf\xC3\xA9 \xE5\x86\x99\xE7\x9C\x9F \xF0\x9F\x93\xB7.txt"));
    EXPECT_FALSE(exists("a"));
    EXPECT_TRUE(exists("caf\xC3\xA9 \xE5\x86\x99\xE7\x9C\x9F \xF0\x9F\x93\xB7.txt"));
}

TEST_F(EntryMoverTest, LeavesAllAsItWasWhenTheNameIsTooLong)
{
    const std::string longest(255, 'n');
    temporary_.write("a", "content");
    EXPECT_TRUE(move("a", longest + "n"));
    EXPECT_EQ(temporary_.names(), Names{"a"});
    EXPECT_FALSE(move("a", longest));
    EXPECT_TRUE(exists(longest));
}

TEST_F(EntryMoverTest, TellsWhetherAnEntryExists)
{
    temporary_.write("file", "");
    fs::create_directory(temporary_.path() / "folder");
    EXPECT_TRUE(exists("file"));
    EXPECT_TRUE(exists("folder"));
    EXPECT_FALSE(exists("absent"));
}

TEST_F(EntryMoverTest, NothingExistsInAFolderThatDoesNot)
{
    temporary_.write("file", "");
    for (const char* folder : {"absent", "file"}) {
        std::error_code error = std::make_error_code(std::errc::io_error);
        EXPECT_FALSE(mover_.exists(in_folder(folder), "a", error));
        EXPECT_FALSE(error) << error.message();
    }
}

} // namespace
} // namespace multirename
