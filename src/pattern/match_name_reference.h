#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pattern/name_part.h"

namespace multirename {

struct ReferenceMatch {
    bool matched = false;
    std::vector<std::u16string> captures;
};

/// What `matchName` gives, found by trying the rules one by one: a part, what it takes, and the rest. For tests only:
/// the time is exponential in the wild parts, so that after `most_steps` it is given up and nothing comes out.
[[nodiscard]] std::optional<ReferenceMatch>
reference_match(std::u16string_view text, std::span<const NamePart> parts,
                std::uint64_t most_steps = std::numeric_limits<std::uint64_t>::max());

} // namespace multirename
