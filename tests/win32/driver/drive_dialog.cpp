// Drives the dialog "Multi Rename" of another program, as its arguments say, one after the other:
//     wait               until the dialog is there
//     prepend PART TEXT  types in front of the text of the PART-th edit of the pattern row, counted from 0
//     type PART TEXT     replaces the text of the PART-th edit of the pattern row, counted from 0, by typing
//     press ID           presses the button with this number
//     answer             closes the message box that the dialog shows
//     wait-painted       until all of the dialog has been painted
//     wait-closed        until the dialog is gone
// Ends with 0 when all of it happened, with 1 at the first that did not, with 2 when it does not understand.

#include "driver/dialog_driver.h"

#include <windows.h>

#include <shellapi.h>

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

ExitStatus drive(std::span<const std::u16string> words)
{
    while (!words.empty()) {
        bool happened = false;
        std::size_t used = 1;
        if (words[0] == u"wait") {
            happened = driver::wait_until([] { return dialog() != nullptr; });
        } else if (words[0] == u"wait-closed") {
            happened = driver::wait_until([] { return dialog() == nullptr; });
        } else if (words[0] == u"wait-painted") {
            happened = driver::wait_until_painted(dialog());
        } else if (words[0] == u"answer") {
            happened = answer_message();
        } else if (words[0] == u"type" && words.size() >= 3) {
            happened = type(&driver::type_into, number(words[1]), words[2]);
            used = 3;
        } else if (words[0] == u"prepend" && words.size() >= 3) {
            happened = type(&driver::type_in_front, number(words[1]), words[2]);
            used = 3;
        } else if (words[0] == u"press" && words.size() >= 2) {
            happened = press(static_cast<int>(number(words[1])));
            used = 2;
        } else {
            return NotUnderstood;
        }
        if (!happened)
            return DidNotHappen;
        words = words.subspan(used);
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
