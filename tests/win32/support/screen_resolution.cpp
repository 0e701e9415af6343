#include "support/screen_resolution.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

ScreenResolution::ScreenResolution(unsigned dots_per_inch) :
    function_(std::bit_cast<std::byte*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")))
{
    if (function_ == nullptr)
        throw std::runtime_error("this system knows nothing of windows' resolutions");
    std::copy_n(function_, code_size, original_.begin());
    set(dots_per_inch);
}

ScreenResolution::~ScreenResolution() { write(original_); }

void ScreenResolution::set(unsigned dots_per_inch)
{
    // mov eax, dots_per_inch; ret
    std::array<std::byte, code_size> code = {std::byte{0xB8}};
    for (std::size_t i = 0; i < sizeof dots_per_inch; ++i)
        code[1 + i] = static_cast<std::byte>(dots_per_inch >> (8 * i));
    code.back() = std::byte{0xC3};
    write(code);
}

void ScreenResolution::write(const std::array<std::byte, code_size>& code)
{
    DWORD before = 0;
    VirtualProtect(function_, code_size, PAGE_EXECUTE_READWRITE, &before);
    std::ranges::copy(code, function_);
    VirtualProtect(function_, code_size, before, &before);
    FlushInstructionCache(GetCurrentProcess(), function_, code_size);
}

int system_resolution()
{
    const HDC screen = GetDC(nullptr);
    const int dots_per_inch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dots_per_inch;
}
