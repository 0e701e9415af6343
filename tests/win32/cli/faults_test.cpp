// What becomes of the files when something gets in the way of a rename on the command line.

#include <windows.h>

#include "cli/console_story.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"

namespace {

using multirename::to_wide;
using multirename::UniqueFile;
using testing::AllOf;
using testing::HasSubstr;

class ConsoleFaults : public ConsoleStory {
protected:
    /// Has the user edit the names of a1 and a2 to b1 and b2 in an editor that runs the command before.
    [[nodiscard]] ConsoleResult edit_while(const std::string& command) const
    {
        return edit({u"a1", u"a2"}, "@echo off\r\n" + command + "\r\necho b1> %1\r\necho b2>> %1\r\n");
    }

    /// The files but for the editor.
    [[nodiscard]] Files files() const
    {
        Files all = folder.files();
        all.erase(u"editor.cmd");
        return all;
    }
};

TEST_F(ConsoleFaults, AFileThatIsOpenStaysAndTheOthersAreRenamed)
{
    folder.make_file(u"a1");
    folder.make_file(u"a3");
    const std::u16string path = folder.make_file(u"a2");
    ConsoleResult result;
    {
        const UniqueFile held(CreateFileW(to_wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
        result = run({u"rename", u"a1", u"a2", u"a3", u"--text", u"1=b"});
    }
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("a2\" to \"b2\""));
    EXPECT_EQ(files(), (Files{{u"b1", u"a1"}, {u"a2", u"a2"}, {u"b3", u"a3"}}));
}

TEST_F(ConsoleFaults, AReadOnlyFileIsRenamedAndStaysReadOnly)
{
    SetFileAttributesW(to_wide(folder.make_file(u"a1")).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(run({u"rename", u"a1", u"--text", u"1=b1"}).exit_status, done);
    EXPECT_EQ(files(), (Files{{u"b1", u"a1"}}));
    EXPECT_NE(GetFileAttributesW(to_wide(folder.path_of(u"b1")).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(ConsoleFaults, ANewNameThatMakesThePathTooLongIsRefusedBeforeAnythingIsTouched)
{
    const std::u16string deep(180, u'd');
    folder.make_folder(deep);
    folder.make_file(deep + u"\\a1");
    folder.make_file(deep + u"\\a2");
    const Files before = files();
    const ConsoleResult result = run({u"rename", u"--in", deep, u"--text", u"1=" + std::u16string(100, u'b')});
    EXPECT_NE(result.exit_status, done);
    EXPECT_THAT(result.errors, HasSubstr("Windows takes at most 259"));
    EXPECT_EQ(files(), before);
}

TEST_F(ConsoleFaults, AFileWhosePathIsTooLongIsSaid)
{
    const std::u16string deep(200, u'd');
    folder.make_folder(deep);
    folder.make_file(deep + u"\\a" + std::u16string(60, u'x'));
    const Files before = files();
    const ConsoleResult result = run({u"rename", deep + u"\\a" + std::u16string(60, u'x'), u"--text", u"1=b"});
    EXPECT_EQ(result.exit_status, wrong_command_line);
    EXPECT_FALSE(result.errors.empty());
    EXPECT_EQ(files(), before);
}

TEST_F(ConsoleFaults, AFileThatAppearsWhileTheUserEditsIsNotReplaced)
{
    folder.make_file(u"a1");
    folder.make_file(u"a2");
    const ConsoleResult result = edit_while("echo other> B2");
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, AllOf(HasSubstr("a2\" to \"b2\""), HasSubstr("has appeared meanwhile")));
    EXPECT_EQ(contents_of(folder.path_of(u"b1")), u"a1");
    EXPECT_EQ(contents_of(folder.path_of(u"a2")), u"a2");
    EXPECT_EQ(files().size(), 3U);
    EXPECT_TRUE(files().contains(u"B2"));
}

TEST_F(ConsoleFaults, AFileThatGoesWhileTheUserEditsKeepsNoOtherFromItsName)
{
    folder.make_file(u"a1");
    folder.make_file(u"a2");
    const ConsoleResult result = edit_while("del a2");
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("a2\" to \"b2\""));
    EXPECT_EQ(files(), (Files{{u"b1", u"a1"}}));
}

} // namespace
