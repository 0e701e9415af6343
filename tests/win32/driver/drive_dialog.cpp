// Drives the dialog "Multi Rename" of another program, as its arguments say, one after the other:
//     wait               until the dialog is there
//     prepend PART TEXT  types in front of the text of the PART-th edit of the pattern row, counted from 0
//     type PART TEXT     replaces the text of the PART-th edit of the pattern row, counted from 0, by typing
//     press ID           presses the button with this number
//     press-part PART    presses the PART-th button of the pattern row, counted from 0
//     menu ID            opens the menu of the control with this number, and menu-part PART that of a row's button
//     key CODE           presses a key, by its code, where the focus is or in the menu that is open
//     focus ID           gives the control with this number the focus
//     size WIDTH HEIGHT  gives the dialog this outer size, in pixels
//     move TITLE X Y     moves the dialog with this title to this place of the screen
//     clipboard TEXT     puts the text on the clipboard
//     type-in TITLE ID TEXT  replaces the text of an edit of the dialog with this title, by typing
//     press-in TITLE ID  presses a button of the dialog with this title
//     wait-for TITLE     until a dialog with this title is there
//     answer             closes the message box that the dialog shows
//     wait-painted       until all of the dialog has been painted
//     wait-closed        until the dialog is gone
// Ends with 0 when all of it happened, with 1 at the first that did not, with 2 when it does not understand.

#include "driver/dialog_driver.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr std::u16string_view dialog_title = u"Multi Rename";
constexpr std::u16string_view message_title = u"Velloria - Multi Rename";
enum ExitStatus : int { Done = 0, DidNotHappen = 1, NotUnderstood = 2 };

std::vector<std::u16string> arguments()
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::u16string> copies;
    for (int i = 1; i < count; ++i) {
        const std::wstring_view word(words[i]);
        copies.emplace_back(word.begin(), word.end());
    }
    LocalFree(words);
    return copies;
}

HWND dialog() { return driver::find_dialog(dialog_title); }

std::size_t number(const std::u16string& word) { return std::stoul(std::string(word.begin(), word.end())); }

using Typing = bool (*)(HWND edit, std::u16string_view text);

bool type(Typing typing, std::size_t part, const std::u16string& text)
{
    const bool is_there = driver::wait_until([&] { return driver::part_edits(dialog()).size() > part; });
    return is_there && typing(driver::part_edits(dialog())[part], text);
}

bool press(int id)
{
    return driver::wait_until([&] { return driver::press(GetDlgItem(dialog(), id)); });
}

bool answer_message()
{
    HWND box = nullptr;
    const bool is_there = driver::wait_until([&] { return (box = driver::find_dialog(message_title)) != nullptr; });
    return is_there && PostMessageW(box, WM_COMMAND, IDOK, 0) != FALSE &&
        driver::wait_until([box] { return IsWindow(box) == FALSE; });
}

bool press_part(std::size_t part)
{
    return driver::wait_until([part] {
        const std::vector<HWND> buttons = driver::part_buttons(dialog());
        return part < buttons.size() && driver::press(buttons[part]);
    });
}

bool open_menu(HWND control)
{
    return driver::wait_until_active(control) &&
        PostMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(-1, -1)) != FALSE &&
        driver::wait_until([] { return driver::find_menu() != nullptr; });
}

bool open_part_menu(std::size_t part)
{
    const std::vector<HWND> buttons = driver::part_buttons(dialog());
    return part < buttons.size() && open_menu(buttons[part]);
}

bool press_key(WPARAM code)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(dialog(), nullptr);
    return GetGUIThreadInfo(thread, &info) != FALSE && PostMessageW(info.hwndFocus, WM_KEYDOWN, code, 1) != FALSE;
}

bool focus(int id)
{
    const HWND control = GetDlgItem(dialog(), id);
    driver::ask(dialog(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    return control != nullptr;
}

bool resize(int width, int height)
{
    return SetWindowPos(dialog(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE) != FALSE;
}

bool move(std::u16string_view title, int x, int y)
{
    return SetWindowPos(driver::find_dialog(title), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE) !=
        FALSE;
}

using Words = std::span<const std::u16string>; ///< what stands behind a command

int whole(const std::u16string& word) { return static_cast<int>(number(word)); }

struct Command {
    std::u16string_view name;
    std::size_t words;
    bool (*carry_out)(Words);
};

constexpr Command commands[] = {
    {u"wait", 0, [](Words) { return driver::wait_until([] { return dialog() != nullptr; }); }},
    {u"wait-for", 1, [](Words w) { return driver::wait_until([&w] { return driver::find_dialog(w[0]) != nullptr; }); }},
    {u"wait-closed", 0, [](Words) { return driver::wait_until([] { return dialog() == nullptr; }); }},
    {u"wait-painted", 0, [](Words) { return driver::wait_until_painted(dialog()); }},
    {u"answer", 0, [](Words) { return answer_message(); }},
    {u"type", 2, [](Words w) { return type(&driver::type_into, number(w[0]), w[1]); }},
    {u"prepend", 2, [](Words w) { return type(&driver::type_in_front, number(w[0]), w[1]); }},
    {u"press", 1, [](Words w) { return press(whole(w[0])); }},
    {u"press-in", 2, [](Words w) { return driver::press(GetDlgItem(driver::find_dialog(w[0]), whole(w[1]))); }},
    {u"type-in", 3,
     [](Words w) { return driver::type_into(GetDlgItem(driver::find_dialog(w[0]), whole(w[1])), w[2]); }},
    {u"press-part", 1, [](Words w) { return press_part(number(w[0])); }},
    {u"menu", 1, [](Words w) { return open_menu(GetDlgItem(dialog(), whole(w[0]))); }},
    {u"menu-part", 1, [](Words w) { return open_part_menu(number(w[0])); }},
    {u"key", 1, [](Words w) { return press_key(number(w[0])); }},
    {u"clipboard", 1, [](Words w) { return driver::put_on_clipboard(w[0]); }},
    {u"focus", 1, [](Words w) { return focus(whole(w[0])); }},
    {u"move", 3, [](Words w) { return move(w[0], whole(w[1]), whole(w[2])); }},
    {u"size", 2, [](Words w) { return resize(whole(w[0]), whole(w[1])); }},
};

ExitStatus drive(Words words)
{
    while (!words.empty()) {
        const auto command = std::ranges::find(commands, words.front(), &Command::name);
        words = words.subspan(1);
        if (command == std::end(commands) || words.size() < command->words)
            return NotUnderstood;
        if (!command->carry_out(words.first(command->words)))
            return DidNotHappen;
        words = words.subspan(command->words);
    }
    return Done;
}

} // namespace

int main()
{
    try {
        return drive(arguments());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "drive_dialog: %s\n", failure.what());
        return NotUnderstood;
    }
}
