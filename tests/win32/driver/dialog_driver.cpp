#include "driver/dialog_driver.h"

#include <algorithm>

namespace driver {

namespace {

constexpr int part_edit_id = 1500;
constexpr int part_button_id = 1501;

struct Search {
    std::u16string_view title;
    HWND found = nullptr;
};

std::u16string class_of(HWND window)
{
    wchar_t name[64] = {};
    const int length = GetClassNameW(window, name, 64);
    return {name, name + length};
}

BOOL CALLBACK compare(HWND window, LPARAM l)
{
    auto& search = *reinterpret_cast<Search*>(l);
    if (class_of(window) != u"#32770" || IsWindowVisible(window) == FALSE || text_of(window) != search.title)
        return TRUE;
    search.found = window;
    return FALSE;
}

bool is_active(HWND window)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != FALSE && info.hwndActive == window;
}

LONG left_edge(HWND window)
{
    RECT area = {};
    GetWindowRect(window, &area);
    return area.left;
}

std::vector<HWND> row_controls(HWND dialog, int id)
{
    std::vector<HWND> controls = driver::row_controls(dialog);
    std::erase_if(controls, [id](HWND control) { return GetDlgCtrlID(control) != id; });
    return controls;
}

// Types at the caret; true when the edit then holds what is expected.
bool type_keys(HWND edit, std::u16string_view keys, std::u16string_view expected)
{
    for (const char16_t unit : keys)
        ask(edit, WM_CHAR, unit, 1);
    return wait_until([&] { return text_of(edit) == expected; });
}

} // namespace

LRESULT ask(HWND window, UINT message, WPARAM w, LPARAM l)
{
    DWORD_PTR result = 0;
    constexpr auto bound = std::chrono::duration_cast<std::chrono::milliseconds>(patience);
    SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, static_cast<UINT>(bound.count()), &result);
    return static_cast<LRESULT>(result);
}

std::u16string text_of(HWND window)
{
    std::wstring text(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
    const LRESULT length = ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return {text.begin(), text.begin() + length};
}

HWND find_dialog(std::u16string_view title, DWORD thread)
{
    Search search{title};
    if (thread != 0)
        EnumThreadWindows(thread, &compare, reinterpret_cast<LPARAM>(&search));
    else
        EnumWindows(&compare, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND message_part(HWND box, MessagePart part)
{
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const bool is_icon = (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
        if (class_of(child) == u"Static" && is_icon == (part == MessagePart::Icon))
            return child;
    }
    return nullptr;
}

HWND find_menu(DWORD thread)
{
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32768", nullptr)) != nullptr;) {
        const bool is_wanted = thread == 0 || GetWindowThreadProcessId(window, nullptr) == thread;
        if (is_wanted && IsWindowVisible(window) != FALSE)
            return window;
    }
    return nullptr;
}

std::vector<HWND> row_controls(HWND dialog)
{
    std::vector<HWND> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if (id == part_edit_id || id == part_button_id)
            controls.push_back(child);
    }
    std::ranges::stable_sort(controls, {}, &left_edge);
    return controls;
}

std::vector<HWND> part_edits(HWND dialog) { return row_controls(dialog, part_edit_id); }

std::vector<HWND> part_buttons(HWND dialog) { return row_controls(dialog, part_button_id); }

bool type_into(HWND edit, std::u16string_view text)
{
    if (IsWindowEnabled(edit) == FALSE)
        return false;
    ask(edit, EM_SETSEL, 0, -1);
    if (text.empty())
        ask(edit, WM_CHAR, VK_BACK);
    return type_keys(edit, text, text);
}

bool type_in_front(HWND edit, std::u16string_view text)
{
    if (IsWindowEnabled(edit) == FALSE)
        return false;
    ask(edit, EM_SETSEL, 0, 0);
    return type_keys(edit, text, std::u16string(text) + text_of(edit));
}

bool wait_until_active(HWND control)
{
    const HWND dialog = GetAncestor(control, GA_ROOT);
    return wait_until([dialog] { return is_active(dialog); });
}

bool wait_until_painted(HWND window)
{
    const auto is_painted = [](HWND part) { return GetUpdateRect(part, nullptr, FALSE) == FALSE; };
    return wait_until([&] {
        HWND child = GetWindow(window, GW_CHILD);
        while (child != nullptr && is_painted(child))
            child = GetWindow(child, GW_HWNDNEXT);
        return child == nullptr && is_painted(window);
    });
}

bool press(HWND button)
{
    if (button == nullptr || IsWindowEnabled(button) == FALSE)
        return false;
    return wait_until_active(button) && PostMessageW(button, BM_CLICK, 0, 0) != FALSE;
}

bool put_on_clipboard(std::u16string_view text)
{
    if (!wait_until([] { return OpenClipboard(nullptr) != FALSE; }))
        return false;
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* const place = static_cast<wchar_t*>(GlobalLock(block));
    *std::copy(text.begin(), text.end(), place) = L'\0';
    GlobalUnlock(block);
    const bool is_there = SetClipboardData(CF_UNICODETEXT, block) != nullptr;
    CloseClipboard();
    return is_there;
}

} // namespace driver
