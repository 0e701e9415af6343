#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "run/pattern_row.h"
#include "run/rename_run.h"
#include "win32/controls/name_part_button.h"
#include "win32/framework/accessible_names.h"
#include "win32/framework/cdialog.h"
#include "win32/framework/controls.h"

namespace multirename {

/// The row of controls that shows the current pattern: an edit for each text part, a button for each other part, in
/// the order of the parts.
class PatternControls {
public:
    /// All must outlive the row.
    PatternControls(CDialog& dialog, CNamePartButton::Owner& menus, const CToolTipCtrl& tooltips) noexcept :
        dialog_(dialog), menus_(menus), tooltips_(tooltips)
    {
    }
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

    /// Has the same controls drawn in other fonts.
    void set_fonts(Fonts fonts) noexcept;

    /// Another number after each `build`: tells whether a part that was looked up is still the one of its control.
    [[nodiscard]] unsigned generation() const noexcept { return generation_; }

    /// To be called before the dialog's window goes.
    void release_names() noexcept { names_.clear(); }

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
    std::unique_ptr<CWnd> make_label(std::u16string_view text) const;

    CDialog& dialog_;
    CNamePartButton::Owner& menus_;
    const CToolTipCtrl& tooltips_;
    HFONT measured_font_ = nullptr;
    AccessibleNames names_;
    std::vector<RowSlot> slots_;
    std::vector<std::unique_ptr<CWnd>> labels_; // one for each slot, without size: they name what stands behind them
    std::vector<std::unique_ptr<CWnd>> controls_; // one for each slot
    unsigned generation_ = 0;
};

} // namespace multirename
