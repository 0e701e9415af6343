#include "win32/controls/names_list_ctrl.h"

#include "platform/windows/wide.h"
#include "run/dpi.h"

namespace multirename {

namespace {

enum Column : int { OldName, NewName, Folder };

constexpr int old_name_allowance = 20;
constexpr int new_name_allowance = 40;

/// Whether the control's row is one of the run's: another program could have added rows of its own.
bool is_row(const RenameRun& run, LPARAM row_data, std::size_t row) { return row_data != 0 && row < run.row_count(); }

std::u16string_view cell_text(const RowView& row, int column)
{
    switch (column) {
    case OldName: return row.old_name;
    case NewName: return row.new_name;
    default: return row.folder;
    }
}

} // namespace

void CNamesListCtrl::fill(const RenameRun& run)
{
    set_extended_style(LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    insert_column(OldName, u"Old Name", 0);
    insert_column(NewName, u"New Name", 0);
    if (run.shows_folders())
        insert_column(Folder, u"Folder", 0);
    set_redraw(false);
    reserve_rows(run.row_count());
    for (std::size_t row = 0; row < run.row_count(); ++row)
        append_row(reinterpret_cast<LPARAM>(&run.row_entry(row)));
    set_redraw(true);
}

void CNamesListCtrl::size_columns(bool with_folders, int dpi) const noexcept
{
    fit_column(OldName);
    set_column_width(OldName, column_width(OldName) + scaled(old_name_allowance, dpi));
    if (with_folders)
        set_column_width(NewName, column_width(OldName) + scaled(new_name_allowance, dpi));
    fill_with_column(with_folders ? Folder : NewName);
}

void CNamesListCtrl::answer(const RenameRun& run, LVITEMW& item)
{
    const auto row = static_cast<std::size_t>(item.iItem);
    const bool exists = is_row(run, item.lParam, row);
    if ((item.mask & LVIF_TEXT) != 0) {
        answered_text_ = to_wide(exists ? cell_text(run.row(row), item.iSubItem) : u"null");
        item.pszText = answered_text_.data();
    }
    if ((item.mask & LVIF_STATE) != 0 && exists) {
        item.state = INDEXTOSTATEIMAGEMASK(static_cast<UINT>(run.row(row).image));
        item.stateMask = LVIS_STATEIMAGEMASK;
    }
}

LRESULT CNamesListCtrl::draw(const RenameRun& run, const NMLVCUSTOMDRAW& stage, HFONT bold) const
{
    const auto row = static_cast<std::size_t>(stage.nmcd.dwItemSpec);
    switch (stage.nmcd.dwDrawStage) {
    case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
        return is_row(run, stage.nmcd.lItemlParam, row) && run.row(row).is_pasted ? CDRF_NOTIFYSUBITEMDRAW
                                                                                  : CDRF_DODEFAULT;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
        SelectObject(stage.nmcd.hdc, stage.iSubItem == NewName ? bold : font());
        return CDRF_NEWFONT;
    default: return CDRF_DODEFAULT;
    }
}

} // namespace multirename
