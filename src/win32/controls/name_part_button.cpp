#include "win32/controls/name_part_button.h"

#include <utility>

#include "run/part_menu.h"
#include "win32/controls/string_table.h"
#include "win32/framework/menu.h"
#include "win32/res/resource.h"

namespace multirename {

namespace {

constexpr LONG keyboard_menu_offset = 5; // pixels from the button's corner, at every resolution

constexpr std::pair<UINT, PartCommand> commands[] = {
    {ID_PART_RESET, PartCommand::Reset},
    {ID_PART_CLEAR_TEXT, PartCommand::ClearText},
    {ID_PART_RENUMBER, PartCommand::Renumber},
};

CMenu filled_menu(const std::vector<PartMenuItem>& items)
{
    CMenu menu;
    for (const PartMenuItem& item : items) {
        if (item.starts_group)
            menu.append_separator();
        for (const auto& [id, command] : commands) {
            if (command == item.command)
                menu.append(id, item.text, item.is_enabled);
        }
    }
    return menu;
}

} // namespace

std::u16string_view CNamePartButton::tooltip(NamePartKind kind) noexcept
{
    if (kind == NamePartKind::Number)
        return u"Change number part settings (right-click for options)";
    return u"Change wild text part settings (right-click for options)";
}

std::optional<LRESULT> CNamePartButton::on_message(UINT message, WPARAM w, LPARAM l)
{
    static constexpr Route<CNamePartButton> map[] = {on<&CNamePartButton::menu_wanted>()};
    return dispatch(map, *this, message, w, l);
}

void CNamePartButton::menu_wanted(MenuWanted event)
{
    if (event.is_from_keyboard()) {
        const RECT area = window_area();
        event.at = {area.left + keyboard_menu_offset, area.top + keyboard_menu_offset};
    }
    owner_.part_menu_wanted(handle(), event.at);
}

bool show_part_menu(const ChangeNumberDlgSettings* remembered, NamePart& part, HWND owner, POINT at)
{
    const std::vector<PartMenuItem> items = part_menu(part, remembered, &string_table_text);
    if (items.empty())
        return false;
    const CMenu menu = filled_menu(items);
    if (!menu)
        return false;
    const UINT chosen = menu.show(TPM_RIGHTBUTTON | TPM_NONOTIFY | TPM_RETURNCMD, at, owner);
    for (const auto& [id, command] : commands) {
        if (id != chosen)
            continue;
        choose(command, part, remembered);
        return true;
    }
    return false;
}

} // namespace multirename
