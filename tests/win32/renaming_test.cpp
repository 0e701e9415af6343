// What becomes of the files on disk: names and contents.

#include <windows.h>

#include "platform/windows/wide.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::from_wide;
using multirename::to_wide;

class Renaming : public Story { };

} // namespace

TEST_F(Renaming, GivesEveryFileTheTypedPrefix)
{
    OpenDialog dialog(module, made({u"IMG_0012.jpg", u"IMG_0013.jpg", u"IMG_0015.jpg"}));
    folder.make_file(u"bystander.txt");
    dialog.type_into(part(0), u"trip_");
    dialog.rename();
    EXPECT_EQ(folder.files(),
              (Files{{u"trip_0012.jpg", u"IMG_0012.jpg"},
                     {u"trip_0013.jpg", u"IMG_0013.jpg"},
                     {u"trip_0015.jpg", u"IMG_0015.jpg"},
                     {u"bystander.txt", u"bystander.txt"}}));
}

TEST_F(Renaming, CountsTheProblemsAndStaysOpen)
{
    folder.make_file(u"taken.txt");
    OpenDialog dialog(module, made({u"a.txt", u"b.txt", u"c.txt", u"d.txt", u"e.txt", u"f.txt"}));
    const std::u16string long_name(252, u'x');
    const Files before = folder.files();
    paste(dialog, u"same\nsame\ntaken\n" + long_name + u"\nfine\nf\n",
          {u"same.txt", u"same.txt", u"taken.txt", long_name + u".txt", u"fine.txt", u"f.txt"});
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:"
                      u"\r\n2 files are being renamed to the same name."
                      u"\r\n1 file is being renamed to the same name as an existing file."
                      u"\r\n1 file is being renamed to a name that is too long (> 255 characters)."));
    EXPECT_TRUE(dialog.is_open());
    EXPECT_EQ(folder.files(), before);
    dialog.cancel();
    EXPECT_EQ(folder.files(), before);
}

TEST_F(Renaming, ExplainsForbiddenCharacters)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.type_into(part(0), u"a:");
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:\r\n2 files are being renamed to an invalid name. "
                      u"Filenames cannot contain any of these characters: \\ / : * ? \" < > |"));
}

TEST_F(Renaming, ExplainsSpacesAndPeriods)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg"}));
    dialog.type_into(part(0), u" x");
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:\r\n1 file is being renamed to an invalid name. "
                      u"Filenames must not start or end with a space, and must not end with a period."));
}

TEST_F(Renaming, CountsOneEmptyNameInTheSingular)
{
    OpenDialog dialog(module, made({u"only"}));
    dialog.type_into(part(0), u"");
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(), warning(u"Unable to rename files:\r\n1 file is being renamed to empty name."));
    dialog.type_into(part(0), u"other");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"other", u"only"}}));
}

TEST_F(Renaming, SaysWhenNothingWouldChangeAndCloses)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(), information(u"No changes have been made, so no files have been renamed."));
    dialog.wait_closed();
    EXPECT_EQ(folder.files(), (Files{{u"a1.txt", u"a1.txt"}, {u"a2.txt", u"a2.txt"}}));
}

TEST_F(Renaming, CancelTouchesNothing)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    dialog.type_into(part(0), u"b");
    dialog.cancel();
    EXPECT_EQ(folder.files(), (Files{{u"a1.txt", u"a1.txt"}, {u"a2.txt", u"a2.txt"}}));
}

TEST_F(Renaming, ShiftsAChainWithoutLosingAFile)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_3.jpg"}));
    paste(dialog, u"IMG_2\nIMG_3\nIMG_4\n", {u"IMG_2.jpg", u"IMG_3.jpg", u"IMG_4.jpg"});
    dialog.rename();
    EXPECT_EQ(folder.files(),
              (Files{{u"IMG_2.jpg", u"IMG_1.jpg"}, {u"IMG_3.jpg", u"IMG_2.jpg"}, {u"IMG_4.jpg", u"IMG_3.jpg"}}));
}

TEST_F(Renaming, RefusesASwap)
{
    OpenDialog dialog(module, made({u"A.txt", u"B.txt"}));
    paste(dialog, u"B\nA\n", {u"B.txt", u"A.txt"});
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:\r\n2 files are being renamed to the same name as existing files."));
    EXPECT_EQ(folder.files(), (Files{{u"A.txt", u"A.txt"}, {u"B.txt", u"B.txt"}}));
}

TEST_F(Renaming, RefusesALongerCycle)
{
    OpenDialog dialog(module, made({u"A.txt", u"B.txt", u"C.txt"}));
    paste(dialog, u"B\nC\nA\n", {u"B.txt", u"C.txt", u"A.txt"});
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:\r\n3 files are being renamed to the same name as existing files."));
    EXPECT_EQ(folder.files(), (Files{{u"A.txt", u"A.txt"}, {u"B.txt", u"B.txt"}, {u"C.txt", u"C.txt"}}));
}

TEST_F(Renaming, RenamesAFolderTogetherWithWhatItHolds)
{
    const std::u16string sub = folder.make_folder(u"D");
    const std::u16string file = folder.make_file(u"D\\f");
    folder.make_file(u"D\\unlisted");
    OpenDialog dialog(module, {sub, file});
    paste(dialog, u"E\ng\n", {u"E", u"g"});
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"E\\g", u"D\\f"}, {u"E\\unlisted", u"D\\unlisted"}}));
}

TEST_F(Renaming, RenamesInSeveralFoldersAtOnce)
{
    folder.make_folder(u"one");
    folder.make_folder(u"two");
    OpenDialog dialog(module, {folder.make_file(u"one\\x1.txt"), folder.make_file(u"two\\x1.txt")});
    dialog.type_into(part(0), u"y1");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"one\\y1.txt", u"one\\x1.txt"}, {u"two\\y1.txt", u"two\\x1.txt"}}));
}

TEST_F(Renaming, GivesANameOf255CharactersAndRefusesOneMore)
{
    // The system's limit for a whole path leaves room for such a name in the drive's root alone.
    const std::u16string path = u"C:\\multirename test " + from_wide(std::to_wstring(GetCurrentProcessId()));
    MoveFileW(to_wide(folder.make_file(u"short")).c_str(), to_wide(path).c_str());
    const std::u16string long_name(255, u'x');
    OpenDialog dialog(module, {path});
    dialog.type_into(part(0), long_name + u"y");
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:\r\n1 file is being renamed to a name that is "
                      u"too long (> 255 characters)."));
    EXPECT_EQ(contents_of(path), u"short");
    dialog.type_into(part(0), long_name);
    dialog.rename();
    EXPECT_EQ(contents_of(path), u"");
    EXPECT_EQ(contents_of(u"C:\\" + long_name), u"short");
    DeleteFileW(to_wide(u"\\\\?\\C:\\" + long_name).c_str());
    DeleteFileW(to_wide(path).c_str());
}

TEST_F(Renaming, KeepsLettersOfEveryScript)
{
    OpenDialog dialog(module, made({u"été 1.txt", u"été 2.txt"}));
    dialog.type_into(part(0), u"日本語 😀 ");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"日本語 😀 1.txt", u"été 1.txt"}, {u"日本語 😀 2.txt", u"été 2.txt"}}));
}

TEST_F(Renaming, TakesNamesThatDifferInCaseOnlyForOne)
{
    OpenDialog dialog(module, made({u"a.txt", u"b.txt"}));
    paste(dialog, u"É\né\n", {u"É.txt", u"é.txt"});
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(),
              warning(u"Unable to rename files:\r\n2 files are being renamed to the same name."));
}

TEST_F(Renaming, RenamesReadOnlyFiles)
{
    const std::vector<std::u16string> paths = made({u"r1.txt", u"r2.txt"});
    SetFileAttributesW(to_wide(paths[0]).c_str(), FILE_ATTRIBUTE_READONLY);
    OpenDialog dialog(module, paths);
    dialog.type_into(part(0), u"s");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"s1.txt", u"r1.txt"}, {u"s2.txt", u"r2.txt"}}));
    EXPECT_NE(GetFileAttributesW(to_wide(folder.path_of(u"s1.txt")).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(Renaming, LeavesFilesAloneThatAreNotListed)
{
    folder.make_file(u"a3.txt");
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    dialog.type_into(part(0), u"b");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"a3.txt", u"a3.txt"}, {u"b1.txt", u"a1.txt"}, {u"b2.txt", u"a2.txt"}}));
}

TEST_F(Renaming, EnterRenamesAndEscapeCancels)
{
    const std::vector<std::u16string> paths = made({u"a1.txt", u"a2.txt"});
    {
        OpenDialog dialog(module, paths);
        dialog.type_into(part(0), u"b");
        PostMessageW(driver::part_edits(dialog.handle()).front(), WM_KEYDOWN, VK_ESCAPE, 1);
        dialog.wait_closed();
    }
    EXPECT_EQ(folder.files(), (Files{{u"a1.txt", u"a1.txt"}, {u"a2.txt", u"a2.txt"}}));
    OpenDialog dialog(module, paths);
    dialog.type_into(part(0), u"b");
    PostMessageW(driver::part_edits(dialog.handle()).front(), WM_KEYDOWN, VK_RETURN, 1);
    dialog.wait_closed();
    EXPECT_EQ(folder.files(), (Files{{u"b1.txt", u"a1.txt"}, {u"b2.txt", u"a2.txt"}}));
}
