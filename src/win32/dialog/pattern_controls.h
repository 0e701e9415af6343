#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "run/pattern_row.h"
#include "run/rename_run.h"
#include "win32/framework/cdialog.h"
#include "win32/framework/controls.h"

namespace multirename {

/// The row of controls that shows the current pattern: an edit for each text part, a button for each other part, in
/// the order of the parts.
class PatternControls {
public:
    /// All must outlive the row.
    PatternControls(CDialog& dialog, const CToolTipCtrl& tooltips) noexcept : dialog_(dialog), tooltips_(tooltips) { }
    PatternControls(const PatternControls&) = delete;
    PatternControls& operator=(const PatternControls&) = delete;
    ~PatternControls() { clear(); }

    struct Fonts {
        HFONT text; ///< drawn in edits; all widths are measured with it
        HFONT buttons; ///< drawn on buttons
    };

    /// Replaces the row by one for the run's current pattern, in tab order behind the control `after`. The first edit
    /// gets the focus with all its text selected.
    void build(const RenameRun& run, Fonts fonts, HWND after, int dpi);

    /// Measures the text of a part anew.
    void measure(const RenameRun& run, std::size_t part, int dpi);

    /// Lays the row out in the dialog's client area.
    void place(int dpi) const;

    void enable(bool enabled) const noexcept;

    /// The part that the control stands for.
    [[nodiscard]] std::optional<std::size_t> part_of(HWND control) const noexcept;

    /// The edit of a text part.
    [[nodiscard]] const CEdit& edit(std::size_t part) const { return static_cast<const CEdit&>(*controls_[part]); }

private:
    void clear() noexcept;
    std::unique_ptr<CWnd> make_control(NamePartKind kind, std::u16string_view label, Fonts fonts) const;

    CDialog& dialog_;
    const CToolTipCtrl& tooltips_;
    HFONT measured_font_ = nullptr;
    std::vector<RowSlot> slots_;
    std::vector<std::unique_ptr<CWnd>> controls_; // one for each slot
};

} // namespace multirename
