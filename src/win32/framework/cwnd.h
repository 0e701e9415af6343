#pragma once

#include <windows.h>

#include <array>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "win32/framework/handles.h"

namespace multirename {

/// Takes what a window procedure could not handle, so that it comes out where the modal call was made.
class FailureSink {
public:
    virtual void fail(std::exception_ptr failure) noexcept = 0;

protected:
    ~FailureSink() = default;
};

/// A window. The wrapper does not own it, but forgets it when the system destroys it. A wrapper that has been hooked
/// sees the window's messages first and must live as long as the window, or be unhooked.
class CWnd {
public:
    explicit CWnd(HWND window = nullptr) noexcept : window_(window) { }
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd();

    [[nodiscard]] HWND handle() const noexcept { return window_; }

    /// Wraps an existing window, and lets go of the one before.
    void attach(HWND window) noexcept;

    /// Like `attach`, and from then on `on_message` sees every message of the window before the window does. What it
    /// throws goes to `failures`, which must outlive the window. The window's user data are the wrapper's meanwhile.
    void hook(HWND window, FailureSink& failures) noexcept;

    /// Sends a message and gives its result.
    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const noexcept;

    [[nodiscard]] std::u16string text() const;
    void set_text(std::u16string_view text) const;
    void set_font(HFONT font) const noexcept;
    [[nodiscard]] HFONT font() const noexcept;
    void enable(bool enabled) const noexcept;
    [[nodiscard]] bool is_enabled() const noexcept;
    void focus() const noexcept;
    /// Pixels, in the parent's client area for a child.
    void move(int x, int y, int width, int height) const noexcept;
    [[nodiscard]] SIZE client_size() const noexcept;
    /// Its outer rectangle on the screen.
    [[nodiscard]] RECT window_area() const noexcept;
    void show(bool shown) const noexcept;
    /// Has the window, or a part of its client area, painted again in due course.
    void repaint() const noexcept;
    void repaint(const RECT& area) const noexcept;
    /// Has painting wait until it is switched on again; then all is painted.
    void set_redraw(bool on) const noexcept;

protected:
    /// The result of a message that the wrapper handles; nothing leaves it to the window.
    virtual std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l);

private:
    friend class CDialog;
    static LRESULT CALLBACK hooked_procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    void release() noexcept;

    HWND window_ = nullptr;
    FailureSink* failures_ = nullptr; // set while hooked
    WNDPROC replaced_procedure_ = nullptr; // the window's own, while hooked
};

/// Pixels that the text takes in a font, on one line.
[[nodiscard]] int text_width(HWND window, HFONT font, std::u16string_view text);

/// Measures many texts in one font: far fewer calls than `text_width` for each, with the same results.
class TextRuler {
public:
    /// The window and the font must outlive the ruler.
    TextRuler(HWND window, HFONT font) noexcept;

    /// What `text_width` gives.
    [[nodiscard]] int width(std::u16string_view text);

private:
    static constexpr std::size_t remembered_units = 0x300; // Latin letters: nothing joins or reorders them
    WindowDeviceContext context_;
    SelectedObject selected_;
    std::array<int, remembered_units> widths_; // of one unit each, as far as known
};

/// A font like this one, changed in weight (when given, 400 is normal, 700 bold) and height (in the font's own units,
/// times numerator / denominator, fractions dropped).
[[nodiscard]] HFONT create_font_like(HFONT font, std::optional<LONG> weight, int numerator = 1, int denominator = 1);

} // namespace multirename
