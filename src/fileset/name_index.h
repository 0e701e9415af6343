#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/large_memory.h"

namespace multirename {

/// Finds positions in a list of names by the hashes of the names. Made once for a number of names that is known: one
/// block of memory, 16 bytes for each name.
class NameIndex {
public:
    static constexpr std::uint32_t none = UINT32_MAX;

    NameIndex() = default;

    /// An index with room for `count` positions; no more may be added.
    explicit NameIndex(std::size_t count) : slots_(2 * count + 1) { }

    /// Has the memory fetched that `find` and `find_or_add` will look at for this hash, to be called some names ahead.
    void prefetch(std::uint64_t hash) const noexcept { __builtin_prefetch(&slots_[first_slot(hash)]); }

    /// The position that was added with this hash and for which `is_same(position)` is true; `none` without one.
    template <class IsSame>
    [[nodiscard]] std::uint32_t find(std::uint64_t hash, IsSame is_same) const
    {
        if (slots_.empty())
            return none;
        return slots_[slot_of(hash, is_same)].position;
    }

    /// The same; without one `position` is added.
    template <class IsSame>
    std::uint32_t find_or_add(std::uint64_t hash, std::uint32_t position, IsSame is_same)
    {
        Slot& slot = slots_[slot_of(hash, is_same)];
        const std::uint32_t found = slot.position;
        if (found == none)
            slot = {position, tag_of(hash)};
        return found;
    }

private:
    struct Slot {
        std::uint32_t position = none;
        std::uint32_t tag = 0; // the half of the hash that did not choose the slot
    };

    static std::uint32_t tag_of(std::uint64_t hash) noexcept { return static_cast<std::uint32_t>(hash); }

    [[nodiscard]] std::size_t first_slot(std::uint64_t hash) const noexcept
    {
        return static_cast<std::size_t>((hash >> 32) * slots_.size() >> 32);
    }

    // Where the hash's position is, or would be.
    template <class IsSame>
    [[nodiscard]] std::size_t slot_of(std::uint64_t hash, IsSame is_same) const
    {
        std::size_t at = first_slot(hash);
        while (slots_[at].position != none && (slots_[at].tag != tag_of(hash) || !is_same(slots_[at].position)))
            at = at + 1 == slots_.size() ? 0 : at + 1;
        return at;
    }

    LargeVector<Slot> slots_;
};

} // namespace multirename
