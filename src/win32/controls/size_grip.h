#pragma once

#include <optional>

#include "win32/framework/cdialog.h"
#include "win32/framework/controls.h"
#include "win32/framework/message_map.h"

namespace multirename {

/// The corner by which a dialog is resized; it is the dialog's bottom right corner wherever it is pressed.
class CSizeGrip final : public Created<CWnd> {
public:
    /// Makes it in the dialog, behind all other controls.
    void create(CDialog& dialog);

    /// Puts it into the corner of the dialog's client area. A maximised dialog has none, since it cannot be resized.
    void place(int dpi) const noexcept;

private:
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override;
    LRESULT hit_tested(HitTested) { return HTBOTTOMRIGHT; }
    void pressed(FramePressed event);
};

} // namespace multirename
