#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// What a menu shows of one item; a separator has no text and no command.
struct ShownItem {
    std::u16string text;
    UINT command = 0;
    bool is_enabled = true;
    bool operator==(const ShownItem&) const = default;
};
void PrintTo(const ShownItem& item, std::ostream* out);

[[nodiscard]] inline ShownItem separator() { return {u"", 0, true}; }
[[nodiscard]] inline ShownItem greyed(std::u16string_view text, UINT command)
{
    return {std::u16string(text), command, false};
}
[[nodiscard]] inline ShownItem offered(std::u16string_view text, UINT command)
{
    return {std::u16string(text), command, true};
}

/// The popup menu that a thread has open, opened by asking a control for its menu. Every operation waits for what it
/// brings about and fails the test when that does not come.
class OpenMenu {
public:
    /// As the keyboard's context-menu key does, or a right click at a point of the screen.
    explicit OpenMenu(HWND control);
    OpenMenu(HWND control, POINT at);

    [[nodiscard]] std::vector<ShownItem> items() const;
    /// Its rectangle on the screen.
    [[nodiscard]] RECT area() const;
    /// Goes down to the item with the arrow key and presses Enter.
    void choose(std::u16string_view text) const;
    void dismiss() const;
    [[nodiscard]] bool is_open() const;
    void wait_closed() const;

private:
    void open(LPARAM point);
    void press_key(WPARAM key) const;

    HWND control_;
    HWND popup_ = nullptr;
};
