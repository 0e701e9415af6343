#include "support/open_menu.h"

#include <gtest/gtest.h>

#include "driver/dialog_driver.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"

namespace {

constexpr UINT get_menu_message = 0x01E1; // what a popup's window answers with its menu

} // namespace

void PrintTo(const ShownItem& item, std::ostream* out)
{
    *out << '"' << multirename::to_bytes(item.text) << "\" " << item.command << (item.is_enabled ? "" : " (greyed)");
}

OpenMenu::OpenMenu(HWND control) : control_(control) { open(MAKELPARAM(-1, -1)); }

OpenMenu::OpenMenu(HWND control, POINT at) : control_(control) { open(MAKELPARAM(at.x, at.y)); }

void OpenMenu::open(LPARAM point)
{
    const DWORD thread = GetWindowThreadProcessId(control_, nullptr);
    PostMessageW(control_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control_), point);
    EXPECT_TRUE(driver::wait_until([&] {
        popup_ = driver::find_menu(thread);
        return popup_ != nullptr;
    })) << "no menu came";
}

std::vector<ShownItem> OpenMenu::items() const
{
    const auto menu = reinterpret_cast<HMENU>(driver::ask(popup_, get_menu_message));
    std::vector<ShownItem> items;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const auto position = static_cast<UINT>(i);
        wchar_t text[128] = {};
        GetMenuStringW(menu, position, text, 128, MF_BYPOSITION);
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        const UINT command = GetMenuItemID(menu, i);
        const bool is_greyed = (state & (MF_GRAYED | MF_DISABLED)) != 0;
        items.push_back(command == 0 ? separator() : ShownItem{multirename::from_wide(text), command, !is_greyed});
    }
    return items;
}

RECT OpenMenu::area() const
{
    RECT area = {};
    GetWindowRect(popup_, &area);
    return area;
}

void OpenMenu::press_key(WPARAM key) const { PostMessageW(control_, WM_KEYDOWN, key, 1); }

void OpenMenu::choose(std::u16string_view text) const
{
    bool found = false;
    for (const ShownItem& item : items()) {
        if (item == separator())
            continue; // the arrow key passes it over
        press_key(VK_DOWN);
        found = item.text == text;
        if (found)
            break;
    }
    EXPECT_TRUE(found) << "the menu has no such item";
    press_key(found ? VK_RETURN : VK_ESCAPE);
    wait_closed();
}

void OpenMenu::dismiss() const
{
    press_key(VK_ESCAPE);
    wait_closed();
}

bool OpenMenu::is_open() const { return IsWindow(popup_) != FALSE && IsWindowVisible(popup_) != FALSE; }

void OpenMenu::wait_closed() const
{
    EXPECT_TRUE(driver::wait_until([this] { return !is_open(); })) << "the menu stayed open";
}
