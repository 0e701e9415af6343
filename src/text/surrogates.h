#pragma once

#include <cstddef>
#include <string_view>

namespace multirename {

// Characters beyond U+FFFF are pairs of units in UTF-16. A half that stands alone is no character; those that stand for
// bytes that are not UTF-8 are such halves (see text/utf8.h).

[[nodiscard]] constexpr bool is_first_half(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
[[nodiscard]] constexpr bool is_second_half(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }
[[nodiscard]] constexpr bool is_half(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDFFF; }
/// Of a half that stands alone only.
[[nodiscard]] constexpr bool stands_for_byte(char16_t unit) noexcept { return unit >= 0xDC80 && unit <= 0xDCFF; }
/// The half that stands for a byte from 0x80 on, and the way back.
[[nodiscard]] constexpr char16_t unit_for_byte(char byte) noexcept
{
    return static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(byte));
}
[[nodiscard]] constexpr char byte_of_unit(char16_t unit) noexcept { return static_cast<char>(unit - 0xDC00); }

/// Whether both halves of a character stand at the index.
[[nodiscard]] constexpr bool is_pair_at(std::u16string_view text, std::size_t index) noexcept
{
    return index + 1 < text.size() && is_first_half(text[index]) && is_second_half(text[index + 1]);
}

/// The character whose halves these are.
[[nodiscard]] constexpr char32_t joined_halves(char16_t first, char16_t second) noexcept
{
    return (char32_t{first} << 10U) + second - 0x35FDC00U;
}

/// The index of the first unit from `start` on that is a half without its other half; npos when there is none.
[[nodiscard]] constexpr std::size_t find_lone_half(std::u16string_view text, std::size_t start = 0) noexcept
{
    for (std::size_t i = start; i < text.size(); ++i) {
        if (is_pair_at(text, i))
            ++i;
        else if (is_half(text[i]))
            return i;
    }
    return std::u16string_view::npos;
}

} // namespace multirename
