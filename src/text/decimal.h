#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace multirename {

/// True for exactly the ten characters "0" to "9"; digits of other scripts are ordinary letters here.
[[nodiscard]] constexpr bool is_digit(char16_t unit) noexcept { return unit >= u'0' && unit <= u'9'; }

/// The index just past the run of digits that starts at `position`; `position` itself when no digit stands there.
[[nodiscard]] constexpr std::size_t end_of_digits(std::u16string_view text, std::size_t position) noexcept
{
    while (position < text.size() && is_digit(text[position]))
        ++position;
    return position;
}

/// Reads a decimal number from the start of `text`: white space is skipped, one "-" makes it negative, and the digits
/// up to the first other character count. No digits give 0; a number that does not fit 64 bits gives the nearest that
/// does.
[[nodiscard]] std::int64_t read_decimal(std::u16string_view text) noexcept;

/// The same, brought to the nearest number of 32 bits.
[[nodiscard]] std::int32_t read_small_number(std::u16string_view text) noexcept;

/// Writes numbers into memory of its own.
class DecimalDigits {
public:
    /// `value` in decimal, with "-" before a negative one and without leading zeros; lasts until the next call.
    [[nodiscard]] std::u16string_view write(std::int64_t value) noexcept;

private:
    std::array<char16_t, 20> units_; // the longest number there is, with its sign; filled from the end
};

/// `value` in decimal, with "-" before a negative one and without leading zeros.
[[nodiscard]] std::u16string decimal_text(std::int64_t value);

/// Sum, difference and product of two numbers; a result that does not fit 64 bits gives the nearest that does.
[[nodiscard]] std::int64_t saturating_add(std::int64_t a, std::int64_t b) noexcept;
[[nodiscard]] std::int64_t saturating_subtract(std::int64_t a, std::int64_t b) noexcept;
[[nodiscard]] std::int64_t saturating_multiply(std::int64_t a, std::int64_t b) noexcept;

} // namespace multirename
