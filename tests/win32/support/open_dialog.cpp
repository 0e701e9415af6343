#include "support/open_dialog.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <array>
#include <future>

#include "driver/dialog_driver.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "win32/res/resource.h"

namespace {

using driver::ask;
using multirename::from_wide;
using multirename::to_wide;

constexpr std::u16string_view dialog_title = u"Multi Rename";
constexpr std::u16string_view message_caption = u"Velloria - Multi Rename";

std::string printable(std::u16string_view text) { return multirename::to_bytes(text); }

} // namespace

void PrintTo(const ShownRow& row, std::ostream* out)
{
    *out << '"' << printable(row.old_name) << "\" -> \"" << printable(row.new_name) << "\" image " << row.image;
}

void PrintTo(const ShownMessage& message, std::ostream* out)
{
    *out << '"' << printable(message.caption) << "\": \"" << printable(message.text) << "\" icon " << message.icon;
}

ShownMessage warning(std::u16string_view text)
{
    return {std::u16string(text), std::u16string(message_caption), LoadIconW(nullptr, IDI_EXCLAMATION)};
}

ShownMessage information(std::u16string_view text)
{
    return {std::u16string(text), std::u16string(message_caption), LoadIconW(nullptr, IDI_INFORMATION)};
}

OpenDialog::OpenDialog(const Module& module, Call call) { open(module, call); }

OpenDialog::OpenDialog(const Module& module, const std::vector<std::u16string>& paths)
{
    for (const std::u16string& path : paths)
        wide_paths_.push_back(to_wide(path));
    for (const std::wstring& path : wide_paths_)
        path_pointers_.push_back(path.c_str());
    open(module, {static_cast<INT32>(path_pointers_.size()), path_pointers_.data()});
}

void OpenDialog::open(const Module& module, Call call)
{
    struct Start {
        DWORD thread;
        HWND host;
    };
    std::promise<Start> started;
    finished_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    ui_ = std::jthread([&started, run = module.run(), call, finished = finished_] {
        const HWND host = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                          nullptr, nullptr);
        started.set_value({GetCurrentThreadId(), host});
        run(call.has_parent ? host : nullptr, call.count, call.paths, 1, call.text);
        DestroyWindow(host);
        SetEvent(finished);
    });
    const Start start = started.get_future().get();
    ui_id_ = start.thread;
    host_ = start.host;
    EXPECT_TRUE(driver::wait_until([&] {
        dialog_ = driver::find_dialog(dialog_title, ui_id_);
        return dialog_ != nullptr;
    })) << "the dialog did not open";
}

OpenDialog::~OpenDialog()
{
    if (ui_.joinable() && WaitForSingleObject(finished_, 0) != WAIT_OBJECT_0) {
        if (const HWND box = driver::find_dialog(message_caption, ui_id_))
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
    }
    if (ui_.joinable())
        ui_.join();
    CloseHandle(finished_);
}

void OpenDialog::type_into(PartIndex part, std::u16string_view text) const
{
    const std::vector<HWND> edits = driver::part_edits(dialog_);
    ASSERT_LT(part.index, edits.size()) << "the row has no such text part";
    EXPECT_TRUE(driver::type_into(edits[part.index], text));
}

void OpenDialog::press(int id) const { EXPECT_TRUE(driver::press(control(id))) << "button " << id; }

ShownMessage OpenDialog::take_message() const
{
    HWND box = nullptr;
    const bool came = driver::wait_until([&] {
        box = driver::find_dialog(message_caption, ui_id_);
        return box != nullptr;
    });
    EXPECT_TRUE(came) << "no message came";
    if (!came)
        return {};
    ShownMessage message;
    message.text = driver::text_of(driver::message_part(box, driver::MessagePart::Text));
    message.caption = driver::text_of(box);
    message.icon = reinterpret_cast<HICON>(ask(driver::message_part(box, driver::MessagePart::Icon), STM_GETICON));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(driver::wait_until([box] { return IsWindow(box) == FALSE; }));
    return message;
}

void OpenDialog::wait_closed()
{
    constexpr auto bound = std::chrono::duration_cast<std::chrono::milliseconds>(driver::patience);
    ASSERT_EQ(WaitForSingleObject(finished_, static_cast<DWORD>(bound.count())), WAIT_OBJECT_0)
        << "the dialog stayed open";
    ui_.join();
}

void OpenDialog::rename()
{
    press(IDOK);
    wait_closed();
}

void OpenDialog::cancel()
{
    press(IDCANCEL);
    wait_closed();
}

std::vector<std::u16string> OpenDialog::pattern() const
{
    std::vector<std::u16string> labels;
    for (const HWND control : driver::row_controls(dialog_))
        labels.push_back(driver::text_of(control));
    return labels;
}

std::u16string OpenDialog::cell(int row, int column) const
{
    std::vector<wchar_t> text(1024);
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    const LRESULT length = ask(list(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return from_wide({item.pszText, static_cast<std::size_t>(length)});
}

std::vector<ShownRow> OpenDialog::rows() const
{
    const auto count = static_cast<int>(ask(list(), LVM_GETITEMCOUNT));
    std::vector<ShownRow> rows;
    for (int row = 0; row < count; ++row) {
        const LRESULT state = ask(list(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
        rows.push_back({cell(row, 0), cell(row, 1), static_cast<int>(state >> 12)});
    }
    return rows;
}

std::vector<std::u16string> OpenDialog::new_names() const
{
    std::vector<std::u16string> names;
    for (const ShownRow& row : rows())
        names.push_back(row.new_name);
    return names;
}

std::vector<std::u16string> OpenDialog::columns() const
{
    const auto count = ask(reinterpret_cast<HWND>(ask(list(), LVM_GETHEADER)), HDM_GETITEMCOUNT);
    std::vector<std::u16string> titles;
    for (LRESULT column = 0; column < count; ++column) {
        std::array<wchar_t, 64> title = {};
        LVCOLUMNW description = {};
        description.mask = LVCF_TEXT;
        description.pszText = title.data();
        description.cchTextMax = static_cast<int>(title.size());
        ask(list(), LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&description));
        titles.push_back(from_wide(description.pszText));
    }
    return titles;
}

HWND OpenDialog::part_button(std::size_t index) const
{
    const std::vector<HWND> buttons = driver::part_buttons(dialog_);
    EXPECT_LT(index, buttons.size()) << "the row has no such button";
    return index < buttons.size() ? buttons[index] : nullptr;
}

PartDialog OpenDialog::click_part(std::size_t index, std::u16string_view title) const
{
    EXPECT_TRUE(driver::press(part_button(index)));
    EXPECT_TRUE(driver::wait_until([&] { return driver::find_dialog(title, ui_id_) != nullptr; }));
    return PartDialog(driver::find_dialog(title, ui_id_));
}

HWND OpenDialog::list() const { return control(IDC_NAMES_LIST); }

OpenMenu OpenDialog::list_menu() const
{
    driver::wait_until_active(list());
    return OpenMenu(list());
}

void OpenDialog::select_rows(const std::vector<int>& rows) const
{
    const auto select = [this](int row, bool selected) {
        LVITEMW change = {};
        change.stateMask = LVIS_SELECTED;
        change.state = selected ? LVIS_SELECTED : 0;
        ask(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&change));
    };
    constexpr int every_row = -1;
    select(every_row, false);
    for (const int row : rows)
        select(row, true);
}

std::vector<int> OpenDialog::selected_rows() const
{
    std::vector<int> rows;
    const auto count = static_cast<int>(ask(list(), LVM_GETITEMCOUNT));
    for (int row = 0; row < count; ++row) {
        if (ask(list(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0)
            rows.push_back(row);
    }
    return rows;
}

void OpenDialog::press_and_expect(int id, const std::vector<std::u16string>& labels) const
{
    press(id);
    EXPECT_TRUE(driver::wait_until([&] { return pattern() == labels; }));
}

void OpenDialog::resize(int width, int height) const
{
    SetWindowPos(dialog_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(driver::wait_until([&] { return size().cx == width && size().cy == height; }));
}

SIZE OpenDialog::size() const
{
    RECT area = {};
    GetWindowRect(dialog_, &area);
    return {area.right - area.left, area.bottom - area.top};
}

SIZE OpenDialog::client_size() const
{
    RECT area = {};
    GetClientRect(dialog_, &area);
    return {area.right, area.bottom};
}

RECT OpenDialog::place_of(HWND window) const
{
    RECT area = {};
    GetWindowRect(window, &area);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

bool PartDialog::is_checked(int id) const { return ask(control(id), BM_GETCHECK) == BST_CHECKED; }

std::u16string PartDialog::text(int id) const { return driver::text_of(control(id)); }

void PartDialog::press(int id) const
{
    EXPECT_TRUE(is_enabled(id) && driver::wait_until_active(control(id))) << id;
    ask(control(id), BM_CLICK);
}

void PartDialog::type_into(int id, std::u16string_view text) const
{
    EXPECT_TRUE(driver::type_into(control(id), text)) << id;
}

void PartDialog::select(int id, int item) const
{
    ask(control(id), CB_SETCURSEL, static_cast<WPARAM>(item));
    ask(dialog_, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(control(id)));
}

void PartDialog::close_with(int id) const
{
    EXPECT_TRUE(driver::press(control(id)));
    EXPECT_TRUE(driver::wait_until([this] { return IsWindow(dialog_) == FALSE; }));
}

bool OpenDialog::is_checked(int id) const { return ask(control(id), BM_GETCHECK) == BST_CHECKED; }

HWND OpenDialog::focus() const
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(ui_id_, &info);
    return info.hwndFocus;
}

UsedClipboard::UsedClipboard() :
    owner_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr))
{
    EXPECT_TRUE(driver::wait_until([this] { return OpenClipboard(owner_) != FALSE; }));
}

UsedClipboard::~UsedClipboard()
{
    CloseClipboard();
    DestroyWindow(owner_);
}

void empty_clipboard()
{
    const UsedClipboard open;
    EmptyClipboard();
}

void put_on_clipboard(std::u16string_view text) { EXPECT_TRUE(driver::put_on_clipboard(text)); }

std::optional<std::u16string> clipboard_text()
{
    const UsedClipboard open;
    const HANDLE block = GetClipboardData(CF_UNICODETEXT);
    if (block == nullptr)
        return std::nullopt;
    const std::u16string text = from_wide(static_cast<const wchar_t*>(GlobalLock(block)));
    GlobalUnlock(block);
    return text;
}
