#pragma once

#include <windows.h>

#include <chrono>
#include <concepts>
#include <string>
#include <string_view>
#include <vector>

/// What a person does to the dialog and sees of it, done from another thread or another program. Nothing here sleeps
/// for a fixed time: every operation waits for what it brings about, and gives up after a bound.
namespace driver {

inline constexpr std::chrono::seconds patience{20};

/// Waits until the condition holds; false when it did not within the bound.
template <std::predicate Condition>
bool wait_until(Condition condition, std::chrono::milliseconds bound = patience)
{
    const auto give_up = std::chrono::steady_clock::now() + bound;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > give_up)
            return false;
        Sleep(1);
    }
    return true;
}

/// The result of a message; 0 when the window does not answer within the bound.
LRESULT ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0);

[[nodiscard]] std::u16string text_of(HWND window);

/// The visible dialog box with this title, of one thread or, with 0, of any program; null when there is none.
[[nodiscard]] HWND find_dialog(std::u16string_view title, DWORD thread = 0);

/// What a message box shows beside its buttons.
enum class MessagePart { Text, Icon };

/// The control of a message box that shows its text or its icon; null when there is none.
[[nodiscard]] HWND message_part(HWND box, MessagePart part);

/// The popup menu that is open, of one thread or, with 0, of any program; null when there is none.
[[nodiscard]] HWND find_menu(DWORD thread = 0);

/// The controls of the pattern row in the order of their places.
[[nodiscard]] std::vector<HWND> row_controls(HWND dialog);

/// The edits among them: the text parts.
[[nodiscard]] std::vector<HWND> part_edits(HWND dialog);

/// The buttons among them: the wild and number parts.
[[nodiscard]] std::vector<HWND> part_buttons(HWND dialog);

/// Replaces the text of an edit by typing. True when the edit has come to hold just that.
bool type_into(HWND edit, std::u16string_view text);

/// Types in front of the text of an edit. True when the edit has come to hold both.
bool type_in_front(HWND edit, std::u16string_view text);

/// Waits until nothing of the window and its controls is left to be painted. True when that came about.
bool wait_until_painted(HWND window);

/// Waits until the control's dialog is the active one of its thread; before, a click would be lost.
bool wait_until_active(HWND control);

/// Presses a button of an active dialog and comes back without waiting for what comes of it; false when the button
/// cannot be pressed or the dialog does not become active.
bool press(HWND button);

/// Puts the text on the clipboard, in place of whatever is there. True when it is there.
bool put_on_clipboard(std::u16string_view text);

} // namespace driver
