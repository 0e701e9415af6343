#include "platform/large_memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>

namespace multirename {
namespace {

TEST(LargeMemory, VectorsOfAnySizeHoldWhatIsPutIntoThem)
{
    for (const std::size_t size : {0U, 1U, 1000U, 262'143U, 262'144U, 262'145U, 3'000'000U}) {
        LargeVector<std::uint64_t> numbers(size);
        std::iota(numbers.begin(), numbers.end(), 1U);
        const LargeVector<std::uint64_t> copy = numbers;
        numbers.push_back(0);
        EXPECT_EQ(std::accumulate(copy.begin(), copy.end(), std::uint64_t{0}), size * (size + 1) / 2);
    }
}

TEST(LargeMemory, BlocksAreAlignedForAnyRecord)
{
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{100'000}, std::size_t{5'000'000}}) {
        const LargeArray<char> block = make_large_array<char>(bytes);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.get()) % alignof(std::max_align_t), 0U);
        block[bytes - 1] = 'x';
    }
}

} // namespace
} // namespace multirename
