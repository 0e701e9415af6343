// The dialog's size: what follows it, how small it can be dragged, what is kept of it for the next run.

#include <windows.h>

#include <commctrl.h>

#include "run/dpi.h"
#include "support/screen_resolution.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::scaled;

class DialogSize : public Story {
protected:
    [[nodiscard]] std::vector<std::u16string> photos() const { return made({u"IMG_1.jpg", u"IMG_2.jpg"}); }
    const int resolution = system_resolution();
};

RECT place(const OpenDialog& dialog, int id) { return dialog.place_of(dialog.control(id)); }

RECT moved(RECT area, LONG across, LONG down)
{
    OffsetRect(&area, across, down);
    return area;
}

HWND grip_of(const OpenDialog& dialog) { return FindWindowExW(dialog.handle(), nullptr, WC_SCROLLBARW, nullptr); }

RECT dragged(const OpenDialog& dialog, WPARAM edge, RECT area)
{
    driver::ask(dialog.handle(), WM_SIZING, edge, reinterpret_cast<LPARAM>(&area));
    return area;
}

int last_column_end(const OpenDialog& dialog)
{
    int end = 0;
    for (std::size_t column = 0; column < dialog.columns().size(); ++column)
        end += static_cast<int>(driver::ask(dialog.list(), LVM_GETCOLUMNWIDTH, column));
    return end;
}

} // namespace

bool operator==(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }
void PrintTo(const RECT& area, std::ostream* out)
{
    *out << '(' << area.left << ", " << area.top << ")-(" << area.right << ", " << area.bottom << ')';
}

TEST_F(DialogSize, CanBeChangedByItsUser)
{
    OpenDialog dialog(module, photos());
    const LONG_PTR style = GetWindowLongPtrW(dialog.handle(), GWL_STYLE);
    EXPECT_NE(style & WS_THICKFRAME, 0);
    EXPECT_NE(style & WS_MAXIMIZEBOX, 0);
}

TEST_F(DialogSize, TakesTheControlsAlong)
{
    OpenDialog dialog(module, photos());
    const SIZE before = dialog.size();
    const RECT rename = place(dialog, IDOK);
    const RECT cancel = place(dialog, IDCANCEL);
    const RECT list = place(dialog, IDC_NAMES_LIST);
    const RECT box = place(dialog, IDC_ALLOW_EXTENSION_CHANGES);
    dialog.resize(before.cx + 120, before.cy + 80);
    EXPECT_EQ(place(dialog, IDOK), moved(rename, 120, 80));
    EXPECT_EQ(place(dialog, IDCANCEL), moved(cancel, 120, 80));
    EXPECT_EQ(place(dialog, IDC_NAMES_LIST), (RECT{list.left, list.top, list.right + 120, list.bottom + 80}));
    EXPECT_EQ(place(dialog, IDC_ALLOW_EXTENSION_CHANGES), box);
    dialog.resize(before.cx, before.cy);
    EXPECT_EQ(place(dialog, IDOK), rename);
    EXPECT_EQ(place(dialog, IDC_NAMES_LIST), list);
}

TEST_F(DialogSize, KeepsTheMiddleGroupInTheMiddle)
{
    OpenDialog dialog(module, photos());
    const RECT first_before = place(dialog, IDC_RESET);
    const LONG gap = place(dialog, IDC_COPY_NAMES).left - first_before.right;
    dialog.resize(static_cast<int>(dialog.size().cx) + 200, static_cast<int>(dialog.size().cy) + 50);
    const RECT first = place(dialog, IDC_RESET);
    const RECT second = place(dialog, IDC_COPY_NAMES);
    const RECT third = place(dialog, IDC_PASTE_NAMES);
    EXPECT_EQ(second.left - first.right, gap);
    EXPECT_EQ(third.left - second.right, gap);
    EXPECT_EQ(first.top, first_before.top);
    const LONG left_over = dialog.client_size().cx - third.right;
    EXPECT_LE(std::abs(first.left - left_over), 1);
}

TEST_F(DialogSize, KeepsThePatternRowInTheMiddle)
{
    OpenDialog dialog(module, photos());
    dialog.resize(static_cast<int>(dialog.size().cx) + 200, static_cast<int>(dialog.size().cy));
    const std::vector<HWND> row = driver::row_controls(dialog.handle());
    const LONG left = dialog.place_of(row.front()).left;
    const LONG right = dialog.client_size().cx - dialog.place_of(row.back()).right;
    EXPECT_LE(std::abs(left - right), 1);
}

TEST_F(DialogSize, KeepsTheLastColumnAtTheRightEdge)
{
    OpenDialog dialog(module, photos());
    RECT inside = {};
    GetClientRect(dialog.list(), &inside);
    EXPECT_EQ(last_column_end(dialog), inside.right);
    dialog.resize(static_cast<int>(dialog.size().cx) + 200, static_cast<int>(dialog.size().cy));
    GetClientRect(dialog.list(), &inside);
    EXPECT_EQ(last_column_end(dialog), inside.right);
}

TEST_F(DialogSize, HasALowerLimitThatPinsTheEdgeThatIsNotDragged)
{
    OpenDialog dialog(module, photos());
    const int width = scaled(480, resolution);
    const int height = scaled(360, resolution);
    const RECT small = {1000, 1000, 1100, 1100};
    EXPECT_EQ(dragged(dialog, WMSZ_LEFT, small), (RECT{1100 - width, 1100 - height, 1100, 1100}));
    EXPECT_EQ(dragged(dialog, WMSZ_RIGHT, small), (RECT{1000, 1100 - height, 1000 + width, 1100}));
    EXPECT_EQ(dragged(dialog, WMSZ_BOTTOM, small), (RECT{1000, 1000, 1000 + width, 1000 + height}));
    EXPECT_EQ(dragged(dialog, WMSZ_BOTTOMLEFT, small), (RECT{1100 - width, 1000, 1100, 1000 + height}));
    const RECT large = {0, 0, 2000, 2000};
    EXPECT_EQ(dragged(dialog, WMSZ_BOTTOMRIGHT, large), large);
}

TEST_F(DialogSize, IsKeptForTheNextRun)
{
    const std::vector<std::u16string> paths = photos();
    {
        OpenDialog dialog(module, paths);
        dialog.resize(scaled(700, resolution), scaled(500, resolution));
        dialog.cancel();
    }
    EXPECT_EQ(EmptyUserStore::stored(u"MultiRenameDlgWidth"), 700U);
    EXPECT_EQ(EmptyUserStore::stored(u"MultiRenameDlgHeight"), 500U);
    const OpenDialog dialog(module, paths);
    EXPECT_EQ(dialog.size().cx, scaled(700, resolution));
    EXPECT_EQ(dialog.size().cy, scaled(500, resolution));
}

TEST_F(DialogSize, IsKeptHoweverTheDialogEnds)
{
    const std::vector<std::u16string> paths = photos();
    {
        OpenDialog dialog(module, paths);
        dialog.resize(scaled(610, resolution), scaled(450, resolution));
        PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
        dialog.wait_closed();
    }
    EXPECT_EQ(EmptyUserStore::stored(u"MultiRenameDlgWidth"), 610U);
    OpenDialog dialog(module, paths);
    dialog.resize(scaled(620, resolution), scaled(450, resolution));
    dialog.type_into(part(0), u"trip_");
    dialog.rename();
    EXPECT_EQ(EmptyUserStore::stored(u"MultiRenameDlgWidth"), 620U);
}

TEST_F(DialogSize, IsThatOfTheTemplateWhenOnlyOneLengthIsStored)
{
    const std::vector<std::u16string> paths = photos();
    SIZE first = {};
    {
        OpenDialog dialog(module, paths);
        first = dialog.size();
    }
    for (const auto& [width, height] : {std::pair{900U, 0U}, std::pair{0U, 700U}}) {
        EmptyUserStore::store(u"MultiRenameDlgWidth", width);
        EmptyUserStore::store(u"MultiRenameDlgHeight", height);
        const OpenDialog dialog(module, paths);
        EXPECT_EQ(dialog.size().cx, first.cx);
        EXPECT_EQ(dialog.size().cy, first.cy);
    }
}

TEST_F(DialogSize, ControlsFollowAStoredSize)
{
    EmptyUserStore::store(u"MultiRenameDlgWidth", 900);
    EmptyUserStore::store(u"MultiRenameDlgHeight", 700);
    const OpenDialog dialog(module, photos());
    const SIZE client = dialog.client_size();
    EXPECT_LT(client.cx - place(dialog, IDCANCEL).right, scaled(40, resolution));
    EXPECT_LT(client.cy - place(dialog, IDCANCEL).bottom, scaled(40, resolution));
    EXPECT_LT(client.cx - place(dialog, IDC_NAMES_LIST).right, scaled(40, resolution));
}

TEST_F(DialogSize, HasAGripInTheCorner)
{
    const OpenDialog dialog(module, photos());
    const HWND grip = grip_of(dialog);
    ASSERT_NE(grip, nullptr);
    const RECT area = dialog.place_of(grip);
    EXPECT_EQ(area.right, dialog.client_size().cx);
    EXPECT_EQ(area.bottom, dialog.client_size().cy);
    EXPECT_EQ(area.right - area.left, scaled(GetSystemMetrics(SM_CXVSCROLL), resolution));
    EXPECT_EQ(area.bottom - area.top, scaled(GetSystemMetrics(SM_CYHSCROLL), resolution));
    EXPECT_EQ(driver::ask(grip, WM_NCHITTEST, 0, MAKELPARAM(1, 1)), HTBOTTOMRIGHT);
    EXPECT_NE(GetWindowLongPtrW(grip, GWL_STYLE) & SBS_SIZEGRIP, 0);
    EXPECT_NE(GetWindowLongPtrW(grip, GWL_STYLE) & WS_CLIPSIBLINGS, 0);
    EXPECT_EQ(GetWindow(grip, GW_HWNDNEXT), nullptr) << "every other control lies above it";
    EXPECT_TRUE(IsWindowVisible(grip));
}

TEST_F(DialogSize, TheGripFollowsTheCorner)
{
    OpenDialog dialog(module, photos());
    dialog.resize(static_cast<int>(dialog.size().cx) + 90, static_cast<int>(dialog.size().cy) + 60);
    const RECT area = dialog.place_of(grip_of(dialog));
    EXPECT_EQ(area.right, dialog.client_size().cx);
    EXPECT_EQ(area.bottom, dialog.client_size().cy);
}

TEST_F(DialogSize, AMaximisedDialogShowsNoGrip)
{
    const OpenDialog dialog(module, photos());
    const HWND grip = grip_of(dialog);
    PostMessageW(dialog.handle(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    const auto is_usable = [grip] { return IsWindowVisible(grip) != FALSE && IsWindowEnabled(grip) != FALSE; };
    const auto is_gone = [grip] { return IsWindowVisible(grip) == FALSE && IsWindowEnabled(grip) == FALSE; };
    EXPECT_TRUE(driver::wait_until(is_gone));
    PostMessageW(dialog.handle(), WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(driver::wait_until(is_usable));
}

TEST_F(DialogSize, GivesOldNamesTheRoomThatTheListItselfMeasures)
{
    const std::vector<std::vector<std::u16string>> listings = {
        made({u"iiiiiiiiiiiiiiiiii.txt", u"WWWWWWWWWWWW.txt", u"a.txt"}),
        made({u"WW.txt", u"\u00C4\u00D6\u00DC\u00DF\u00E9\u0142 \u0160kr.txt", u"ill.txt"}),
        made({u"\u65E5\u672C\u8A9E\u306E\u540D\u524D.txt", u"Wide Latin.txt", u"e\u0301.txt"}),
    };
    for (const std::vector<std::u16string>& listing : listings) {
        const OpenDialog dialog(module, listing);
        const auto width = driver::ask(dialog.list(), LVM_GETCOLUMNWIDTH, 0);
        driver::ask(dialog.list(), LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE);
        EXPECT_EQ(width, driver::ask(dialog.list(), LVM_GETCOLUMNWIDTH, 0) + scaled(20, resolution));
    }
}
