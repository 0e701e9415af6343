#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "run/rename_run.h"
#include "win32/framework/controls.h"
#include "win32/framework/message_map.h"

namespace multirename {

/// The list of old and new names, one row for each row of the run. Texts and status pictures are asked for whenever a
/// row is shown, so after a change nothing is needed but a repaint.
class CNamesListCtrl : public CListCtrl {
public:
    /// Who carries out the commands of the list's menu that concern names.
    class Owner {
    public:
        using Rows = std::vector<std::size_t>; ///< the selected ones, from top to bottom
        virtual void copy_names(const Rows& rows) = 0;
        virtual void paste_names(const Rows& rows) = 0;
        virtual void reset_names(const Rows& rows) = 0;
        virtual void remove_files(const Rows& rows) = 0;

    protected:
        ~Owner() = default;
    };

    /// The owner must outlive the list.
    explicit CNamesListCtrl(Owner& owner) noexcept : owner_(owner) { }

    /// Makes the columns, as wide as `size_columns` makes them, and all rows. The pictures must have been set.
    void fill(const RenameRun& run, int dpi);

    /// Takes away the rows that the run no longer has; the others must stand in its order.
    void remove_missing_rows(const RenameRun& run);

    /// Columns as wide as old names need, the last one up to the right edge. Measures the names of all rows.
    void size_columns(int dpi) const noexcept;

    /// Brings the last column to the right edge again.
    void fill_width(int dpi) const noexcept;

    /// Answers the control's question for a row's text or picture. The text stays valid until the next question.
    void answer(const RenameRun& run, LVITEMW& item);

    /// Has pasted names drawn in `bold`: the result of the control's drawing notification.
    [[nodiscard]] LRESULT draw(const RenameRun& run, const NMLVCUSTOMDRAW& stage, HFONT bold) const;

private:
    void fit_old_names(const RenameRun& run) const;
    void space_columns(int dpi) const noexcept;
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override;
    void menu_wanted(MenuWanted event);
    void copy_names(Chosen);
    void paste_names(Chosen);
    void reset_names(Chosen);
    void remove_files(Chosen);
    void select_every_row(Chosen);
    void invert_selection(Chosen);

    Owner& owner_;
    std::wstring answered_text_;
};

} // namespace multirename
