#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pattern/sliced_names.h"

namespace multirename {

/// The pattern of the middles of names, "*" for what they do not share and, where numbers are recognised and every
/// middle has one, a number mark for one that differs. There is at least one middle. Takes one slice for each name and
/// level of the search: a level is a common run in front of another one that was found before, so they are few.
[[nodiscard]] std::u16string middle_pattern(std::span<const std::u16string_view> names, std::vector<Slice> middles,
                                            bool number_mode);

} // namespace multirename
