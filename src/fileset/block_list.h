#pragma once

#include <array>
#include <bit>
#include <cstddef>

#include "platform/large_memory.h"

namespace multirename {

/// A list of plain records that grows without moving what it holds, in blocks of which each is twice as large as the
/// one before.
template <class Item>
class BlockList {
public:
    void push_back(const Item& item)
    {
        const Place place = place_of(size_);
        if (place.index == 0)
            blocks_[place.block] = make_large_array<Item>(first_size << place.block);
        blocks_[place.block][place.index] = item;
        ++size_;
    }

    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    [[nodiscard]] const Item& operator[](std::size_t index) const noexcept
    {
        const Place place = place_of(index);
        return blocks_[place.block][place.index];
    }

private:
    struct Place {
        std::size_t block;
        std::size_t index;
    };
    static constexpr std::size_t first_size = 64;
    static constexpr std::size_t most_blocks = 64; // more than there is memory for

    static Place place_of(std::size_t index) noexcept
    {
        const std::size_t block = (std::bit_width(index / first_size + 1) - 1U) % most_blocks;
        return {block, index - ((std::size_t{1} << block) - 1) * first_size};
    }

    std::array<LargeArray<Item>, most_blocks> blocks_;
    std::size_t size_ = 0;
};

} // namespace multirename
