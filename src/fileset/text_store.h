#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/large_memory.h"

namespace multirename {

/// Holds many short texts side by side in a few large blocks: a name costs its units and no allocation of its own.
class TextStore {
public:
    TextStore() = default;

    /// A store whose first block holds this many units.
    explicit TextStore(std::size_t expected_units)
    {
        if (expected_units > 0)
            add_block(expected_units);
    }

    /// A copy of the text, which stays where it is until `clear` or the end of the store.
    std::u16string_view add(std::u16string_view text)
    {
        char16_t* const place = reserve(text.size());
        std::copy(text.begin(), text.end(), place);
        used_ += text.size();
        return {place, text.size()};
    }

    /// Forgets all texts and keeps the blocks for those to come.
    void clear() noexcept
    {
        current_ = 0;
        used_ = 0;
    }

private:
    struct Block {
        LargeArray<char16_t> units;
        std::size_t size = 0;
    };
    static constexpr std::size_t smallest_size = 32'768;
    static constexpr std::size_t largest_size = std::size_t{1} << 22U;

    // Room for so many units after those in use.
    char16_t* reserve(std::size_t length)
    {
        while (current_ < blocks_.size() && blocks_[current_].size - used_ < length) {
            ++current_;
            used_ = 0;
        }
        if (current_ == blocks_.size())
            add_block(
                std::max(length, blocks_.empty() ? smallest_size : std::min(2 * blocks_.back().size, largest_size)));
        return blocks_[current_].units.get() + used_;
    }

    void add_block(std::size_t size) { blocks_.push_back({make_large_array<char16_t>(size), size}); }

    std::vector<Block> blocks_;
    std::size_t current_ = 0; // the block that texts are added to
    std::size_t used_ = 0; // units of it
};

} // namespace multirename
