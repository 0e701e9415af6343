#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// A kind of names to measure with.
struct NameFamily {
    std::string_view name;
    bool is_hostile = false; ///< made to be slow; judged by what a code unit costs
    std::vector<std::u16string> (*make)(std::size_t count) = nullptr;
};

/// Families as people have them and hostile ones. Names of a family are all different, also without regard to case, and
/// the same in every run.
[[nodiscard]] std::span<const NameFamily> name_families();

} // namespace multirename
