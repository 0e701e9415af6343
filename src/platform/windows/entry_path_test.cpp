#include "platform/entry_path.h"

#include <gtest/gtest.h>

#include "platform/native_text.h"
#include "platform/testing/temporary_folder.h"
#include "platform/user_folders.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

class WindowsEntryPaths : public testing::Test {
protected:
    void SetUp() override { fs::create_directory(temporary_.path() / "Sub"); }

    [[nodiscard]] std::string bytes(const std::string& path) const
    {
        return native_bytes(temporary_.path()) + "\\" + path;
    }
    [[nodiscard]] std::u16string folder(const std::string& path) const { return path_from_native(bytes(path)); }

    EntryPath taken_apart(const std::string& path)
    {
        EntryPath found;
        const std::error_code error = paths_.entry(path, found);
        EXPECT_FALSE(error) << path << ": " << error.message();
        return found;
    }

    std::error_code refusal(const std::string& path)
    {
        EntryPath found;
        return paths_.entry(path, found);
    }

    TemporaryFolder temporary_;
    EntryPaths paths_;
};

TEST_F(WindowsEntryPaths, BothSlashesSeparate)
{
    for (const char* path : {"Sub\\file", "Sub/file", "Sub\\/file", "Sub/file\\", "Sub\\file//"}) {
        EXPECT_EQ(taken_apart(bytes(path)).folder, folder("Sub\\"));
        EXPECT_EQ(taken_apart(bytes(path)).name, u"file");
    }
}

TEST_F(WindowsEntryPaths, DrivesSharesAndDevicesHaveNoNameOfTheirOwn)
{
    for (const char* path :
         {"C:", "C:\\", "C:/", R"(c:\\)", "C:.", "C:..", "\\", R"(\\server\share)", "//server/share/", R"(\\server)",
          R"(\\?\C:\)", R"(\\?\UNC\server\share\)", "nul", R"(\\.\pipe)"})
        EXPECT_EQ(refusal(path), std::errc::invalid_argument) << path;
}

TEST_F(WindowsEntryPaths, DotsAndSpacesAloneAreNoName)
{
    for (const char* path : {"Sub\\..", "Sub\\.", "Sub\\...", "Sub\\. .", "Sub\\ ", "Sub/../"})
        EXPECT_EQ(refusal(bytes(path)), std::errc::invalid_argument) << path;
}

TEST_F(WindowsEntryPaths, PathsOf260CharactersAndMoreAreTooLong)
{
    const std::string longest(259 - folder("").size(), 'n');
    EXPECT_EQ(taken_apart(bytes(longest)).name, path_from_native(longest));
    EXPECT_EQ(refusal(bytes(longest + "n")), std::errc::filename_too_long);
    EXPECT_EQ(refusal(bytes(longest + "/n")), std::errc::filename_too_long);
    EXPECT_EQ(taken_apart(bytes("Sub/../" + longest)).name, path_from_native(longest));
}

TEST_F(WindowsEntryPaths, CharactersAreCountedAndNotBytes)
{
    std::string name;
    for (std::size_t i = folder("").size(); i < 259; ++i)
        name += "\u00E9";
    EXPECT_EQ(taken_apart(bytes(name)).name, name_from_native(name));
}

TEST_F(WindowsEntryPaths, OneFolderSpelledInTwoCasesGivesOneText)
{
    EXPECT_EQ(taken_apart(bytes("Sub\\file")).folder, folder("Sub\\"));
    EXPECT_EQ(taken_apart(bytes("SUB\\file")).folder, folder("Sub\\"));
}

TEST_F(WindowsEntryPaths, TheLongFormOfAPathIsTheSameFolder)
{
    EXPECT_EQ(taken_apart(bytes("Sub\\file")).folder, folder("Sub\\"));
    EXPECT_EQ(taken_apart("\\\\?\\" + bytes("Sub\\file")).folder, folder("Sub\\"));
}

TEST_F(WindowsEntryPaths, HalvesOfPairsMayStandAlone)
{
    EXPECT_EQ(taken_apart(bytes("half\xED\xA0\xBD.txt")).name, std::u16string(u"half\xD83D.txt"));
}

TEST_F(WindowsEntryPaths, APathBehindADriveAloneBeginsInItsWorkingDirectory)
{
    const WorkingDirectory here(temporary_.path());
    const EntryPath path = taken_apart(bytes("").substr(0, 2) + "Sub");
    EXPECT_EQ(path.folder, folder(""));
    EXPECT_EQ(path.name, u"Sub");
}

TEST_F(WindowsEntryPaths, ADriveIsAFolder)
{
    EXPECT_EQ(taken_apart("C:\\name").folder, u"C:\\");
    std::u16string path;
    EXPECT_FALSE(paths_.folder("c:/", path));
    EXPECT_EQ(path, u"C:\\");
}

} // namespace
} // namespace multirename
