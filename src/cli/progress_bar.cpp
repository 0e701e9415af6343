#include "cli/progress_bar.h"

#include <string>

namespace multirename {

namespace {

constexpr std::chrono::milliseconds patience{1000};
constexpr std::chrono::milliseconds between_drawings{100};
constexpr std::size_t bar_columns = 30;

} // namespace

ProgressBar::ProgressBar(Console& console, std::string_view verb, std::size_t total, Now now) :
    console_(console),
    verb_(verb),
    total_(total),
    now_(now),
    next_drawing_(now() + patience),
    is_wanted_(total > 0 && console.errors_are_terminal())
{
}

ProgressBar::~ProgressBar()
{
    if (is_shown_)
        console_.write_error("\r\x1b[K");
}

void ProgressBar::advance()
{
    ++done_;
    if (is_wanted_ && now_() >= next_drawing_)
        draw();
}

void ProgressBar::draw()
{
    const std::size_t filled = bar_columns * done_ / total_;
    std::string line = "\r" + std::string(verb_) + " [" + std::string(filled, '#') +
        std::string(bar_columns - filled, '.') + "] " + std::to_string(done_) + " of " + std::to_string(total_);
    console_.write_error(line + "\x1b[K");
    is_shown_ = true;
    next_drawing_ = now_() + between_drawings;
}

} // namespace multirename
