#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "run/dialog_layout.h"
#include "win32/framework/cdialog.h"

namespace multirename {

/// Where the fixed controls of a resizable dialog stand, and what size the dialog itself has from run to run.
class DialogPlacement {
public:
    /// The dialog must outlive the object. The size is kept in the user's settings for the product.
    DialogPlacement(const CDialog& dialog, std::u16string_view product_name) : dialog_(dialog), product_(product_name)
    {
    }

    /// In pixels of the dialog's client area.
    [[nodiscard]] int top_of(WORD id) const noexcept { return area_of(dialog_.item(id)).top; }

    /// Moves the control's top edge, and its bottom edge if the height is kept, down by so many pixels.
    void shift(WORD id, int down, bool keeps_height) const;

    /// Has the control follow the dialog's size from where it stands now. A control that the dialog does not have is
    /// passed over.
    void add(WORD id, HorizontalAnchor horizontal, VerticalAnchor vertical, int dpi);

    /// Moves the controls to their places in a client area of this size.
    void apply(SIZE client, int dpi) const;

    /// Gives the dialog the size that the last run left, if it is known.
    void restore_size(int dpi) const;

    /// Keeps the dialog's size for the next run.
    void save_size(int dpi) const;

private:
    [[nodiscard]] Area area_of(HWND control) const noexcept;

    const CDialog& dialog_;
    std::u16string product_;
    std::vector<WORD> ids_;
    std::vector<Anchor> anchors_; // one for each id
};

} // namespace multirename
