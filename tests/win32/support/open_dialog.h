#pragma once

#include <windows.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/module.h"
#include "support/open_menu.h"

// The numbers of the pictures that say how a row stands.
inline constexpr int ready_image = 1;
inline constexpr int unchanged_image = 2;
inline constexpr int empty_image = 4;
inline constexpr int same_name_image = 5;
inline constexpr int existing_name_image = 6;
inline constexpr int invalid_image = 7;

/// What the names list shows of one row.
struct ShownRow {
    std::u16string old_name;
    std::u16string new_name;
    int image = 0; ///< one of those above; 0 for none
    bool operator==(const ShownRow&) const = default;
};

/// What a message box shows.
struct ShownMessage {
    std::u16string text;
    std::u16string caption;
    HICON icon = nullptr;
    bool operator==(const ShownMessage&) const = default;
};

void PrintTo(const ShownRow& row, std::ostream* out);
void PrintTo(const ShownMessage& message, std::ostream* out);

/// The messages of the dialog: its caption with the icon for what went wrong, or for what was done.
[[nodiscard]] ShownMessage warning(std::u16string_view text);
[[nodiscard]] ShownMessage information(std::u16string_view text);

/// The place of a text part in the pattern row, counted from 0 among the text parts.
struct PartIndex {
    std::size_t index;
};
[[nodiscard]] constexpr PartIndex part(std::size_t index) { return {index}; }

/// The dialog of one part's settings, on top of the module's dialog.
class PartDialog {
public:
    explicit PartDialog(HWND dialog) noexcept : dialog_(dialog) { }
    [[nodiscard]] HWND control(int id) const noexcept { return GetDlgItem(dialog_, id); }
    [[nodiscard]] bool is_enabled(int id) const { return IsWindowEnabled(control(id)) != FALSE; }
    [[nodiscard]] bool is_checked(int id) const;
    [[nodiscard]] std::u16string text(int id) const;
    /// Presses a button of any kind and waits until the dialog has taken it in.
    void press(int id) const;
    void type_into(int id, std::u16string_view text) const;
    /// Selects an item of a drop-down list as with the arrow keys.
    void select(int id, int item) const;
    /// Presses "OK" or "Cancel" and waits until the dialog is gone.
    void close_with(int id) const;

private:
    HWND dialog_;
};

/// The module's dialog, opened on a thread with a host window, and what a person does to it. Every operation waits for
/// what it brings about and fails the test when that does not come.
class OpenDialog {
public:
    /// Any count and any paths, also such as no sane host hands over.
    struct Call {
        INT32 count = 0;
        const wchar_t* const* paths = nullptr;
        const wchar_t* text = L"";
        bool has_parent = true;
    };
    OpenDialog(const Module& module, Call call);
    OpenDialog(const Module& module, const std::vector<std::u16string>& paths);
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;
    /// Cancels the dialog when it is still open.
    ~OpenDialog();

    [[nodiscard]] HWND handle() const noexcept { return dialog_; }
    [[nodiscard]] HWND host() const noexcept { return host_; }
    [[nodiscard]] HWND control(int id) const noexcept { return GetDlgItem(dialog_, id); }
    [[nodiscard]] bool is_open() const noexcept { return IsWindow(dialog_) != FALSE; }

    void type_into(PartIndex part, std::u16string_view text) const;
    void press(int id) const;
    /// Closes the message box, having waited for it, and gives what it showed.
    [[nodiscard]] ShownMessage take_message() const;
    /// Waits until the call into the module has come back.
    void wait_closed();
    /// "Rename", which is to succeed without a word.
    void rename();
    void cancel();

    /// The labels of the pattern row from left to right.
    [[nodiscard]] std::vector<std::u16string> pattern() const;
    [[nodiscard]] std::vector<ShownRow> rows() const;
    [[nodiscard]] std::vector<std::u16string> new_names() const;
    [[nodiscard]] std::vector<std::u16string> columns() const;
    [[nodiscard]] std::u16string cell(int row, int column) const;
    [[nodiscard]] bool is_checked(int id) const;
    [[nodiscard]] bool is_enabled(int id) const { return IsWindowEnabled(control(id)) != FALSE; }
    /// The window that has the focus of the dialog's thread.
    [[nodiscard]] HWND focus() const;

    /// Clicks the button of a wild or number part, counted from 0 among these, and waits for its dialog.
    [[nodiscard]] PartDialog click_part(std::size_t index, std::u16string_view title) const;
    /// The button of a wild or number part, counted likewise.
    [[nodiscard]] HWND part_button(std::size_t index) const;
    /// Opens the menu of a part's button, or of the list, with the keyboard.
    [[nodiscard]] OpenMenu part_menu(std::size_t index) const { return OpenMenu(part_button(index)); }
    [[nodiscard]] OpenMenu list_menu() const;

    [[nodiscard]] HWND list() const;
    /// Selects these rows and no others.
    void select_rows(const std::vector<int>& rows) const;
    [[nodiscard]] std::vector<int> selected_rows() const;

    /// Presses a button or check box and waits until the row shows these labels.
    void press_and_expect(int id, const std::vector<std::u16string>& labels) const;

    /// Drags the dialog to this outer size.
    void resize(int width, int height) const;
    [[nodiscard]] SIZE size() const;
    [[nodiscard]] SIZE client_size() const;
    /// Where a window stands in the dialog's client area.
    [[nodiscard]] RECT place_of(HWND window) const;

private:
    void open(const Module& module, Call call);

    std::vector<std::wstring> wide_paths_;
    std::vector<const wchar_t*> path_pointers_;
    std::jthread ui_;
    DWORD ui_id_ = 0;
    HWND host_ = nullptr;
    HWND dialog_ = nullptr;
    HANDLE finished_ = nullptr; // set when the call came back
};

/// Keeps the clipboard from everybody else for as long as it lives.
class UsedClipboard {
public:
    UsedClipboard();
    UsedClipboard(const UsedClipboard&) = delete;
    UsedClipboard& operator=(const UsedClipboard&) = delete;
    ~UsedClipboard();

private:
    HWND owner_; // without one, the system takes every user of this program for the same
};

void empty_clipboard();
void put_on_clipboard(std::u16string_view text);
[[nodiscard]] std::optional<std::u16string> clipboard_text();
