// The menu of the names list: what it offers, and what its six commands do to the selected rows.

#include <windows.h>

#include <commctrl.h>

#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListMenu : public Story {
protected:
    [[nodiscard]] std::vector<std::u16string> photos() const
    {
        return made({u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_3.jpg"});
    }
};

std::vector<ShownItem> menu_with(std::u16string_view ending, std::u16string_view remove)
{
    const auto command = [ending](std::u16string_view text) { return std::u16string(text).append(ending); };
    return {offered(command(u"&Copy Name"), 32768),
            offered(command(u"&Paste Name"), 32769),
            offered(command(u"&Reset Name"), 32770),
            offered(remove, 32771),
            separator(),
            offered(u"Select &All", 32772),
            offered(u"&Invert Selection", 32773)};
}

LONG weight_of_font_in(HDC context)
{
    LOGFONTW description = {};
    GetObjectW(GetCurrentObject(context, OBJ_FONT), sizeof description, &description);
    return description.lfWeight;
}

LRESULT draw(const OpenDialog& dialog, NMLVCUSTOMDRAW& stage)
{
    stage.nmcd.hdr = {dialog.list(), IDC_NAMES_LIST, static_cast<UINT>(NM_CUSTOMDRAW)};
    stage.nmcd.lItemlParam = 1;
    return driver::ask(dialog.handle(), WM_NOTIFY, IDC_NAMES_LIST, reinterpret_cast<LPARAM>(&stage));
}

} // namespace

TEST_F(ListMenu, IsSingularForOneSelectedRow)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({1});
    const OpenMenu menu = dialog.list_menu();
    EXPECT_EQ(menu.items(), menu_with(u"", u"Remove File From List"));
    menu.dismiss();
}

TEST_F(ListMenu, IsPluralForSeveralSelectedRows)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({0, 2});
    const OpenMenu menu = dialog.list_menu();
    EXPECT_EQ(menu.items(), menu_with(u"s", u"Remove Files From List"));
    menu.dismiss();
}

TEST_F(ListMenu, IsPluralWhenNothingIsSelected)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({});
    const OpenMenu menu = dialog.list_menu();
    EXPECT_EQ(menu.items(), menu_with(u"s", u"Remove Files From List"));
    menu.dismiss();
}

TEST_F(ListMenu, OpensInsideTheListsCornerFromTheKeyboard)
{
    OpenDialog dialog(module, photos());
    POINT corner = {};
    ClientToScreen(dialog.list(), &corner);
    const OpenMenu menu = dialog.list_menu();
    EXPECT_EQ(menu.area().left, corner.x + 5);
    EXPECT_EQ(menu.area().top, corner.y + 5);
    menu.dismiss();
}

TEST_F(ListMenu, OpensWhereTheMouseClicked)
{
    OpenDialog dialog(module, photos());
    const OpenMenu menu(dialog.list(), {120, 130});
    EXPECT_EQ(menu.area().left, 120);
    EXPECT_EQ(menu.area().top, 130);
    menu.dismiss();
}

TEST_F(ListMenu, CopiesTheNamesOfTheSelectedRowsAlone)
{
    OpenDialog dialog(module, photos());
    dialog.type_into(part(0), u"trip_");
    dialog.select_rows({0, 2});
    dialog.list_menu().choose(u"&Copy Names");
    EXPECT_EQ(dialog.take_message(), information(u"The filenames have been copied to the clipboard."));
    EXPECT_EQ(clipboard_text(), u"trip_1.jpg\ntrip_3.jpg\n");
}

TEST_F(ListMenu, CopyingNothingEmptiesTheClipboardWithoutAWord)
{
    OpenDialog dialog(module, photos());
    put_on_clipboard(u"before");
    dialog.select_rows({});
    dialog.list_menu().choose(u"&Copy Names");
    EXPECT_TRUE(driver::wait_until([] { return clipboard_text() == std::nullopt; }));
    dialog.cancel(); // which a message would prevent
}

TEST_F(ListMenu, PastesOneNameForEachSelectedRow)
{
    OpenDialog dialog(module, photos());
    put_on_clipboard(u"first\nlast\n");
    dialog.select_rows({0, 2});
    dialog.list_menu().choose(u"&Paste Names");
    expect_names(dialog, {u"first.jpg", u"IMG_2.jpg", u"last.jpg"});
    EXPECT_TRUE(dialog.is_enabled(IDC_ALLOW_EXTENSION_CHANGES)) << "the pattern still governs a name";
    dialog.type_into(part(0), u"trip_");
    expect_names(dialog, {u"first.jpg", u"trip_2.jpg", u"last.jpg"});
}

TEST_F(ListMenu, PastingTheLastNameOfThePatternDisablesItsControls)
{
    OpenDialog dialog(module, photos());
    put_on_clipboard(u"a\nb\n");
    dialog.select_rows({0, 1});
    dialog.list_menu().choose(u"&Paste Names");
    expect_names(dialog, {u"a.jpg", u"b.jpg", u"IMG_3.jpg"});
    put_on_clipboard(u"c");
    dialog.select_rows({2});
    dialog.list_menu().choose(u"&Paste Name");
    expect_names(dialog, {u"a.jpg", u"b.jpg", u"c.jpg"});
    EXPECT_TRUE(driver::wait_until([&] { return !dialog.is_enabled(IDC_ALLOW_EXTENSION_CHANGES); }));
    EXPECT_FALSE(IsWindowEnabled(dialog.part_button(0)));
}

TEST_F(ListMenu, CountsTheSelectedRowsWhenTheLinesAreTooMany)
{
    OpenDialog dialog(module, photos());
    put_on_clipboard(u"a\nb\nc\n");
    dialog.select_rows({1});
    dialog.list_menu().choose(u"&Paste Name");
    EXPECT_EQ(dialog.take_message(),
              warning(u"The text on the clipboard must contain one line for each filename.\n\n"
                      u"Number of files to rename: 1\nNumber of lines on clipboard: 3"));
    expect_names(dialog, {u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_3.jpg"});
}

TEST_F(ListMenu, ResetGivesPastedNamesBackToThePattern)
{
    OpenDialog dialog(module, photos());
    paste(dialog, u"a\nb\nc\n", {u"a.jpg", u"b.jpg", u"c.jpg"});
    EXPECT_TRUE(driver::wait_until([&] { return !dialog.is_enabled(IDC_NUMBERS_AS_TEXT); }));
    dialog.select_rows({1});
    dialog.list_menu().choose(u"&Reset Name");
    expect_names(dialog, {u"a.jpg", u"IMG_2.jpg", u"c.jpg"});
    EXPECT_TRUE(driver::wait_until([&] { return dialog.is_enabled(IDC_NUMBERS_AS_TEXT); }));
    EXPECT_TRUE(IsWindowEnabled(dialog.part_button(0)));
}

TEST_F(ListMenu, ResetOfNamesThatWereNotPastedChangesNothing)
{
    OpenDialog dialog(module, photos());
    dialog.type_into(part(0), u"trip_");
    dialog.select_rows({0, 1, 2});
    dialog.list_menu().choose(u"&Reset Names");
    dialog.select_rows({});
    dialog.list_menu().choose(u"&Reset Names");
    expect_names(dialog, {u"trip_1.jpg", u"trip_2.jpg", u"trip_3.jpg"});
}

TEST_F(ListMenu, ResetWithNothingSelectedLeavesPastedNames)
{
    OpenDialog dialog(module, photos());
    paste(dialog, u"a\nb\nc\n", {u"a.jpg", u"b.jpg", u"c.jpg"});
    dialog.select_rows({});
    dialog.list_menu().choose(u"&Reset Names");
    expect_names(dialog, {u"a.jpg", u"b.jpg", u"c.jpg"});
    EXPECT_FALSE(dialog.is_enabled(IDC_NUMBERS_AS_TEXT));
}

TEST_F(ListMenu, RemovedFilesAreNotRenamed)
{
    OpenDialog dialog(module, photos());
    dialog.type_into(part(0), u"trip_");
    dialog.select_rows({0, 2});
    dialog.list_menu().choose(u"Remove Files From List");
    expect_names(dialog, {u"trip_2.jpg"});
    EXPECT_THAT(dialog.selected_rows(), IsEmpty());
    dialog.rename();
    EXPECT_EQ(folder.files(),
              (Files{{u"IMG_1.jpg", u"IMG_1.jpg"}, {u"IMG_3.jpg", u"IMG_3.jpg"}, {u"trip_2.jpg", u"IMG_2.jpg"}}));
}

TEST_F(ListMenu, RunningNumbersFollowTheRowsThatAreLeft)
{
    OpenDialog dialog(module, photos());
    dialog.type_into(part(0), u"<1>_");
    expect_names(dialog, {u"1_1.jpg", u"2_2.jpg", u"3_3.jpg"});
    dialog.select_rows({0});
    dialog.list_menu().choose(u"Remove File From List");
    expect_names(dialog, {u"1_2.jpg", u"2_3.jpg"});
}

TEST_F(ListMenu, RemovingEveryFileIsRefused)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({0, 1, 2});
    dialog.list_menu().choose(u"Remove Files From List");
    EXPECT_EQ(dialog.take_message(), warning(u"You cannot remove all the files from the list."));
    expect_names(dialog, {u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_3.jpg"});
    EXPECT_THAT(dialog.selected_rows(), ElementsAre(0, 1, 2));
}

TEST_F(ListMenu, RemovingNothingRemovesNothing)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({});
    dialog.list_menu().choose(u"Remove Files From List");
    expect_names(dialog, {u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_3.jpg"});
}

TEST_F(ListMenu, BothRowsOfAFileListedTwiceGoTogether)
{
    const std::vector<std::u16string> paths = photos();
    OpenDialog dialog(module, {paths[0], paths[1], paths[0]});
    dialog.select_rows({0});
    dialog.list_menu().choose(u"Remove File From List");
    expect_names(dialog, {u"IMG_2.jpg"});
}

TEST_F(ListMenu, SelectsEveryRow)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({1});
    dialog.list_menu().choose(u"Select &All");
    EXPECT_TRUE(driver::wait_until([&] { return dialog.selected_rows() == std::vector{0, 1, 2}; }));
}

TEST_F(ListMenu, InvertsTheSelection)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({1});
    dialog.list_menu().choose(u"&Invert Selection");
    EXPECT_TRUE(driver::wait_until([&] { return dialog.selected_rows() == std::vector{0, 2}; }));
}

TEST_F(ListMenu, InvertingEverythingSelectsNothing)
{
    OpenDialog dialog(module, photos());
    dialog.select_rows({0, 1, 2});
    dialog.list_menu().choose(u"&Invert Selection");
    EXPECT_TRUE(driver::wait_until([&] { return dialog.selected_rows().empty(); }));
}

TEST_F(ListMenu, ItsCommandsReachTheListWithoutTheMenuToo)
{
    OpenDialog dialog(module, photos());
    driver::ask(dialog.list(), WM_COMMAND, ID_SELECT_ALL);
    EXPECT_THAT(dialog.selected_rows(), ElementsAre(0, 1, 2));
}

TEST_F(ListMenu, DrawsPastedNamesBoldAndNothingElse)
{
    OpenDialog dialog(module, photos());
    put_on_clipboard(u"pasted");
    dialog.select_rows({1});
    dialog.list_menu().choose(u"&Paste Name");
    expect_names(dialog, {u"IMG_1.jpg", u"pasted.jpg", u"IMG_3.jpg"});

    NMLVCUSTOMDRAW stage = {};
    stage.nmcd.dwDrawStage = CDDS_PREPAINT;
    EXPECT_EQ(draw(dialog, stage), CDRF_NOTIFYITEMDRAW);
    stage.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    stage.nmcd.dwItemSpec = 0;
    EXPECT_EQ(draw(dialog, stage), CDRF_DODEFAULT);
    stage.nmcd.dwItemSpec = 1;
    EXPECT_EQ(draw(dialog, stage), CDRF_NOTIFYSUBITEMDRAW);
    stage.nmcd.dwDrawStage = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
    stage.nmcd.hdc = CreateCompatibleDC(nullptr);
    for (const int column : {0, 1, 2}) {
        stage.iSubItem = column;
        EXPECT_EQ(draw(dialog, stage), CDRF_NEWFONT);
        EXPECT_EQ(weight_of_font_in(stage.nmcd.hdc) == FW_BOLD, column == 1) << column;
    }
    DeleteDC(stage.nmcd.hdc);
}

TEST_F(ListMenu, CopyAndPasteWithoutEditingChangeNoNameButAllArePasted)
{
    OpenDialog dialog(module, photos());
    dialog.press(IDC_COPY_NAMES);
    static_cast<void>(dialog.take_message());
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return !dialog.is_enabled(IDC_NUMBERS_AS_TEXT); }));
    expect_names(dialog, {u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_3.jpg"});
    NMLVCUSTOMDRAW stage = {};
    stage.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    for (const DWORD_PTR row : {0U, 1U, 2U}) {
        stage.nmcd.dwItemSpec = row;
        EXPECT_EQ(draw(dialog, stage), CDRF_NOTIFYSUBITEMDRAW) << row;
    }
}
