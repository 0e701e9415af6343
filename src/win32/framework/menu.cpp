#include "win32/framework/menu.h"

#include "platform/windows/wide.h"
#include "win32/framework/module.h"

namespace multirename {

CMenu::CMenu(WORD resource_id) noexcept : menu_(LoadMenuW(module_instance(), MAKEINTRESOURCEW(resource_id)))
{
    if (menu_)
        popup_ = GetSubMenu(menu_.get(), 0);
}

void CMenu::append(UINT command, std::u16string_view text, bool enabled) const
{
    const UINT state = enabled ? MF_ENABLED : MF_GRAYED;
    AppendMenuW(popup_, state, command, to_wide(text).c_str());
}

void CMenu::append_separator() const noexcept { AppendMenuW(popup_, MF_SEPARATOR, 0, nullptr); }

std::u16string CMenu::text(int item) const
{
    const auto position = static_cast<UINT>(item);
    const int length = GetMenuStringW(popup_, position, nullptr, 0, MF_BYPOSITION);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    GetMenuStringW(popup_, position, text.data(), length + 1, MF_BYPOSITION);
    return from_wide(text);
}

void CMenu::set_text(int item, std::u16string_view text) const
{
    std::wstring wide = to_wide(text);
    MENUITEMINFOW change = {};
    change.cbSize = sizeof change;
    change.fMask = MIIM_STRING;
    change.dwTypeData = wide.data();
    SetMenuItemInfoW(popup_, static_cast<UINT>(item), TRUE, &change);
}

UINT CMenu::show(UINT flags, POINT at, HWND owner) const noexcept
{
    return static_cast<UINT>(TrackPopupMenu(popup_, flags, at.x, at.y, 0, owner, nullptr));
}

} // namespace multirename
