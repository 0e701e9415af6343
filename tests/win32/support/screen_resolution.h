#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

/// Has every window of this program stand on a screen of another resolution, as if it had been moved there: the
/// system's answer is replaced while the object lives. Fonts stay as they are, since the system makes them.
class ScreenResolution {
public:
    explicit ScreenResolution(unsigned dots_per_inch);
    ScreenResolution(const ScreenResolution&) = delete;
    ScreenResolution& operator=(const ScreenResolution&) = delete;
    ~ScreenResolution();

    void set(unsigned dots_per_inch);

private:
    static constexpr std::size_t code_size = 6;
    void write(const std::array<std::byte, code_size>& code);

    std::byte* function_;
    std::array<std::byte, code_size> original_ = {};
};

/// The resolution that the system itself gives to this program's windows.
[[nodiscard]] int system_resolution();
