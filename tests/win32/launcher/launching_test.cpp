// What the program does with what stands on its command line.

#include <gmock/gmock.h>

#include <windows.h>

#include "launcher/launched_program.h"
#include "platform/windows/wide.h"
#include "support/temp_folder.h"
#include "text/utf8.h"

namespace {

using multirename::to_bytes;
using multirename::to_wide;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

using Words = std::vector<std::u16string>;

class Launching : public testing::Test {
protected:
    /// A file with just these bytes; gives the word that names it as a list file.
    [[nodiscard]] std::u16string list_file(std::string_view bytes) const
    {
        return u"@" + folder.write_file(u"list.txt", bytes);
    }

    /// The files but for the list file.
    [[nodiscard]] Files renamed_files() const
    {
        Files files = folder.files();
        files.erase(u"list.txt");
        return files;
    }

    [[nodiscard]] LaunchedProgram::Start in_folder(Words words) const { return {std::move(words), folder.path(), {}}; }

    /// A copy of the program in a folder where only a test puts a module.
    [[nodiscard]] LaunchedProgram::Start without_its_module(Words words) const
    {
        const std::u16string copy = folder.path_of(u"multirename-gui.exe");
        EXPECT_NE(CopyFileW(to_wide(launcher_path()).c_str(), to_wide(copy).c_str(), TRUE), FALSE);
        return {std::move(words), {}, copy};
    }

    [[nodiscard]] std::string shown_path(std::u16string_view name) const { return to_bytes(folder.path_of(name)); }

    TempFolder folder;
};

} // namespace

TEST_F(Launching, OpensTheDialogOnThePathsOfTheCommandLine)
{
    const Words paths = {folder.make_file(u"a 1.txt"), folder.make_file(u"a 2.txt")};
    folder.make_file(u"a 3.txt");
    const LaunchedProgram program(paths);
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(),
              (Files{{u"new a 1.txt", u"a 1.txt"}, {u"new a 2.txt", u"a 2.txt"}, {u"a 3.txt", u"a 3.txt"}}));
}

TEST_F(Launching, EndsWellWhenTheDialogIsCancelled)
{
    const LaunchedProgram program({folder.make_file(u"a")});
    program.cancel_rename_dialog();
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"a", u"a"}}));
}

TEST_F(Launching, TheDialogHasAPlaceInTheTaskbarOfItsOwn)
{
    const LaunchedProgram program({folder.make_file(u"a")});
    const HWND dialog = program.rename_dialog();
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
    EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
}

TEST_F(Launching, TakesThePathsOfAListFileWithAMarkAndWindowsLineEnds)
{
    folder.make_file(u"f\u00F6hn 1.txt");
    folder.make_file(u"f\u00F6hn 2.txt");
    const LaunchedProgram program(in_folder({list_file("\xEF\xBB\xBF"
                                                       "f\xC3\xB6hn 1.txt\r\n\r\nf\xC3\xB6hn 2.txt\r\n")}));
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(renamed_files(), (Files{{u"new föhn 1.txt", u"föhn 1.txt"}, {u"new föhn 2.txt", u"föhn 2.txt"}}));
}

TEST_F(Launching, MixesPathsAndListFiles)
{
    folder.make_file(u"a 2.txt");
    const LaunchedProgram program(
        in_folder({folder.make_file(u"a 1.txt"), list_file("a 2.txt\n"), folder.make_file(u"a 3.txt")}));
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(renamed_files(),
              (Files{{u"new a 1.txt", u"a 1.txt"}, {u"new a 2.txt", u"a 2.txt"}, {u"new a 3.txt", u"a 3.txt"}}));
}

TEST_F(Launching, TakesRelativePathsFromTheWorkingFolder)
{
    folder.make_folder(u"sub");
    folder.make_file(u"sub\\x 1.txt");
    folder.make_file(u"x 2.txt");
    const LaunchedProgram program(in_folder({u"sub\\x 1.txt", u".\\sub/..\\x 2.txt"}));
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"sub\\new x 1.txt", u"sub\\x 1.txt"}, {u"new x 2.txt", u"x 2.txt"}}));
}

TEST_F(Launching, TakesLettersOfEveryScript)
{
    const LaunchedProgram program({folder.make_file(u"日本 ünïcödé 😀.txt")});
    program.rename_with_prefix(u"ß ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"ß 日本 ünïcödé 😀.txt", u"日本 ünïcödé 😀.txt"}}));
}

TEST_F(Launching, TakesAFolderWithABackslashAtItsEnd)
{
    folder.make_folder(u"sub");
    const LaunchedProgram program(in_folder({u"sub\\"}));
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"new sub", u"<folder>"}}));
}

TEST_F(Launching, TakesTheFolderThatItWasStartedIn)
{
    const std::u16string sub = folder.make_folder(u"sub");
    const LaunchedProgram program(LaunchedProgram::Start{{u"."}, sub, {}});
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"new sub", u"<folder>"}}));
}

TEST_F(Launching, TakesOptionsAndListFilesForPathsBehindTheEndOfOptions)
{
    folder.make_file(u"@list.txt");
    folder.make_file(u"--help");
    const LaunchedProgram program(in_folder({u"--", u"@list.txt", u"--help"}));
    program.rename_with_prefix(u"x");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"x@list.txt", u"@list.txt"}, {u"x--help", u"--help"}}));
}

TEST_F(Launching, RefusesAnUnknownOption)
{
    const LaunchedProgram program({u"--frob", folder.make_file(u"a")});
    EXPECT_THAT(program.take_message(), StartsWith("\"--frob\" is not an option of Multi Rename."));
    EXPECT_EQ(program.exit_status(), 2U);
}

TEST_F(Launching, SaysWhichListFileCannotBeRead)
{
    const LaunchedProgram program(in_folder({u"@no such list.txt"}));
    EXPECT_THAT(program.take_message(),
                StartsWith("The list file cannot be read:\n\n" + shown_path(u"no such list.txt") + "\n"));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, SaysWhichLineOfAListFileIsNotUtf8)
{
    const LaunchedProgram program({list_file("a\nb\nf\xF6hn\n")});
    EXPECT_THAT(program.take_message(),
                StartsWith("Line 3 of the list file is not UTF-8 text:\n\n" + shown_path(u"list.txt") + "\n"));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, RefusesAListFileWithoutPaths)
{
    const LaunchedProgram program({list_file("\xEF\xBB\xBF\r\n\r\n"), folder.make_file(u"a")});
    EXPECT_THAT(program.take_message(), StartsWith("There is no path in the list file:\n\n"));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, GoesOnWithTheOtherPathsWhenTheUserSaysSo)
{
    const LaunchedProgram program(in_folder({folder.make_file(u"a 1.txt"), u"lost.txt", folder.make_file(u"a 2.txt")}));
    EXPECT_EQ(program.take_message(IDOK),
              "1 of the 3 paths cannot be renamed:\n\n" + shown_path(u"lost.txt") +
                  " (not found)\n\nGo on with the other 2?");
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"new a 1.txt", u"a 1.txt"}, {u"new a 2.txt", u"a 2.txt"}}));
}

TEST_F(Launching, OpensNothingWhenTheUserDoesNotGoOn)
{
    const LaunchedProgram program(in_folder({folder.make_file(u"a"), u"lost.txt"}));
    EXPECT_THAT(program.take_message(IDCANCEL), HasSubstr("lost.txt (not found)"));
    EXPECT_EQ(program.exit_status(), 0U);
}

TEST_F(Launching, OpensNothingWhenNoPathIsThere)
{
    const LaunchedProgram program(in_folder({u"lost 1.txt", u"lost 2.txt"}));
    EXPECT_THAT(program.take_message(), StartsWith("None of the 2 paths can be renamed:\n\n"));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, TellsOfPathsThatAreTooLongAndOfDrives)
{
    const std::u16string long_path = folder.make_file(std::u16string(255, u'x'));
    ASSERT_GE(long_path.size(), 260U);
    const LaunchedProgram program({long_path, u"C:\\"});
    EXPECT_THAT(program.take_message(),
                AllOf(HasSubstr("xxx (the path is too long)\n"), HasSubstr("C:\\ (not a file or folder)\n")));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, SaysWhatToDoWhenTheModuleIsMissing)
{
    const LaunchedProgram program(without_its_module({folder.make_file(u"a")}));
    EXPECT_THAT(program.take_message(),
                AllOf(HasSubstr(shown_path(u"multirename.dll") + "\n"),
                      HasSubstr("Put multirename.dll and multirename-gui.exe of the same version into one folder.")));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, SaysWhatToDoWhenTheModuleIsDamaged)
{
    folder.make_file(u"multirename.dll");
    const LaunchedProgram program(without_its_module({folder.make_file(u"a")}));
    EXPECT_THAT(program.take_message(),
                AllOf(HasSubstr(shown_path(u"multirename.dll") + "\n"), testing::Not(HasSubstr("%1")),
                      HasSubstr("of the same version")));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, SaysWhatToDoWhenAnotherLibraryHasTheModulesName)
{
    ASSERT_NE(
        CopyFileW(L"C:\\windows\\system32\\version.dll", to_wide(folder.path_of(u"multirename.dll")).c_str(), TRUE),
        FALSE);
    const LaunchedProgram program(without_its_module({folder.make_file(u"a")}));
    EXPECT_THAT(program.take_message(), StartsWith("This is not the multirename.dll of Multi Rename:"));
    EXPECT_EQ(program.exit_status(), 1U);
}

TEST_F(Launching, WritesTheHelpToTheStandardOutput)
{
    const LaunchedProgram program({u"--help"});
    EXPECT_THAT(program.output(),
                AllOf(StartsWith("multirename-gui.exe [PATH...]\r\n"), HasSubstr("\r\n--install-sendto\r\n")));
    EXPECT_EQ(program.exit_status(), 0U);
}

TEST_F(Launching, WritesTheVersionToTheStandardOutput)
{
    const LaunchedProgram program({u"--version"});
    EXPECT_EQ(program.output(), "Multi Rename " LAUNCHER_VERSION "\r\n");
    EXPECT_EQ(program.exit_status(), 0U);
}
