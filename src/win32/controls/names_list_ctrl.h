#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "run/rename_run.h"
#include "win32/framework/controls.h"

namespace multirename {

/// The list of old and new names, one row for each row of the run. Texts and status pictures are asked for whenever a
/// row is shown, so after a change nothing is needed but a repaint.
class CNamesListCtrl : public CListCtrl {
public:
    using CListCtrl::CListCtrl;

    /// Makes the columns and all rows.
    void fill(const RenameRun& run);

    /// Columns as wide as old names need, the last one up to the right edge.
    void size_columns(bool with_folders, int dpi) const noexcept;

    /// Answers the control's question for a row's text or picture. The text stays valid until the next question.
    void answer(const RenameRun& run, LVITEMW& item);

    /// Has pasted names drawn in `bold`: the result of the control's drawing notification.
    [[nodiscard]] LRESULT draw(const RenameRun& run, const NMLVCUSTOMDRAW& stage, HFONT bold) const;

private:
    std::wstring answered_text_;
};

} // namespace multirename
