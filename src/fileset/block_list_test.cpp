#include "fileset/block_list.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(BlockList, HoldsWhatWasAddedInItsOrder)
{
    BlockList<std::size_t> list;
    EXPECT_EQ(list.size(), 0U);
    constexpr std::size_t count = 5000;
    for (std::size_t i = 0; i < count; ++i)
        list.push_back(i * i);
    ASSERT_EQ(list.size(), count);
    for (std::size_t i = 0; i < count; ++i)
        ASSERT_EQ(list[i], i * i);
}

TEST(BlockList, WhatItHoldsStaysWhereItIs)
{
    BlockList<int> list;
    list.push_back(1);
    const int* const first = &list[0];
    for (int i = 0; i < 5000; ++i)
        list.push_back(i);
    EXPECT_EQ(first, &list[0]);
    EXPECT_EQ(*first, 1);
}

} // namespace
} // namespace multirename
