#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace multirename {

/// Stands for a run of digits of any value and width while a pattern is being found. No file name of Windows holds it.
constexpr char16_t number_mark = u':';

/// The first index of the run of digits that ends just before `end`, not below `lowest`; `end` itself when no digit
/// stands before it.
[[nodiscard]] std::size_t start_of_digits(std::u16string_view text, std::size_t end, std::size_t lowest = 0) noexcept;

/// Replaces the run of digits around `index` by one number mark, whose index is given back.
std::size_t collapse_digit_run(std::u16string& text, std::size_t index);

} // namespace multirename
