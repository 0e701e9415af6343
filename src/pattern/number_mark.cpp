#include "pattern/number_mark.h"

#include "text/decimal.h"

namespace multirename {

std::size_t start_of_digits(std::u16string_view text, std::size_t end, std::size_t lowest) noexcept
{
    while (end > lowest && is_digit(text[end - 1]))
        --end;
    return end;
}

std::size_t collapse_digit_run(std::u16string& text, std::size_t index)
{
    const std::size_t start = start_of_digits(text, index);
    text.replace(start, end_of_digits(text, index + 1) - start, 1, number_mark);
    return start;
}

} // namespace multirename
