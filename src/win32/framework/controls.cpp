#include "win32/framework/controls.h"

#include <system_error>

#include "platform/windows/wide.h"
#include "win32/framework/module.h"

namespace multirename {

namespace {

TTTOOLINFOW tool_info(HWND owner, HWND control) noexcept
{
    TTTOOLINFOW info = {};
    info.cbSize = TTTOOLINFOW_V1_SIZE;
    info.uFlags = TTF_IDISHWND;
    info.hwnd = owner;
    info.uId = reinterpret_cast<UINT_PTR>(control);
    return info;
}

} // namespace

HWND create_control(HWND parent, const ControlRequest& request)
{
    const HWND control = CreateWindowExW(
        request.extended_style, request.window_class, to_wide(request.text).c_str(), WS_CHILD | request.style, 0, 0, 0,
        0, parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(request.id)), module_instance(), nullptr);
    if (control == nullptr)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
    return control;
}

bool CButton::is_checked() const noexcept { return send(BM_GETCHECK) == BST_CHECKED; }

void CButton::set_checked(bool checked) const noexcept { send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }

void CEdit::set_limit(UINT characters) const noexcept { send(EM_SETLIMITTEXT, characters); }

TextSelection CEdit::selection() const noexcept
{
    TextSelection selection;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&selection.first), reinterpret_cast<LPARAM>(&selection.last));
    return selection;
}

void CEdit::select(TextSelection selection) const noexcept
{
    send(EM_SETSEL, selection.first, static_cast<LPARAM>(selection.last));
}

void CEdit::select_all() const noexcept { send(EM_SETSEL, 0, -1); }

void CEdit::select_nothing() const noexcept
{
    const DWORD caret = selection().last;
    select({caret, caret});
}

void CEdit::scroll_to_caret() const noexcept { send(EM_SCROLLCARET); }

void CComboBox::append(std::u16string_view text, LPARAM item_data) const
{
    const LRESULT item = send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(to_wide(text).c_str()));
    send(CB_SETITEMDATA, static_cast<WPARAM>(item), item_data);
}

void CComboBox::select_data(std::optional<LPARAM> item_data) const noexcept
{
    const LRESULT count = item_data ? send(CB_GETCOUNT) : 0;
    LRESULT item = 0;
    while (item < count && send(CB_GETITEMDATA, static_cast<WPARAM>(item)) != *item_data)
        ++item;
    send(CB_SETCURSEL, static_cast<WPARAM>(item < count ? item : -1));
}

std::optional<LPARAM> CComboBox::selected_data() const noexcept
{
    const LRESULT item = send(CB_GETCURSEL);
    if (item == CB_ERR)
        return std::nullopt;
    return send(CB_GETITEMDATA, static_cast<WPARAM>(item));
}

void CListCtrl::set_extended_style(DWORD style) const noexcept
{
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, static_cast<LPARAM>(style));
}

void CListCtrl::insert_column(int column, std::u16string_view title, int width) const
{
    std::wstring wide_title = to_wide(title);
    LVCOLUMNW description = {};
    description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    description.pszText = wide_title.data();
    description.cx = width;
    description.iSubItem = column;
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&description));
}

void CListCtrl::set_column_width(int column, int width) const noexcept
{
    send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
}

int CListCtrl::column_width(int column) const noexcept
{
    return static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

void CListCtrl::fit_column(int column) const noexcept { set_column_width(column, LVSCW_AUTOSIZE); }

// What the control leaves beside a text is its own affair, so it is shown the one text that counts.
void CListCtrl::fit_first_column(std::u16string_view widest_text) const
{
    std::wstring wide = to_wide(widest_text);
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.pszText = wide.data();
    send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    fit_column(0);
    delete_row(0);
}

void CListCtrl::fill_with_column(int column) const noexcept { set_column_width(column, LVSCW_AUTOSIZE_USEHEADER); }

void CListCtrl::reserve_rows(std::size_t count) const noexcept { send(LVM_SETITEMCOUNT, count); }

void CListCtrl::insert_row(int row, int columns, LPARAM row_data) const noexcept
{
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = row;
    item.pszText = LPSTR_TEXTCALLBACKW;
    item.lParam = row_data;
    send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    for (int column = 1; column < columns; ++column) {
        LVITEMW cell = {};
        cell.iSubItem = column;
        cell.pszText = LPSTR_TEXTCALLBACKW;
        send(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
    }
}

void CListCtrl::set_state_images(HIMAGELIST images) const noexcept
{
    send(LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(images));
    send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
}

LPARAM CListCtrl::row_data(int row) const noexcept
{
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.lParam;
}

int CListCtrl::row_count() const noexcept { return static_cast<int>(send(LVM_GETITEMCOUNT)); }

int CListCtrl::column_count() const noexcept
{
    return Header_GetItemCount(reinterpret_cast<HWND>(send(LVM_GETHEADER)));
}

void CListCtrl::delete_row(int row) const noexcept { send(LVM_DELETEITEM, static_cast<WPARAM>(row)); }

bool CListCtrl::is_selected(int row) const noexcept
{
    return (send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

void CListCtrl::select(int row, bool selected) const noexcept
{
    LVITEMW change = {};
    change.stateMask = LVIS_SELECTED;
    change.state = selected ? LVIS_SELECTED : 0;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&change));
}

void CListCtrl::select_all() const noexcept
{
    constexpr int all_rows = -1;
    select(all_rows, true);
}

int CListCtrl::selected_count() const noexcept { return static_cast<int>(send(LVM_GETSELECTEDCOUNT)); }

std::vector<std::size_t> CListCtrl::selected_rows() const
{
    std::vector<std::size_t> rows;
    for (LRESULT row = -1; (row = send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)) != -1;)
        rows.push_back(static_cast<std::size_t>(row));
    return rows;
}

void CToolTipCtrl::create(HWND owner)
{
    attach(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                           module_instance(), nullptr));
    send(TTM_ACTIVATE, TRUE);
}

void CToolTipCtrl::add_tool(HWND control, std::u16string_view text) const
{
    std::wstring wide = to_wide(text);
    TTTOOLINFOW info = tool_info(GetParent(control), control);
    info.lpszText = wide.data();
    send(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::remove_tool(HWND control) const noexcept
{
    TTTOOLINFOW info = tool_info(GetParent(control), control);
    send(TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::relay(const MSG& message) const noexcept
{
    MSG copy = message;
    send(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copy));
}

} // namespace multirename
