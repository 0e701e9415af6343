#include "win32/framework/cwnd.h"

#include "platform/windows/wide.h"
#include "win32/framework/handles.h"

namespace multirename {

namespace {

constexpr int unknown_width = -1;
constexpr char16_t first_letter = 0x20;

int measured_width(HDC context, std::u16string_view text)
{
    const std::wstring wide = to_wide(text);
    SIZE extent = {};
    GetTextExtentPoint32W(context, wide.data(), static_cast<int>(wide.size()), &extent);
    return static_cast<int>(extent.cx);
}

} // namespace

CWnd::~CWnd() { release(); }

void CWnd::attach(HWND window) noexcept
{
    release();
    window_ = window;
}

// The wrapper is found through the window's user data: a property of the window, as the common controls' own way of
// subclassing uses, can cost a call to another process for every message.
void CWnd::hook(HWND window, FailureSink& failures) noexcept
{
    release();
    window_ = window;
    failures_ = &failures;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const LONG_PTR replaced = SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&hooked_procedure));
    replaced_procedure_ = reinterpret_cast<WNDPROC>(replaced);
}

void CWnd::release() noexcept
{
    if (failures_ != nullptr) {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replaced_procedure_));
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    }
    failures_ = nullptr;
    window_ = nullptr;
}

LRESULT CALLBACK CWnd::hooked_procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept
{
    auto* const self = reinterpret_cast<CWnd*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr)
        return DefWindowProcW(window, message, w, l);
    const WNDPROC replaced = self->replaced_procedure_;
    if (message == WM_NCDESTROY) {
        self->release();
        return CallWindowProcW(replaced, window, message, w, l);
    }
    FailureSink* const failures = self->failures_;
    try {
        if (const std::optional<LRESULT> result = self->on_message(message, w, l))
            return *result;
    } catch (...) {
        failures->fail(std::current_exception());
        return 0;
    }
    return CallWindowProcW(replaced, window, message, w, l);
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

TextRuler::TextRuler(HWND window, HFONT font) noexcept : context_(window), selected_(context_.get(), font)
{
    widths_.fill(unknown_width);
}

int TextRuler::width(std::u16string_view text)
{
    int sum = 0;
    for (const char16_t& unit : text) {
        if (unit < first_letter || unit >= remembered_units)
            return measured_width(context_.get(), text);
        if (widths_[unit] == unknown_width)
            widths_[unit] = measured_width(context_.get(), {&unit, 1});
        sum += widths_[unit];
    }
    return sum;
}

int text_width(HWND window, HFONT font, std::u16string_view text)
{
    if (text.empty())
        return 0;
    const WindowDeviceContext context(window);
    const SelectedObject selected(context.get(), font);
    return measured_width(context.get(), text);
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
