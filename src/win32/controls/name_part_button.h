#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

#include "pattern/name_part.h"
#include "settings/change_number_settings.h"
#include "win32/framework/controls.h"
#include "win32/framework/message_map.h"

namespace multirename {

/// Stands for a wild or number part in the pattern row; a click asks for the part's settings, a right click for a menu
/// of the commonest.
class CNamePartButton : public CButton {
public:
    /// Who is asked for the menu.
    class Owner {
    public:
        /// `at` is a point of the screen. The button may be gone when the call comes back.
        virtual void part_menu_wanted(HWND button, POINT at) = 0;

    protected:
        ~Owner() = default;
    };

    /// The owner must outlive the button.
    explicit CNamePartButton(Owner& owner) noexcept : owner_(owner) { }

    /// What the button's tooltip says.
    [[nodiscard]] static std::u16string_view tooltip(NamePartKind kind) noexcept;

private:
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override;
    void menu_wanted(MenuWanted event);

    Owner& owner_;
};

/// Shows the menu of a part's quick settings at a point of the screen and makes the choice count in the part. False
/// when nothing was chosen, or the part has no such settings. `remembered` may be null.
bool show_part_menu(const ChangeNumberDlgSettings* remembered, NamePart& part, HWND owner, POINT at);

} // namespace multirename
