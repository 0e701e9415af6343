#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "text/surrogates.h"
#include "text/utf8.h"

namespace multirename {

/// What a terminal obeys instead of showing it: the controls below a space, the one behind "~", and their kin from
/// U+0080 on.
[[nodiscard]] constexpr bool is_control(char32_t character) noexcept
{
    return character < U' ' || (character >= 0x7F && character < 0xA0);
}

/// Appends the text as UTF-8. Control characters, and units for which `is_special(unit, is_lone_half)` is true, become
/// escapes: a backslash and the letter that `letter_for(unit)` gives, or \uXXXX where that is NUL.
template <class IsSpecial, class LetterFor>
void append_with_escapes(std::string& bytes, std::u16string_view text, IsSpecial is_special, LetterFor letter_for)
{
    std::size_t start = 0;
    std::size_t lone_half = find_lone_half(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool is_lone_half = i == lone_half;
        if (is_lone_half)
            lone_half = find_lone_half(text, i + 1);
        if (!is_control(unit) && !is_special(unit, is_lone_half))
            continue;
        bytes.append(to_bytes(text.substr(start, i - start))).push_back('\\');
        start = i + 1;
        if (const char letter = letter_for(unit); letter != '\0') {
            bytes.push_back(letter);
            continue;
        }
        std::array<char, 8> number{};
        std::snprintf(number.data(), number.size(), "u%04x", static_cast<unsigned>(unit));
        bytes += number.data();
    }
    bytes += to_bytes(text.substr(start));
}

} // namespace multirename
