#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "win32/framework/handles.h"

namespace multirename {

/// A popup menu, destroyed with its object.
class CMenu {
public:
    /// An empty one.
    CMenu() noexcept : menu_(CreatePopupMenu()), popup_(menu_.get()) { }

    /// The first popup of a menu of the module's resources.
    explicit CMenu(WORD resource_id) noexcept;

    /// False when the system could not make it or the module does not have it; nothing else may be called then.
    [[nodiscard]] explicit operator bool() const noexcept { return popup_ != nullptr; }

    /// Add to the end.
    void append(UINT command, std::u16string_view text, bool enabled) const;
    void append_separator() const noexcept;

    /// The number of items, separators included; items are counted from 0.
    [[nodiscard]] int size() const noexcept { return GetMenuItemCount(popup_); }
    /// The command that an item gives; 0 for a separator.
    [[nodiscard]] UINT command(int item) const noexcept { return GetMenuItemID(popup_, item); }
    [[nodiscard]] std::u16string text(int item) const;
    void set_text(int item, std::u16string_view text) const;

    /// Shows the menu at a point of the screen and returns when it has gone. `flags` are those of TrackPopupMenu; with
    /// TPM_RETURNCMD the result is the chosen command, 0 when there was none.
    UINT show(UINT flags, POINT at, HWND owner) const noexcept; // NOLINT(modernize-use-nodiscard): commands may be sent

private:
    UniqueMenu menu_;
    HMENU popup_ = nullptr; // the menu itself, or part of it
};

} // namespace multirename
