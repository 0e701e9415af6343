#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

#include "platform/console.h"

namespace multirename {

/// Shows how far a work of many steps has come, on standard error when that is a terminal and the work takes longer
/// than a second. Leaves the line empty behind it.
class ProgressBar {
public:
    using Clock = std::chrono::steady_clock;
    /// Tells the time; tests bring their own.
    using Now = Clock::time_point (*)();

    /// Begins a work of `total` steps, perhaps none; `verb`, as "Renaming", must outlive the bar.
    ProgressBar(Console& console, std::string_view verb, std::size_t total, Now now = &Clock::now);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

    /// One step more is done.
    void advance();

private:
    void draw();

    Console& console_;
    std::string_view verb_;
    std::size_t total_;
    Now now_;
    std::size_t done_ = 0;
    Clock::time_point next_drawing_;
    bool is_shown_ = false;
    bool is_wanted_;
};

} // namespace multirename
