#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace multirename {

static_assert(std::endian::native == std::endian::little, "the first unit of a word in memory is its lowest bits");

/// How many units two texts share from their fronts.
[[nodiscard]] inline std::size_t shared_front(std::u16string_view a, std::u16string_view b) noexcept
{
    constexpr std::size_t units_at_once = 4;
    constexpr unsigned bits_per_unit = 16;
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t shared = 0;
    for (; shared + units_at_once <= shorter; shared += units_at_once) {
        std::uint64_t of_a = 0;
        std::uint64_t of_b = 0;
        std::memcpy(&of_a, a.data() + shared, sizeof of_a);
        std::memcpy(&of_b, b.data() + shared, sizeof of_b);
        if (of_a != of_b)
            return shared + static_cast<unsigned>(std::countr_zero(of_a ^ of_b)) / bits_per_unit;
    }
    while (shared < shorter && a[shared] == b[shared])
        ++shared;
    return shared;
}

} // namespace multirename
