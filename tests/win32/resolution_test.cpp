// Screens of other resolutions: lengths, columns and the icon follow, and nothing overlaps or is cut.

#include "support/screen_resolution.h"

#include <commctrl.h>

#include "run/dpi.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::scaled;

class Resolution : public Story {
protected:
    [[nodiscard]] std::vector<std::u16string> photos() const { return made({u"IMG_1.jpg", u"IMG_2.jpg"}); }
};

LONG icon_length(const OpenDialog& dialog)
{
    const auto icon = reinterpret_cast<HICON>(driver::ask(dialog.handle(), WM_GETICON, ICON_SMALL));
    ICONINFO info = {};
    if (GetIconInfo(icon, &info) == FALSE)
        return 0;
    BITMAP picture = {};
    GetObjectW(info.hbmColor, sizeof picture, &picture);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return picture.bmWidth;
}

void resize_by(const OpenDialog& dialog, int length)
{
    dialog.resize(static_cast<int>(dialog.size().cx) + length, static_cast<int>(dialog.size().cy) + length);
}

LONG row_top(const OpenDialog& dialog) { return dialog.place_of(dialog.part_button(0)).top; }

// The visible controls, without the labels that are there for screen readers alone.
std::vector<HWND> shown_controls(HWND dialog)
{
    std::vector<HWND> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT area = {};
        GetWindowRect(child, &area);
        wchar_t name[16] = {};
        GetClassNameW(child, name, 16);
        if (IsWindowVisible(child) != FALSE && IsRectEmpty(&area) == FALSE && std::wstring_view(name) != L"ScrollBar")
            controls.push_back(child);
    }
    return controls;
}

bool is_frame_around_others(HWND control)
{
    wchar_t name[16] = {};
    GetClassNameW(control, name, 16);
    return std::wstring_view(name) == L"Button" && (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

RECT area_of(HWND window)
{
    RECT area = {};
    GetWindowRect(window, &area);
    return area;
}

LONG text_width(HWND control)
{
    const HDC context = GetDC(control);
    const HGDIOBJ before = SelectObject(context, reinterpret_cast<HFONT>(driver::ask(control, WM_GETFONT)));
    RECT area = {};
    const std::u16string text = driver::text_of(control);
    DrawTextW(context, std::wstring(text.begin(), text.end()).c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(context, before);
    ReleaseDC(control, context);
    return area.right;
}

void expect_tidy(HWND dialog)
{
    const std::vector<HWND> controls = shown_controls(dialog);
    RECT client = {};
    GetClientRect(dialog, &client);
    MapWindowPoints(dialog, nullptr, reinterpret_cast<POINT*>(&client), 2);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const RECT area = area_of(controls[i]);
        const int id = GetDlgCtrlID(controls[i]);
        RECT inside = {};
        IntersectRect(&inside, &area, &client);
        EXPECT_TRUE(EqualRect(&inside, &area)) << "control " << id << " is cut by the dialog's edge";
        wchar_t name[16] = {};
        GetClassNameW(controls[i], name, 16);
        if (std::wstring_view(name) == L"Button" || std::wstring_view(name) == L"Static") {
            EXPECT_LE(text_width(controls[i]), area.right - area.left) << "the text of control " << id << " is cut";
        }
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            const RECT other = area_of(controls[j]);
            RECT both = {};
            if (is_frame_around_others(controls[i]) || is_frame_around_others(controls[j]))
                continue;
            EXPECT_FALSE(IntersectRect(&both, &area, &other))
                << "controls " << id << " and " << GetDlgCtrlID(controls[j]) << " overlap";
        }
    }
}

} // namespace

TEST_F(Resolution, AStoredSizeOpensLargerAndIsStoredAsItWas)
{
    const ScreenResolution screen(144);
    EmptyUserStore::store(u"MultiRenameDlgWidth", 800);
    EmptyUserStore::store(u"MultiRenameDlgHeight", 600);
    OpenDialog dialog(module, photos());
    EXPECT_EQ(dialog.size().cx, 1200);
    EXPECT_EQ(dialog.size().cy, 900);
    dialog.cancel();
    EXPECT_EQ(EmptyUserStore::stored(u"MultiRenameDlgWidth"), 800U);
    EXPECT_EQ(EmptyUserStore::stored(u"MultiRenameDlgHeight"), 600U);
}

TEST_F(Resolution, PlacesThePatternRow)
{
    const std::vector<std::u16string> paths = photos();
    for (const int dpi : {96, 120, 144, 192}) {
        const ScreenResolution screen(static_cast<unsigned>(dpi));
        const OpenDialog dialog(module, paths);
        const RECT button = dialog.place_of(dialog.part_button(0));
        const RECT edit = dialog.place_of(driver::part_edits(dialog.handle()).front());
        EXPECT_EQ(button.top, scaled(80, dpi));
        EXPECT_EQ(button.bottom - button.top, scaled(32, dpi));
        EXPECT_EQ(edit.bottom - edit.top, scaled(26, dpi));
        EXPECT_EQ(button.left - edit.right, scaled(6, dpi));
    }
}

TEST_F(Resolution, ChangesWhileTheDialogIsOpen)
{
    ScreenResolution screen(96);
    const OpenDialog dialog(module, photos());
    EXPECT_EQ(row_top(dialog), 80);
    EXPECT_EQ(icon_length(dialog), 16);
    const LRESULT column = driver::ask(dialog.list(), LVM_GETCOLUMNWIDTH, 0);
    screen.set(144);
    EXPECT_EQ(row_top(dialog), 80) << "it is noticed when the size changes";
    resize_by(dialog, 100);
    EXPECT_EQ(row_top(dialog), 120);
    EXPECT_EQ(icon_length(dialog), 24);
    EXPECT_EQ(driver::ask(dialog.list(), LVM_GETCOLUMNWIDTH, 0), column + 10) << "its allowance grows from 20 to 30";
    screen.set(96);
    resize_by(dialog, -100);
    EXPECT_EQ(row_top(dialog), 80);
    EXPECT_EQ(icon_length(dialog), 16);
}

TEST_F(Resolution, ItsChangeMakesTheRowsFontsAnew)
{
    ScreenResolution screen(96);
    const OpenDialog dialog(module, photos());
    const auto font_of = [](HWND control) { return reinterpret_cast<HFONT>(driver::ask(control, WM_GETFONT)); };
    const auto height = [&](HWND control) {
        LOGFONTW description = {};
        GetObjectW(font_of(control), sizeof description, &description);
        return description.lfHeight;
    };
    const HFONT before = font_of(dialog.part_button(0));
    screen.set(144);
    resize_by(dialog, 100);
    EXPECT_TRUE(driver::wait_until([&] { return font_of(dialog.part_button(0)) != before; }));
    EXPECT_EQ(height(dialog.part_button(0)), height(dialog.handle()) * 4 / 3);
    EXPECT_EQ(font_of(driver::part_edits(dialog.handle()).front()), font_of(dialog.handle()));
}

TEST_F(Resolution, OfTheScreenGivesTheSmallestSize)
{
    const ScreenResolution screen(192);
    const OpenDialog dialog(module, photos());
    RECT area = {0, 0, 10, 10};
    driver::ask(dialog.handle(), WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&area));
    EXPECT_EQ(area.right, 960);
    EXPECT_EQ(area.bottom, 720);
}

TEST_F(Resolution, LeavesEveryControlRoomAtTheFirstAndAtTheSmallestSize)
{
    const int dpi = system_resolution();
    const OpenDialog dialog(module, made({u"Iceland 2024 - 001 Harbour.jpg", u"Iceland 2024 - 002 Ferry.jpg"}));
    expect_tidy(dialog.handle());
    dialog.resize(scaled(480, dpi), scaled(360, dpi));
    expect_tidy(dialog.handle());
}

TEST_F(Resolution, LeavesEveryControlOfThePartDialogsRoom)
{
    const OpenDialog dialog(module, made({u"a 1 one.txt", u"a 2 six.txt"}));
    for (const std::size_t index : {0U, 1U}) {
        const PartDialog settings = dialog.click_part(index, index == 0 ? u"Change Number" : u"Change Wild");
        expect_tidy(GetParent(settings.control(IDOK)));
        settings.close_with(IDCANCEL);
    }
}
