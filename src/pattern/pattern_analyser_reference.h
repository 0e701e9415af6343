#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace multirename {

/// What `pattern_of_names` gives, found by every step in full: each start is tried in each string, and nothing that was
/// found once is remembered. For tests only: the search for numbers takes time exponential in the runs of digits, so
/// that after `most_steps` comparisons of characters it is given up and nothing comes out.
/// No name holds ":", which no file name can.
[[nodiscard]] std::optional<std::u16string>
reference_pattern_of_names(std::span<const std::u16string_view> names, bool numberMode,
                           std::uint64_t most_steps = std::numeric_limits<std::uint64_t>::max());

} // namespace multirename
