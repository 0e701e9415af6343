#include "rename/rename_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace multirename {
namespace {

using Holder = std::vector<std::optional<std::size_t>>;
using Order = std::vector<std::size_t>;

// Repeated passes from the front, each taking every entry whose name has come free.
Order order_by_passes(const Holder& holder)
{
    Order order;
    std::vector<bool> moved(holder.size(), false);
    for (bool appended = true; appended;) {
        appended = false;
        for (std::size_t i = 0; i < holder.size(); ++i) {
            if (!moved[i] && (!holder[i] || *holder[i] == i || moved[*holder[i]])) {
                moved[i] = true;
                order.push_back(i);
                appended = true;
            }
        }
    }
    return order;
}

/// Whether no name is wanted by two entries other than its own holder.
bool is_possible(const Holder& holder)
{
    std::vector<bool> wanted(holder.size(), false);
    for (std::size_t i = 0; i < holder.size(); ++i) {
        if (!holder[i] || *holder[i] == i)
            continue;
        if (wanted[*holder[i]])
            return false;
        wanted[*holder[i]] = true;
    }
    return true;
}

TEST(RenameOrder, OfNothingIsNothing) { EXPECT_EQ(rename_order(Holder{}), Order{}); }

TEST(RenameOrder, FreeNamesAreTakenFromTheFront)
{
    EXPECT_EQ(rename_order(Holder{std::nullopt, std::nullopt, std::nullopt}), (Order{0, 1, 2}));
}

TEST(RenameOrder, AChangeOfCaseAloneIsFree) { EXPECT_EQ(rename_order(Holder{0, 1}), (Order{0, 1})); }

TEST(RenameOrder, AChainMovesFromItsFreeEnd)
{
    EXPECT_EQ(rename_order(Holder{1, std::nullopt}), (Order{1, 0}));
    EXPECT_EQ(rename_order(Holder{1, 2, 3, std::nullopt}), (Order{3, 2, 1, 0}));
}

TEST(RenameOrder, AChainThatRunsForwardMovesInOnePass)
{
    EXPECT_EQ(rename_order(Holder{std::nullopt, 0, 1, 2}), (Order{0, 1, 2, 3}));
}

TEST(RenameOrder, EntriesOfOnePassKeepTheirOrder)
{
    EXPECT_EQ(rename_order(Holder{3, std::nullopt, 4, std::nullopt, std::nullopt}), (Order{1, 3, 4, 0, 2}));
}

TEST(RenameOrder, LeavesOutASwap) { EXPECT_EQ(rename_order(Holder{1, 0}), Order{}); }

TEST(RenameOrder, LeavesOutALongerCycleAndTakesTheRest)
{
    EXPECT_EQ(rename_order(Holder{1, 2, 0, std::nullopt, 3}), (Order{3, 4}));
}

TEST(RenameOrder, IsThatOfRepeatedPassesForEverySmallFolder)
{
    for (std::size_t size = 0; size <= 5; ++size) {
        std::vector<std::size_t> choice(size, 0); // of each entry: size stands for a free name
        while (true) {
            Holder holder;
            for (const std::size_t chosen : choice)
                holder.push_back(chosen == size ? std::nullopt : std::optional(chosen));
            if (is_possible(holder)) {
                ASSERT_EQ(rename_order(holder), order_by_passes(holder)) << testing::PrintToString(choice);
            }
            const auto next = std::ranges::find_if(choice, [size](std::size_t chosen) { return chosen < size; });
            std::fill(choice.begin(), next, 0);
            if (next == choice.end())
                break;
            ++*next;
        }
    }
}

TEST(RenameOrder, IsThatOfRepeatedPassesForLargerFolders)
{
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        const std::size_t size = 1 + random() % 40;
        Order wanted(size);
        std::iota(wanted.begin(), wanted.end(), std::size_t{0});
        std::ranges::shuffle(wanted, random);
        Holder holder;
        const auto free_names = random() % 4;
        for (const std::size_t name : wanted)
            holder.push_back(random() % 8 < free_names ? std::nullopt : std::optional(name));
        ASSERT_EQ(rename_order(holder), order_by_passes(holder));
    }
}

TEST(RenameOrder, AChainOfManyAnswers)
{
    constexpr std::size_t size = 200000;
    Holder holder;
    for (std::size_t i = 1; i < size; ++i)
        holder.emplace_back(i);
    holder.emplace_back(std::nullopt);
    const Order order = rename_order(holder);
    ASSERT_EQ(order.size(), size);
    EXPECT_EQ(order.front(), size - 1);
    EXPECT_EQ(order.back(), 0U);
}

} // namespace
} // namespace multirename
