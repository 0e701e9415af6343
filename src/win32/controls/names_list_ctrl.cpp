#include "win32/controls/names_list_ctrl.h"

#include <algorithm>

#include "platform/windows/wide.h"
#include "run/dpi.h"
#include "run/names_menu.h"
#include "win32/framework/menu.h"
#include "win32/res/resource.h"

namespace multirename {

namespace {

enum Column : int { OldName, NewName, Folder };

constexpr int old_name_allowance = 20;
constexpr int new_name_allowance = 40;
constexpr int smallest_last_column = 80;
constexpr LONG keyboard_menu_offset = 5; // pixels from the list's corner, at every resolution

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

void CNamesListCtrl::fill(const RenameRun& run, int dpi)
{
    set_extended_style(LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    insert_column(OldName, u"Old Name", 0);
    insert_column(NewName, u"New Name", 0);
    if (run.shows_folders())
        insert_column(Folder, u"Folder", 0);
    set_redraw(false);
    fit_old_names(run);
    reserve_rows(run.row_count());
    const int columns = column_count();
    for (std::size_t row = 0; row < run.row_count(); ++row)
        insert_row(static_cast<int>(row), columns, reinterpret_cast<LPARAM>(&run.row_entry(row)));
    set_redraw(true);
    space_columns(dpi);
}

// The control would ask for every row's name, and measures each at the cost of several calls to the system.
void CNamesListCtrl::fit_old_names(const RenameRun& run) const
{
    TextRuler ruler(handle(), font());
    std::u16string_view widest;
    int greatest_width = -1;
    for (std::size_t row = 0; row < run.row_count(); ++row) {
        const std::u16string_view name = run.row_entry(row).name;
        if (const int width = ruler.width(name); width > greatest_width) {
            greatest_width = width;
            widest = name;
        }
    }
    if (run.row_count() > 0)
        fit_first_column(widest);
    else
        fit_column(OldName);
}

void CNamesListCtrl::remove_missing_rows(const RenameRun& run)
{
    set_redraw(false);
    std::size_t kept = run.row_count();
    for (int row = row_count() - 1; row >= 0; --row) {
        if (kept > 0 && row_data(row) == reinterpret_cast<LPARAM>(&run.row_entry(kept - 1)))
            --kept;
        else
            delete_row(row);
    }
    set_redraw(true);
}

void CNamesListCtrl::size_columns(int dpi) const noexcept
{
    fit_column(OldName);
    space_columns(dpi);
}

void CNamesListCtrl::space_columns(int dpi) const noexcept
{
    const int last = column_count() - 1;
    set_column_width(OldName, column_width(OldName) + scaled(old_name_allowance, dpi));
    if (last == Folder)
        set_column_width(NewName, column_width(OldName) + scaled(new_name_allowance, dpi));
    fill_with_column(last);
}

void CNamesListCtrl::fill_width(int dpi) const noexcept
{
    const int last = column_count() - 1;
    int room = static_cast<int>(client_size().cx);
    for (int column = 0; column < last; ++column)
        room -= column_width(column);
    set_column_width(last, std::max(room, scaled(smallest_last_column, dpi)));
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

std::optional<LRESULT> CNamesListCtrl::on_message(UINT message, WPARAM w, LPARAM l)
{
    using Me = CNamesListCtrl;
    static constexpr Route<Me> map[] = {
        on<&Me::menu_wanted>(),
        on<&Me::copy_names>(ID_COPY_NAMES),
        on<&Me::paste_names>(ID_PASTE_NAMES),
        on<&Me::reset_names>(ID_RESET_NAMES),
        on<&Me::remove_files>(ID_REMOVE_FILES),
        on<&Me::select_every_row>(ID_SELECT_ALL),
        on<&Me::invert_selection>(ID_INVERT_SELECTION),
    };
    return dispatch(map, *this, message, w, l);
}

void CNamesListCtrl::menu_wanted(MenuWanted event)
{
    if (event.is_from_keyboard()) {
        POINT corner = {};
        ClientToScreen(handle(), &corner);
        event.at = {corner.x + keyboard_menu_offset, corner.y + keyboard_menu_offset};
    }
    const CMenu menu(IDR_NAMES_MENU);
    if (!menu)
        return;
    const auto selected = static_cast<std::size_t>(selected_count());
    for (int item = 0; item < menu.size(); ++item) {
        if (menu.command(item) != 0)
            menu.set_text(item, names_menu_text(menu.text(item), selected));
    }
    // The list owns the menu even when its header was clicked: the commands are the list's.
    menu.show(TPM_RIGHTBUTTON, event.at, handle());
}

void CNamesListCtrl::copy_names(Chosen) { owner_.copy_names(selected_rows()); }

void CNamesListCtrl::paste_names(Chosen) { owner_.paste_names(selected_rows()); }

void CNamesListCtrl::reset_names(Chosen) { owner_.reset_names(selected_rows()); }

void CNamesListCtrl::remove_files(Chosen) { owner_.remove_files(selected_rows()); }

void CNamesListCtrl::select_every_row(Chosen)
{
    set_redraw(false);
    select_all();
    set_redraw(true);
}

void CNamesListCtrl::invert_selection(Chosen)
{
    set_redraw(false);
    for (int row = 0; row < row_count(); ++row)
        select(row, !is_selected(row));
    set_redraw(true);
}

} // namespace multirename
