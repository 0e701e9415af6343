#include "text/decimal.h"

#include <algorithm>
#include <limits>

namespace multirename {

namespace {

using Limits = std::numeric_limits<std::int64_t>;

bool is_white_space(char16_t unit) noexcept { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

} // namespace

std::int64_t read_decimal(std::u16string_view text) noexcept
{
    std::size_t position = 0;
    while (position < text.size() && is_white_space(text[position]))
        ++position;
    const bool negative = position < text.size() && text[position] == u'-';
    if (negative)
        ++position;
    constexpr std::size_t digits_that_surely_fit = 18;
    const std::size_t end = end_of_digits(text, position);
    if (end - position <= digits_that_surely_fit) {
        std::int64_t value = 0;
        for (; position < end; ++position)
            value = value * 10 + (text[position] - u'0');
        return negative ? -value : value;
    }
    // Collected as a negative number, whose range is the larger by one.
    std::int64_t value = 0;
    for (; position < end; ++position)
        value = saturating_subtract(saturating_multiply(value, 10), text[position] - u'0');
    return negative ? value : saturating_subtract(0, value);
}

std::int32_t read_small_number(std::u16string_view text) noexcept
{
    using Small = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(read_decimal(text), Small::min(), Small::max()));
}

std::u16string_view DecimalDigits::write(std::int64_t value) noexcept
{
    const bool negative = value < 0;
    std::size_t first = units_.size();
    do {
        const auto digit = static_cast<int>(value % 10);
        units_[--first] = static_cast<char16_t>(u'0' + (negative ? -digit : digit));
        value /= 10;
    } while (value != 0);
    if (negative)
        units_[--first] = u'-';
    return {units_.data() + first, units_.size() - first};
}

std::u16string decimal_text(std::int64_t value)
{
    DecimalDigits digits;
    return std::u16string(digits.write(value));
}

std::int64_t saturating_add(std::int64_t a, std::int64_t b) noexcept
{
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(a, b, &sum))
        return sum;
    return b > 0 ? Limits::max() : Limits::min();
}

std::int64_t saturating_subtract(std::int64_t a, std::int64_t b) noexcept
{
    std::int64_t difference = 0;
    if (!__builtin_sub_overflow(a, b, &difference))
        return difference;
    return b < 0 ? Limits::max() : Limits::min();
}

std::int64_t saturating_multiply(std::int64_t a, std::int64_t b) noexcept
{
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(a, b, &product))
        return product;
    return (a < 0) == (b < 0) ? Limits::max() : Limits::min();
}

} // namespace multirename
