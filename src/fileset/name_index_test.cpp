#include "fileset/name_index.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

constexpr auto any = [](std::uint32_t) { return true; };

TEST(NameIndex, FindsWhatWasAdded)
{
    NameIndex index(1000);
    for (std::uint32_t i = 0; i < 1000; ++i)
        EXPECT_EQ(index.find_or_add(std::uint64_t{i} * 0x9E37'79B9'7F4A'7C15U, i, any), NameIndex::none);
    for (std::uint32_t i = 0; i < 1000; ++i)
        EXPECT_EQ(index.find(std::uint64_t{i} * 0x9E37'79B9'7F4A'7C15U, any), i);
    EXPECT_EQ(index.find(5, any), NameIndex::none);
}

TEST(NameIndex, KeepsTheFirstOfTwoThatAreTheSame)
{
    NameIndex index(2);
    EXPECT_EQ(index.find_or_add(7, 0, any), NameIndex::none);
    EXPECT_EQ(index.find_or_add(7, 1, any), 0U);
    EXPECT_EQ(index.find(7, any), 0U);
}

TEST(NameIndex, TellsPositionsOfOneHashApart)
{
    NameIndex index(100);
    for (std::uint32_t i = 0; i < 100; ++i)
        index.find_or_add(~std::uint64_t{0}, i, [i](std::uint32_t position) { return position == i; });
    for (std::uint32_t i = 0; i < 100; ++i)
        EXPECT_EQ(index.find(~std::uint64_t{0}, [i](std::uint32_t position) { return position == i; }), i);
}

TEST(NameIndex, FindsNothingInAnEmptyOne)
{
    EXPECT_EQ(NameIndex().find(0, any), NameIndex::none);
    EXPECT_EQ(NameIndex(0).find(0, any), NameIndex::none);
}

} // namespace
} // namespace multirename
