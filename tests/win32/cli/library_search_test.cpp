// Which libraries and programs the program takes, whatever lies beside it or among the files to be renamed.

#include <gmock/gmock.h>

#include <windows.h>

#include "cli/console_program.h"
#include "platform/windows/wide.h"
#include "support/decoys.h"
#include "support/temp_folder.h"

namespace {

using multirename::to_wide;
using testing::IsEmpty;

TEST(ConsoleLibrarySearch, TakesNoLibraryOfTheSystemsNamesFromBesideTheProgram)
{
    const TempFolder folder;
    const std::u16string program = folder.make_folder(u"program") + u"\\multirename.exe";
    ASSERT_NE(CopyFileW(to_wide(console_program_path()).c_str(), to_wide(program).c_str(), TRUE), FALSE);
    const Decoys beside(folder.path_of(u"program"), libraries_loaded_by_name);
    const Decoys around(folder.path(), libraries_loaded_by_name);
    folder.make_file(u"a1");
    EXPECT_EQ(run_console_program({{u"rename", u"a1", u"--text", u"1=b1"}, folder.path(), {}, {}, program}).exit_status,
              0U);
    EXPECT_EQ(contents_of(folder.path_of(u"b1")), u"a1");
    EXPECT_EQ(run_console_program({{u"undo"}, folder.path(), {}, {}, program}).exit_status, 0U);
    EXPECT_THAT(beside.loaded(), IsEmpty());
    EXPECT_THAT(around.loaded(), IsEmpty());
}

} // namespace
