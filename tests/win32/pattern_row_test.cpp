// The row of controls that shows the pattern: their kinds, places, fonts and tooltips.

#include <windows.h>

#include <commctrl.h>

#include "platform/windows/wide.h"
#include "run/dpi.h"
#include "support/screen_resolution.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::scaled;
using testing::ElementsAre;

class PatternRow : public Story {
protected:
    const int resolution = system_resolution();
};

LONG width(const OpenDialog& dialog, HWND control)
{
    const RECT area = dialog.place_of(control);
    return area.right - area.left;
}

LONG font_height(HWND control)
{
    LOGFONTW description = {};
    GetObjectW(reinterpret_cast<HFONT>(driver::ask(control, WM_GETFONT)), sizeof description, &description);
    return description.lfHeight;
}

BOOL CALLBACK find_tooltips(HWND window, LPARAM found)
{
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    if (std::wstring_view(name) != TOOLTIPS_CLASSW ||
        driver::ask(window, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)) == 0 ||
        GetDlgCtrlID(reinterpret_cast<HWND>(tool.uId)) != IDC_PART_BUTTON)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

std::u16string tooltip(const OpenDialog& dialog, HWND control)
{
    HWND tooltips = nullptr;
    EnumThreadWindows(GetWindowThreadProcessId(dialog.handle(), nullptr), &find_tooltips,
                      reinterpret_cast<LPARAM>(&tooltips));
    wchar_t text[128] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = dialog.handle();
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text;
    driver::ask(tooltips, TTM_GETTEXTW, 128, reinterpret_cast<LPARAM>(&tool));
    return multirename::from_wide(text);
}

} // namespace

TEST_F(PatternRow, IsMadeOfEditsAndFlatButtons)
{
    const OpenDialog dialog(module, made({u"a 1 one.txt", u"a 2 six.txt"}));
    EXPECT_THAT(dialog.pattern(), ElementsAre(u"a ", u"#", u" ", u"*", u""));
    const HWND edit = driver::part_edits(dialog.handle()).front();
    EXPECT_EQ(GetWindowLongPtrW(edit, GWL_EXSTYLE) & WS_EX_CLIENTEDGE, WS_EX_CLIENTEDGE);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWL_STYLE) & (WS_TABSTOP | ES_AUTOHSCROLL | WS_VISIBLE),
              WS_TABSTOP | ES_AUTOHSCROLL | WS_VISIBLE);
    EXPECT_EQ(GetWindowLongPtrW(dialog.part_button(0), GWL_STYLE) & (BS_FLAT | WS_VISIBLE), BS_FLAT | WS_VISIBLE);
}

TEST_F(PatternRow, HasLargerLettersOnItsButtons)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    const LONG height = font_height(driver::part_edits(dialog.handle()).front());
    EXPECT_EQ(height, font_height(dialog.control(IDOK)));
    EXPECT_EQ(font_height(dialog.part_button(0)), height * 4 / 3);
}

TEST_F(PatternRow, StandsInTheMiddleWithGaps)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    const std::vector<HWND> row = driver::row_controls(dialog.handle());
    ASSERT_EQ(row.size(), 3U);
    const LONG first_left = dialog.place_of(row[0]).left;
    EXPECT_LE(std::abs(first_left - (dialog.client_size().cx - dialog.place_of(row[2]).right)), 1);
    EXPECT_EQ(dialog.place_of(row[1]).left - dialog.place_of(row[0]).right, scaled(6, resolution));
    EXPECT_EQ(dialog.place_of(row[2]).left - dialog.place_of(row[1]).right, scaled(6, resolution));
    EXPECT_EQ(width(dialog, row[1]), scaled(50, resolution));
    EXPECT_EQ(width(dialog, row[2]), scaled(46, resolution));
}

TEST_F(PatternRow, GrowsWithTheTextButNotBeyondTheDialog)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    const HWND edit = driver::part_edits(dialog.handle()).front();
    const LONG before = width(dialog, edit);
    dialog.type_into(part(0), u"a much longer text");
    EXPECT_GT(width(dialog, edit), before);
    dialog.type_into(part(0), std::u16string(200, u'W'));
    const std::vector<HWND> row = driver::row_controls(dialog.handle());
    EXPECT_GE(dialog.place_of(row.front()).left, 0);
    EXPECT_LE(dialog.place_of(row.back()).right, dialog.client_size().cx);
    EXPECT_EQ(width(dialog, row.back()), scaled(46, resolution)) << "only the widest is narrowed";
}

TEST_F(PatternRow, KeepsTheCaretWhereTheUserTypes)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    const HWND edit = driver::part_edits(dialog.handle()).front();
    driver::ask(edit, EM_SETSEL, 0, 0);
    driver::ask(edit, WM_CHAR, u'x', 1);
    driver::ask(edit, WM_CHAR, u'y', 1);
    EXPECT_EQ(driver::text_of(edit), u"xya");
    EXPECT_EQ(driver::ask(edit, EM_GETSEL), MAKELONG(2, 2));
}

TEST_F(PatternRow, SaysInTooltipsWhatItsButtonsDo)
{
    const OpenDialog dialog(module, made({u"a 1 one.txt", u"a 2 six.txt"}));
    EXPECT_EQ(tooltip(dialog, dialog.part_button(0)), u"Change number part settings (right-click for options)");
    EXPECT_EQ(tooltip(dialog, dialog.part_button(1)), u"Change wild text part settings (right-click for options)");
}

TEST_F(PatternRow, SelectsItsFirstTextWheneverItIsBuilt)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    dialog.press_and_expect(IDC_NUMBERS_AS_TEXT, {u"a", u"*", u""});
    const HWND edit = driver::part_edits(dialog.handle()).front();
    EXPECT_TRUE(driver::wait_until([&] { return dialog.focus() == edit; }));
    EXPECT_EQ(driver::ask(edit, EM_GETSEL), MAKELONG(0, 1));
}

TEST_F(PatternRow, TakesTextThatIsSetWithoutTyping)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    SetWindowTextW(driver::part_edits(dialog.handle()).front(), L"set");
    EXPECT_TRUE(driver::wait_until([&] { return dialog.new_names().front() == u"set1.txt"; }));
}

TEST_F(PatternRow, IgnoresTypingInAnEditThatIsNotItsOwn)
{
    const OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    driver::ask(dialog.handle(), WM_COMMAND, MAKEWPARAM(IDC_PART_EDIT, EN_CHANGE),
                reinterpret_cast<LPARAM>(dialog.list()));
    driver::ask(dialog.handle(), WM_COMMAND, MAKEWPARAM(IDC_PART_EDIT, EN_CHANGE), 0);
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"a1.txt", u"a2.txt"));
}
