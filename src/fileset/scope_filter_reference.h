#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace multirename {

/// What `matches_scope_pattern` gives, found by trying the rules one by one. For tests only: the time is exponential in
/// the wilds, so that after `most_steps` it is given up and nothing comes out. The pattern does not end within an
/// escape.
[[nodiscard]] std::optional<bool>
reference_matches_scope_pattern(std::u16string_view pattern, std::u16string_view text,
                                std::uint64_t most_steps = std::numeric_limits<std::uint64_t>::max());

/// Whether the pattern ends in a backslash that makes nothing literal.
[[nodiscard]] bool ends_within_escape(std::u16string_view pattern) noexcept;

} // namespace multirename
