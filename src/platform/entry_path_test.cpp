#include "platform/entry_path.h"

#include <gtest/gtest.h>

#include "platform/native_text.h"
#include "platform/testing/temporary_folder.h"
#include "platform/user_folders.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

class EntryPathsTest : public testing::Test {
protected:
    void SetUp() override { fs::create_directory(folder() / "sub"); }

    [[nodiscard]] const fs::path& folder() const { return temporary_.path(); }
    [[nodiscard]] static std::u16string engine(const fs::path& path)
    {
        return path_from_native(native_bytes(path)) + u"\\";
    }

    EntryPath taken_apart(const std::string& native_path)
    {
        EntryPath path;
        const std::error_code error = paths_.entry(native_path, path);
        EXPECT_FALSE(error) << native_path << ": " << error.message();
        return path;
    }

    std::error_code refusal(const std::string& native_path)
    {
        EntryPath path{u"before\\", u"before"};
        const std::error_code error = paths_.entry(native_path, path);
        EXPECT_EQ(path.folder, u"before\\") << native_path;
        EXPECT_EQ(path.name, u"before") << native_path;
        return error;
    }

    TemporaryFolder temporary_;
    EntryPaths paths_;
};

TEST_F(EntryPathsTest, GiveTheFolderAndTheNameOfAnEntry)
{
    const EntryPath path = taken_apart(native_bytes(folder() / "sub" / u"caf\u00E9.txt"));
    EXPECT_EQ(path.folder, engine(folder() / "sub"));
    EXPECT_EQ(path.name, u"caf\u00E9.txt");
}

TEST_F(EntryPathsTest, TakeAFolderForAnEntryOfItsParent)
{
    const EntryPath path = taken_apart(native_bytes(folder() / "sub"));
    EXPECT_EQ(path.folder, engine(folder()));
    EXPECT_EQ(path.name, u"sub");
}

TEST_F(EntryPathsTest, TakeAPathThatEndsInSeparatorsForTheFolderItself)
{
    for (const char* end : {"/", "//"}) {
        const EntryPath path = taken_apart(native_bytes(folder() / "sub") + end);
        EXPECT_EQ(path.folder, engine(folder()));
        EXPECT_EQ(path.name, u"sub");
    }
}

TEST_F(EntryPathsTest, BeginRelativePathsInTheWorkingDirectory)
{
    const WorkingDirectory here(folder());
    EXPECT_EQ(taken_apart("file").folder, engine(folder()));
    EXPECT_EQ(taken_apart("file").name, u"file");
    EXPECT_EQ(taken_apart("./file").folder, engine(folder()));
    EXPECT_EQ(taken_apart("sub/file").folder, engine(folder() / "sub"));
    EXPECT_EQ(taken_apart("sub/../file").folder, engine(folder()));
    EXPECT_EQ(taken_apart("../file").folder, engine(folder().parent_path()));
}

TEST_F(EntryPathsTest, GiveOneTextForEveryWayToAFolder)
{
    const WorkingDirectory here(folder());
    const std::u16string expected = engine(folder());
    for (const std::string& way : {std::string("."), std::string("sub/.."), std::string("./"), native_bytes(folder()),
                                   native_bytes(folder()) + "/", native_bytes(folder() / "sub" / "..")}) {
        std::u16string path;
        EXPECT_FALSE(paths_.folder(way, path)) << way;
        EXPECT_EQ(path, expected) << way;
    }
}

TEST_F(EntryPathsTest, RefuseWhatHasNoNameOfItsOwn)
{
    const WorkingDirectory here(folder());
    for (const char* path : {"", ".", "..", "./", "../", "sub/.", "sub/..", "sub/../", "/", "//"})
        EXPECT_EQ(refusal(path), std::errc::invalid_argument) << path;
}

TEST_F(EntryPathsTest, DoNotLookForTheEntry)
{
    EXPECT_EQ(taken_apart(native_bytes(folder() / "absent")).name, u"absent");
}

TEST_F(EntryPathsTest, SayThatAFolderIsMissing)
{
    EXPECT_EQ(refusal(native_bytes(folder() / "absent" / "file")), std::errc::no_such_file_or_directory);
    std::u16string path = u"before";
    EXPECT_EQ(paths_.folder(native_bytes(folder() / "absent"), path), std::errc::no_such_file_or_directory);
    EXPECT_EQ(paths_.folder("", path), std::errc::no_such_file_or_directory);
    EXPECT_EQ(path, u"before");
}

TEST_F(EntryPathsTest, SayThatAFileIsNoFolder)
{
    temporary_.write("file", "");
    EXPECT_EQ(refusal(native_bytes(folder() / "file" / "x")), std::errc::not_a_directory);
    std::u16string path = u"before";
    EXPECT_EQ(paths_.folder(native_bytes(folder() / "file"), path), std::errc::not_a_directory);
    EXPECT_EQ(path, u"before");
}

TEST_F(EntryPathsTest, RememberWhatWasFoundOutAboutAFolder)
{
    const std::string path = native_bytes(folder() / "sub" / "file");
    EXPECT_EQ(taken_apart(path).folder, engine(folder() / "sub"));
    fs::remove(folder() / "sub");
    EXPECT_EQ(taken_apart(path).folder, engine(folder() / "sub"));
    EntryPath asked_anew;
    EXPECT_TRUE(EntryPaths().entry(path, asked_anew));
}

TEST_F(EntryPathsTest, LookAgainForAFolderThatWasMissing)
{
    const std::string path = native_bytes(folder() / "new" / "file");
    EXPECT_TRUE(refusal(path));
    fs::create_directory(folder() / "new");
    EXPECT_EQ(taken_apart(path).folder, engine(folder() / "new"));
}

} // namespace
} // namespace multirename
