#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

namespace multirename {

/// Memory for `bytes` bytes, as `operator new` gives it: aligned for any plain record, and std::bad_alloc when there is
/// none. Where the system can be asked for large pages they are used for large blocks: the first writes to small ones
/// are a good part of what a folder of a million names costs.
[[nodiscard]] void* allocate_memory(std::size_t bytes);

/// Gives back what `allocate_memory` gave for so many bytes.
void free_memory(void* memory, std::size_t bytes) noexcept;

/// Lets a container use that memory.
template <class Item>
struct LargeAllocator {
    using value_type = Item;

    LargeAllocator() = default;
    template <class Other>
    explicit LargeAllocator(const LargeAllocator<Other>& /*other*/) noexcept
    {
    }

    [[nodiscard]] Item* allocate(std::size_t count) { return static_cast<Item*>(allocate_memory(count * item_size)); }
    void deallocate(Item* items, std::size_t count) noexcept { free_memory(items, count * item_size); }

    friend bool operator==(const LargeAllocator&, const LargeAllocator&) noexcept { return true; }

private:
    static constexpr std::size_t item_size = sizeof(Item); // NOLINT(bugprone-sizeof-expression): items may be pointers
};

/// A vector for as many items as a large folder has entries.
template <class Item>
using LargeVector = std::vector<Item, LargeAllocator<Item>>;

/// How a block is given back.
struct FreeMemory {
    std::size_t bytes = 0;
    void operator()(void* memory) const noexcept { free_memory(memory, bytes); }
};

/// A block of plain records that are not written before they are used.
template <class Item>
using LargeArray = std::unique_ptr<Item[], FreeMemory>;

template <class Item>
[[nodiscard]] LargeArray<Item> make_large_array(std::size_t count)
{
    static_assert(std::is_trivially_copyable_v<Item> && std::is_trivially_destructible_v<Item>);
    const std::size_t bytes = count * sizeof(Item);
    return {static_cast<Item*>(allocate_memory(bytes)), FreeMemory{bytes}};
}

} // namespace multirename
