// The program as its users run it, renaming real files through the shell.

#include <windows.h>

#include "cli/console_story.h"
#include "platform/windows/wide.h"
#include "support/program_file.h"

namespace {

using multirename::to_wide;
using testing::HasSubstr;
using testing::IsEmpty;

class ConsoleProgram : public ConsoleStory { };

TEST_F(ConsoleProgram, RenamesThroughTheShellAndTakesItBack)
{
    folder.make_file(u"IMG_7.jpg");
    folder.make_file(u"IMG_8.jpg");
    const Files before = folder.files();
    const ConsoleResult result = run({u"rename", u"IMG_7.jpg", u"IMG_8.jpg", u"--text", u"1=caf\u00E9 \u6F22 "});
    EXPECT_EQ(result.exit_status, done) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("2 files renamed."));
    EXPECT_EQ(folder.files(),
              (Files{{u"caf\u00E9 \u6F22 7.jpg", u"IMG_7.jpg"}, {u"caf\u00E9 \u6F22 8.jpg", u"IMG_8.jpg"}}));
    EXPECT_EQ(run({u"undo"}).exit_status, done);
    EXPECT_EQ(folder.files(), before);
}

TEST_F(ConsoleProgram, ShiftsNumbersByOneWithoutATemporaryName)
{
    for (const char16_t digit : std::u16string(u"12345"))
        folder.make_file(u"scan " + std::u16string(1, digit) + u".tif");
    const Files before = folder.files();
    EXPECT_EQ(run({u"rename", u"--in", u".", u"--renumber", u"2=2"}).exit_status, done);
    EXPECT_EQ(folder.files().at(u"scan 6.tif"), u"scan 5.tif");
    EXPECT_EQ(folder.files().size(), before.size());
    EXPECT_EQ(run({u"undo"}).exit_status, done);
    EXPECT_EQ(folder.files(), before);
}

TEST_F(ConsoleProgram, RenamesAFolderAndItsContentsInOneBatch)
{
    folder.make_folder(u"set 1");
    folder.make_file(u"set 1\\part 1.txt");
    folder.make_folder(u"set 2");
    const Files before = folder.files();
    const ConsoleResult result = run({u"rename", u"set 1", u"set 1\\part 1.txt", u"set 2", u"--text", u"1=new "});
    EXPECT_EQ(result.exit_status, done) << result.errors;
    EXPECT_EQ(folder.files().count(u"new set 1\\new part 1.txt"), 1U);
    EXPECT_EQ(run({u"undo"}).exit_status, done);
    EXPECT_EQ(folder.files(), before);
}

TEST_F(ConsoleProgram, RefusesTheWholeBatchInTheDialogsWords)
{
    folder.make_file(u"a1");
    folder.make_file(u"a2");
    folder.make_file(u"B2");
    const Files before = folder.files();
    const ConsoleResult result = run({u"rename", u"a1", u"a2", u"--text", u"1=b"});
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("1 file is being renamed to the same name as an existing file."));
    EXPECT_EQ(folder.files(), before);
}

TEST_F(ConsoleProgram, WhatTheShellDidNotDoIsSaid)
{
    folder.make_file(u"a1");
    folder.make_file(u"a2");
    // A file that is open without leave to rename it.
    const HANDLE held =
        CreateFileW(to_wide(folder.path_of(u"a2")).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    const ConsoleResult result = run({u"rename", u"a1", u"a2", u"--text", u"1=b"});
    CloseHandle(held);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("a2\" to \"b2\""));
    EXPECT_EQ(folder.files().count(u"a2"), 1U);
    run({u"undo"});
    EXPECT_EQ(folder.files().count(u"a1"), 1U);
}

TEST_F(ConsoleProgram, UndoNeverReplacesAFile)
{
    folder.make_file(u"a1");
    folder.make_file(u"a2");
    EXPECT_EQ(run({u"rename", u"a1", u"a2", u"--text", u"1=b"}).exit_status, done);
    folder.make_file(u"a1");
    const ConsoleResult result = run({u"undo"});
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("the old name belongs to another file now"));
    EXPECT_EQ(folder.files().count(u"b1"), 1U);
    EXPECT_EQ(folder.files().count(u"a2"), 1U);
    DeleteFileW(to_wide(folder.path_of(u"a1")).c_str());
    EXPECT_EQ(run({u"undo"}).exit_status, done);
}

TEST_F(ConsoleProgram, ListsTheBatchesThatCanBeTakenBack)
{
    folder.make_file(u"a1");
    EXPECT_EQ(run({u"rename", u"a1", u"--text", u"1=b1"}).exit_status, done);
    const ConsoleResult result = run({u"undo", u"--list", u"--format", u"tsv"});
    EXPECT_EQ(result.exit_status, done);
    std::string escaped;
    for (const char16_t unit : folder.path() + u"\\")
        escaped += unit == u'\\' ? "\\\\" : std::string(1, static_cast<char>(unit));
    EXPECT_THAT(result.output, HasSubstr("\t1\t" + escaped + "\n"));
    EXPECT_EQ(run({u"undo"}).exit_status, done);
}

TEST_F(ConsoleProgram, TakesListsOfNamesFromStandardInput)
{
    const ConsoleResult result =
        run({u"preview", u"--names", u"-", u"--text", u"1=x", u"--format", u"tsv"}, "a:1\r\na:2\r\n");
    EXPECT_EQ(result.exit_status, done) << result.errors;
    EXPECT_EQ(result.output,
              "old\tnew\tfolder\tstatus\tinScope\tmatched\n"
              "a:1\tx1\t\t2\ttrue\ttrue\na:2\tx2\t\t2\ttrue\ttrue\n");
}

TEST_F(ConsoleProgram, TakesTheLinesOfTheEditor)
{
    folder.make_file(u"a1.txt");
    folder.make_file(u"a2.txt");
    const ConsoleResult result = edit({u"a1.txt", u"a2.txt"}, "@echo north> %1\r\n@echo south>> %1\r\n");
    EXPECT_EQ(result.exit_status, done) << result.errors;
    EXPECT_EQ(folder.files().count(u"north.txt"), 1U);
    EXPECT_EQ(folder.files().count(u"south.txt"), 1U);
    EXPECT_EQ(run({u"undo"}).exit_status, done);
}

TEST_F(ConsoleProgram, SaysWhatIsWrong)
{
    EXPECT_EQ(run({}).exit_status, wrong_command_line);
    EXPECT_EQ(run({u"rename", u"absent", u"--text", u"1=x"}).exit_status, wrong_command_line);
    EXPECT_EQ(run({u"rename", u"/in", u"."}).exit_status, wrong_command_line);
    EXPECT_THAT(run({u"rename", u"C:\\"}).errors, HasSubstr("has no name of its own"));
    EXPECT_THAT(run({u"rename", u"--help"}).output, HasSubstr("Examples:\n"));
}

TEST_F(ConsoleProgram, NeedsNoLibraryButTheSystemsOwn)
{
    const HMODULE program = LoadLibraryExW(L"multirename.exe", nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(program, nullptr);
    for (const std::string& library : imported_libraries(program))
        EXPECT_THAT(library, testing::AnyOf("kernel32.dll", "msvcrt.dll", "shell32.dll", "user32.dll", "advapi32.dll"))
            << library;
    FreeLibrary(program);
}

TEST_F(ConsoleProgram, LeavesMistakesWithMemoryOfNoUse)
{
    const HMODULE program = LoadLibraryExW(L"multirename.exe", nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(program, nullptr);
    EXPECT_THAT(missing_protections(program), IsEmpty());
    FreeLibrary(program);
}

} // namespace
