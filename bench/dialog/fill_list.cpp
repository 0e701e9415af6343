// The least that a dialog with such a list costs: shows the same list control with the same rows, and nothing else.
//     fill_list texts COUNT            rows with their texts, made up in memory
//     fill_list callbacks COUNT        rows whose texts and pictures are asked for when they are shown
//     fill_list folder COUNT FOLDER    the same with the names that the folder holds, read when the dialog opens
// Prints the milliseconds of opening, of scrolling by a page, and a dash.

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "fill_list.h"
#include "stopwatch.h"

namespace {

// The widths that the dialog's columns have for the same names, at 96 dots per inch.
constexpr std::array column_widths = {132, 576};
constexpr SIZE image_size = {16, 16};
constexpr int images = 7;

struct Contents {
    bool has_texts = false;
    std::wstring folder; // nothing: the names are made up
    int count = 0;
    std::vector<std::wstring> names;
};

void read_folder(Contents& contents)
{
    contents.names.clear();
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((contents.folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        const bool is_wanted = static_cast<int>(contents.names.size()) < contents.count;
        if (is_wanted && (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            contents.names.emplace_back(found.cFileName);
    } while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
}

void make_up_names(Contents& contents)
{
    contents.names.clear();
    for (int i = 0; i < contents.count; ++i)
        contents.names.push_back(sample_name(i));
}

void insert_columns(HWND list)
{
    const std::array<const wchar_t*, 2> titles = {L"Old Name", L"New Name"};
    for (int column = 0; column < 2; ++column) {
        std::wstring title = titles[static_cast<std::size_t>(column)];
        LVCOLUMNW description = {};
        description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        description.pszText = title.data();
        description.cx = column_widths[static_cast<std::size_t>(column)];
        description.iSubItem = column;
        ListView_InsertColumn(list, column, &description);
    }
}

void insert_row(HWND list, int row, Contents& contents)
{
    wchar_t* const text =
        contents.has_texts ? contents.names[static_cast<std::size_t>(row)].data() : LPSTR_TEXTCALLBACKW;
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = row;
    item.pszText = text;
    item.lParam = row;
    if (contents.has_texts) {
        item.mask |= LVIF_STATE;
        item.state = INDEXTOSTATEIMAGEMASK(1);
        item.stateMask = LVIS_STATEIMAGEMASK;
    }
    ListView_InsertItem(list, &item);
    ListView_SetItemText(list, row, 1, text);
}

void fill(HWND list, Contents& contents)
{
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    ListView_SetImageList(list, ImageList_Create(image_size.cx, image_size.cy, ILC_COLOR32, images, 0), LVSIL_STATE);
    if (!contents.has_texts)
        ListView_SetCallbackMask(list, LVIS_STATEIMAGEMASK);
    insert_columns(list);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    ListView_SetItemCount(list, contents.count);
    for (int row = 0; row < static_cast<int>(contents.names.size()); ++row)
        insert_row(list, row, contents);
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

void answer(Contents& contents, LVITEMW& item)
{
    if ((item.mask & LVIF_TEXT) != 0)
        item.pszText = contents.names[static_cast<std::size_t>(item.iItem)].data();
    if ((item.mask & LVIF_STATE) != 0) {
        item.state = INDEXTOSTATEIMAGEMASK(1);
        item.stateMask = LVIS_STATEIMAGEMASK;
    }
}

bool open_on(HWND dialog, Contents& contents)
{
    SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&contents));
    fill(GetDlgItem(dialog, IDC_LIST), contents);
    return true;
}

INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_INITDIALOG: return open_on(dialog, *reinterpret_cast<Contents*>(l)) ? TRUE : FALSE;
    case WM_COMMAND: return LOWORD(w) == IDCANCEL && EndDialog(dialog, IDCANCEL) != FALSE;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(l)->code != LVN_GETDISPINFOW)
            return FALSE;
        answer(*reinterpret_cast<Contents*>(GetWindowLongPtrW(dialog, DWLP_USER)),
               reinterpret_cast<NMLVDISPINFOW*>(l)->item);
        return TRUE;
    default: return FALSE;
    }
}

int show(Contents contents)
{
    const int wanted = contents.count;
    const auto open = [&](HWND owner, int count) {
        contents.count = count;
        if (contents.folder.empty())
            make_up_names(contents);
        else
            read_folder(contents);
        DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_FILL_LIST), owner, &procedure,
                        reinterpret_cast<LPARAM>(&contents));
    };
    return time_and_print(open, wanted, IDC_LIST, [](HWND) { return true; });
}

} // namespace

int main()
{
    SetProcessDPIAware();
    try {
        const std::vector<std::wstring> words = arguments();
        if (words.size() < 2 || (words[0] == L"folder") != (words.size() == 3))
            throw std::runtime_error("see the first lines of fill_list.cpp");
        const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&controls);
        return show({words[0] == L"texts", words.size() == 3 ? words[2] : L"", std::stoi(words[1]), {}});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "fill_list: %s\n", failure.what());
        return 2;
    }
}
