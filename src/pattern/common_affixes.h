#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pattern/sliced_names.h"

namespace multirename {

/// What all names begin with and what they all end with, with a number mark for a run of digits that differs.
struct CommonAffixes {
    std::u16string prefix;
    std::u16string suffix;
    bool is_all = true; ///< the prefix is all that there is: it takes every name whole
    std::vector<Slice> middles; ///< what prefix and suffix leave of each name; nothing when the prefix is all
};

/// Prefix, suffix and middles of the names; with `number_mode` the affixes may have number marks. The order of the
/// names counts. Where there are no names, an empty prefix is all. Takes time for the characters that match.
[[nodiscard]] CommonAffixes common_affixes(std::span<const std::u16string_view> names, bool number_mode);

} // namespace multirename
