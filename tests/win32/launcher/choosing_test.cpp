// Without paths the user chooses files in the system's dialog.

#include <gmock/gmock.h>

#include <windows.h>

#include "driver/dialog_driver.h"
#include "launcher/launched_program.h"
#include "support/temp_folder.h"

namespace {

constexpr int file_name_edit_id = 1152;

class Choosing : public testing::Test {
protected:
    /// Types file names as the dialog takes several, and opens them.
    void choose(std::u16string_view names) const
    {
        const HWND dialog = program.file_dialog();
        ASSERT_TRUE(driver::wait_until([&] { return GetDlgItem(dialog, file_name_edit_id) != nullptr; }));
        EXPECT_TRUE(driver::type_into(GetDlgItem(dialog, file_name_edit_id), names));
        EXPECT_TRUE(driver::press(GetDlgItem(dialog, IDOK)));
    }

    TempFolder folder;
    LaunchedProgram program{std::vector<std::u16string>{}};
};

} // namespace

TEST_F(Choosing, OpensTheDialogOnTheChosenFiles)
{
    const std::u16string first = folder.make_file(u"a 1.txt");
    const std::u16string second = folder.make_file(u"a 2.txt");
    folder.make_file(u"a 3.txt");
    choose(u"\"" + first + u"\" \"" + second + u"\"");
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(),
              (Files{{u"new a 1.txt", u"a 1.txt"}, {u"new a 2.txt", u"a 2.txt"}, {u"a 3.txt", u"a 3.txt"}}));
}

TEST_F(Choosing, OpensTheDialogOnOneFile)
{
    choose(folder.make_file(u"föhn.txt"));
    program.rename_with_prefix(u"new ");
    EXPECT_EQ(program.exit_status(), 0U);
    EXPECT_EQ(folder.files(), (Files{{u"new föhn.txt", u"föhn.txt"}}));
}

TEST_F(Choosing, EndsWellAndOpensNothingWhenCancelled)
{
    EXPECT_TRUE(driver::press(GetDlgItem(program.file_dialog(), IDCANCEL)));
    EXPECT_EQ(program.exit_status(), 0U);
}
