#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "pattern/common_char_table.h"
#include "pattern/sliced_names.h"

namespace multirename {

/// The longest run that all texts hold when a number mark in it stands for a run of digits; a number counts as long as
/// its digits in the reference, one of the texts. Empty when nothing is common. Searches follow the order of the texts,
/// and the first of equally long runs comes out. `held_classes` has a bit for each class of which every text is known
/// to hold a character.
[[nodiscard]] std::u16string longest_common_number_run(const SlicedNames& texts, std::size_t reference,
                                                       const CommonCharTable& table, std::uint64_t held_classes);

struct Occurrence {
    std::size_t start = std::u16string_view::npos; ///< npos when there is none
    std::size_t end = std::u16string_view::npos;
};

/// Where the run, which is not empty, first stands in the text, each number mark taking a whole run of digits.
[[nodiscard]] Occurrence find_number_run(std::u16string_view run, std::u16string_view text) noexcept;

} // namespace multirename
