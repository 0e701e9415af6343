// Which libraries the program takes, whatever lies beside it or where it is started.

#include <gmock/gmock.h>

#include <windows.h>

#include "launcher/launched_program.h"
#include "platform/windows/wide.h"
#include "support/decoys.h"
#include "support/temp_folder.h"
#include "win32/launcher/program_paths.h"

namespace {

using multirename::to_wide;
using testing::HasSubstr;
using testing::IsEmpty;

class LibrarySearch : public testing::Test {
protected:
    LibrarySearch()
    {
        folder.make_folder(u"program");
        copy(u"multirename-gui.exe");
    }

    void copy(const std::u16string& name) const
    {
        const std::u16string original = multirename::program_folder() + name;
        EXPECT_NE(CopyFileW(to_wide(original).c_str(), to_wide(folder.path_of(u"program\\" + name)).c_str(), TRUE),
                  FALSE);
    }

    /// The copy, started in the folder of the files.
    [[nodiscard]] LaunchedProgram::Start started_on(std::u16string path) const
    {
        return {{std::move(path)}, folder.path(), folder.path_of(u"program\\multirename-gui.exe")};
    }

    /// The copy and its module rename a file without loading a decoy.
    void expect_rename_without(const Decoys& decoys) const
    {
        copy(u"multirename.dll");
        const LaunchedProgram program(started_on(folder.make_file(u"a")));
        program.rename_with_prefix(u"new ");
        EXPECT_EQ(program.exit_status(), 0U);
        EXPECT_THAT(decoys.loaded(), IsEmpty());
        EXPECT_EQ(contents_of(folder.path_of(u"new a")), u"a");
    }

    TempFolder folder;
};

} // namespace

TEST_F(LibrarySearch, TakesTheModuleFromBesideTheProgramAlone)
{
    const Decoys decoys(folder.path(), {u"multirename.dll"});
    const LaunchedProgram program(started_on(folder.make_file(u"a")));
    EXPECT_THAT(program.take_message(), HasSubstr("cannot be loaded"));
    EXPECT_EQ(program.exit_status(), 1U);
    EXPECT_THAT(decoys.loaded(), IsEmpty());
}

TEST_F(LibrarySearch, TakesNoLibraryOfTheSystemsNamesFromTheWorkingFolder)
{
    expect_rename_without(Decoys(folder.path(), libraries_loaded_by_name));
}

TEST_F(LibrarySearch, TakesNoLibraryOfTheSystemsNamesFromBesideTheProgram)
{
    expect_rename_without(Decoys(folder.path_of(u"program"), libraries_loaded_by_name));
}

TEST_F(LibrarySearch, TheFileDialogTakesNoLibraryFromBesideTheProgram)
{
    const Decoys decoys(folder.path_of(u"program"), libraries_loaded_by_name);
    LaunchedProgram::Start start = started_on({});
    start.words.clear();
    const LaunchedProgram program(start);
    const HWND dialog = program.file_dialog();
    EXPECT_THAT(decoys.loaded(), IsEmpty());
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_THAT(decoys.loaded(), IsEmpty());
}
