#include "win32/framework/cwnd.h"

#include <commctrl.h>

#include "platform/windows/wide.h"
#include "win32/framework/handles.h"

namespace multirename {

CWnd::~CWnd() { release(); }

void CWnd::attach(HWND window) noexcept
{
    release();
    window_ = window;
}

void CWnd::hook(HWND window, FailureSink& failures) noexcept
{
    release();
    if (SetWindowSubclass(window, &hooked_procedure, 0, reinterpret_cast<DWORD_PTR>(this)) != FALSE)
        failures_ = &failures;
    window_ = window;
}

void CWnd::release() noexcept
{
    if (failures_ != nullptr)
        RemoveWindowSubclass(window_, &hooked_procedure, 0);
    failures_ = nullptr;
    window_ = nullptr;
}

LRESULT CALLBACK CWnd::hooked_procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                        DWORD_PTR wrapper) noexcept
{
    auto& self = *reinterpret_cast<CWnd*>(wrapper);
    if (message == WM_NCDESTROY) {
        self.release();
        return DefSubclassProc(window, message, w, l);
    }
    FailureSink* const failures = self.failures_;
    try {
        if (const std::optional<LRESULT> result = self.on_message(message, w, l))
            return *result;
    } catch (...) {
        failures->fail(std::current_exception());
        return 0;
    }
    return DefSubclassProc(window, message, w, l);
}

std::optional<LRESULT> CWnd::on_message(UINT, WPARAM, LPARAM) { return std::nullopt; }

LRESULT CWnd::send(UINT message, WPARAM w, LPARAM l) const noexcept { return SendMessageW(window_, message, w, l); }

std::u16string CWnd::text() const
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)), L'\0');
    const int length = GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1);
    return from_wide({text.data(), static_cast<std::size_t>(length)});
}

void CWnd::set_text(std::u16string_view text) const { SetWindowTextW(window_, to_wide(text).c_str()); }

void CWnd::set_font(HFONT font) const noexcept { send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

HFONT CWnd::font() const noexcept { return reinterpret_cast<HFONT>(send(WM_GETFONT)); }

void CWnd::enable(bool enabled) const noexcept { EnableWindow(window_, enabled ? TRUE : FALSE); }

bool CWnd::is_enabled() const noexcept { return IsWindowEnabled(window_) != FALSE; }

void CWnd::focus() const noexcept { SetFocus(window_); }

void CWnd::move(int x, int y, int width, int height) const noexcept
{
    SetWindowPos(window_, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE CWnd::client_size() const noexcept
{
    RECT area = {};
    GetClientRect(window_, &area);
    return {area.right, area.bottom};
}

RECT CWnd::window_area() const noexcept
{
    RECT area = {};
    GetWindowRect(window_, &area);
    return area;
}

void CWnd::show(bool shown) const noexcept { ShowWindow(window_, shown ? SW_SHOWNA : SW_HIDE); }

void CWnd::repaint() const noexcept { InvalidateRect(window_, nullptr, TRUE); }

void CWnd::repaint(const RECT& area) const noexcept { InvalidateRect(window_, &area, TRUE); }

void CWnd::set_redraw(bool on) const noexcept
{
    send(WM_SETREDRAW, on ? TRUE : FALSE);
    if (on)
        repaint();
}

int text_width(HWND window, HFONT font, std::u16string_view text)
{
    if (text.empty())
        return 0;
    const WindowDeviceContext context(window);
    const SelectedObject selected(context.get(), font);
    const std::wstring wide = to_wide(text);
    SIZE extent = {};
    GetTextExtentPoint32W(context.get(), wide.data(), static_cast<int>(wide.size()), &extent);
    return static_cast<int>(extent.cx);
}

HFONT create_font_like(HFONT font, std::optional<LONG> weight, int numerator, int denominator)
{
    LOGFONTW description = {};
    GetObjectW(font, sizeof description, &description);
    description.lfWeight = weight.value_or(description.lfWeight);
    description.lfHeight = description.lfHeight * numerator / denominator;
    return CreateFontIndirectW(&description);
}

} // namespace multirename
