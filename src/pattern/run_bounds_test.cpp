#include "pattern/run_bounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace multirename {
namespace {

using Classes = RunBounds::Classes;

std::vector<std::uint32_t> all_of(const RunBounds& bounds)
{
    std::vector<std::uint32_t> all;
    for (std::size_t place = 0; place < bounds.size(); ++place)
        all.push_back(bounds[place]);
    return all;
}

std::vector<std::uint32_t> bounds_of(const Classes& reference, const std::vector<Classes>& texts)
{
    RunBounds bounds(reference);
    for (const Classes& text : texts)
        bounds.lower(text);
    return all_of(bounds);
}

// The longest run from the place that the text holds, looked for at each place of the text.
std::uint32_t plain_bound(const Classes& reference, std::size_t place, const Classes& text)
{
    std::ptrdiff_t longest = 0;
    for (auto at = text.begin(); at != text.end(); ++at) {
        const auto from = reference.begin() + static_cast<std::ptrdiff_t>(place);
        const auto end = std::mismatch(from, reference.end(), at, text.end()).first;
        longest = std::max(longest, end - from);
    }
    return static_cast<std::uint32_t>(longest);
}

TEST(RunBounds, EndAtThePlacesOfClassZero)
{
    EXPECT_EQ(bounds_of({1, 2, 0, 3, 0, 0}, {}), (std::vector<std::uint32_t>{2, 1, 0, 1, 0, 0}));
    EXPECT_EQ(bounds_of({}, {{1}}), std::vector<std::uint32_t>());
}

TEST(RunBounds, AreWhatEveryTextHolds)
{
    EXPECT_EQ(bounds_of({1, 2, 3}, {{5, 1, 2, 5}}), (std::vector<std::uint32_t>{2, 1, 0}));
    EXPECT_EQ(bounds_of({1, 2, 3}, {{1, 2, 3}, {2, 3, 1}}), (std::vector<std::uint32_t>{1, 2, 1}));
    EXPECT_EQ(bounds_of({1, 2, 3}, {{}}), (std::vector<std::uint32_t>{0, 0, 0}));
}

TEST(RunBounds, AreThoseOfAPlainSearch)
{
    std::mt19937 random(1);
    const auto random_text = [&random](std::size_t longest) {
        Classes text(random() % (longest + 1));
        for (std::uint8_t& unit : text)
            unit = static_cast<std::uint8_t>(1 + random() % 3);
        return text;
    };
    for (int list = 0; list < 2000; ++list) {
        const Classes reference = random_text(12);
        const std::vector<Classes> texts{random_text(12), random_text(12)};
        std::vector<std::uint32_t> expected;
        for (std::size_t place = 0; place < reference.size(); ++place)
            expected.push_back(
                std::min(plain_bound(reference, place, texts[0]), plain_bound(reference, place, texts[1])));
        ASSERT_EQ(bounds_of(reference, texts), expected);
    }
}

TEST(RunBounds, CountLengthsUpToTwoHundredAndFiftyFour)
{
    for (const std::size_t held : {253U, 254U, 255U, 256U, 600U}) {
        const std::vector<std::uint32_t> bounds = bounds_of(Classes(1000, 1), {Classes(held, 1)});
        EXPECT_EQ(bounds.front(), held <= 254 ? held : 1000U) << held;
        EXPECT_EQ(bounds.back(), 1U) << held;
    }
}

TEST(RunBounds, AreLoweredAtOnePlaceAlone)
{
    RunBounds bounds({1, 2, 3});
    bounds.lower(1, 1);
    EXPECT_EQ(all_of(bounds), (std::vector<std::uint32_t>{3, 1, 1}));
    bounds.lower(1, 2);
    EXPECT_EQ(all_of(bounds), (std::vector<std::uint32_t>{3, 1, 1}));
}

TEST(RunBounds, NameTheFirstOfTheHighest)
{
    EXPECT_EQ(RunBounds({0, 1, 2, 0, 3, 4}).highest(), 1U);
    EXPECT_EQ(RunBounds({1, 0, 3, 4}).highest(), 2U);
}

TEST(SpreadOrder, TakesEveryIndexOnce)
{
    for (std::size_t count = 0; count < 200; ++count) {
        std::vector<int> taken(count);
        std::size_t steps = 0;
        for (SpreadOrder order(count); !order.is_done() && steps <= count; ++steps)
            ++taken.at(order.next());
        EXPECT_EQ(steps, count);
        EXPECT_EQ(std::ranges::count(taken, 1), static_cast<std::ptrdiff_t>(count)) << count;
    }
}

TEST(SpreadOrder, LeavesNoWideGapsWhenItBegins)
{
    constexpr std::size_t count = 1000;
    SpreadOrder order(count);
    std::vector<std::size_t> taken;
    while (taken.size() < 32) {
        const std::size_t index = order.next();
        taken.insert(std::ranges::upper_bound(taken, index), index);
        std::size_t widest = taken.front() + count - taken.back();
        for (std::size_t i = 1; i < taken.size(); ++i)
            widest = std::max(widest, taken[i] - taken[i - 1]);
        EXPECT_LE(widest, 2 * count / taken.size() + 1) << "with " << taken.size() << " taken";
    }
}

constexpr std::size_t many = 10'000;
constexpr auto always = [](std::size_t) { return true; };
constexpr auto never = [](std::size_t) { return false; };

template <class Lower>
std::size_t texts_at_first(BoundingBudget& budget, Lower lower)
{
    std::size_t calls = 0;
    budget.begin([&](std::size_t text) {
        ++calls;
        return lower(text);
    });
    return calls;
}

std::size_t texts_for(BoundingBudget& budget, std::size_t readings)
{
    std::size_t calls = 0;
    budget.spend(readings, [&calls](std::size_t) { ++calls; });
    return calls;
}

TEST(BoundingBudget, BeginsWithFewTextsAndFewerInVain)
{
    BoundingBudget gaining(many, 10);
    BoundingBudget in_vain(many, 10);
    const std::size_t gained = texts_at_first(gaining, always);
    const std::size_t vain = texts_at_first(in_vain, never);
    EXPECT_GT(vain, 0U);
    EXPECT_LT(vain, gained);
    EXPECT_LT(gained, many / 100);
}

TEST(BoundingBudget, AGainMakesUpForWhatWasInVain)
{
    BoundingBudget in_vain(many, 10);
    const std::size_t vain = texts_at_first(in_vain, never);
    BoundingBudget once(many, 10);
    std::size_t calls = 0;
    EXPECT_EQ(texts_at_first(once, [&](std::size_t) { return ++calls == vain; }), 2 * vain);
}

TEST(BoundingBudget, TakesEachTextOnce)
{
    for (std::size_t texts = 0; texts < 70; ++texts) {
        BoundingBudget budget(texts, 10);
        std::vector<int> taken(texts);
        const auto take = [&taken](std::size_t text) { return ++taken.at(text) == 1; };
        budget.begin(take);
        budget.spend(many, take);
        EXPECT_EQ(std::ranges::count(taken, 1), static_cast<std::ptrdiff_t>(texts));
    }
}

TEST(BoundingBudget, SavesReadingsUntilTheyAreWorthAText)
{
    BoundingBudget budget(many, 80);
    std::size_t worth = 1;
    while (texts_for(budget, 1) == 0 && worth < many)
        ++worth;
    ASSERT_GT(worth, 1U);
    EXPECT_EQ(texts_for(budget, 3 * worth), 3U);
    EXPECT_EQ(texts_for(budget, worth - 1), 0U);
    EXPECT_EQ(texts_for(budget, 1), 1U);
}

TEST(BoundingBudget, TextsCostMoreForALongReference)
{
    BoundingBudget of_short(many, 8);
    BoundingBudget of_long(many, 800);
    EXPECT_GT(texts_for(of_short, 1000), 10 * texts_for(of_long, 1000));
    BoundingBudget of_none(many, 0);
    EXPECT_EQ(texts_for(of_none, 5), 5U);
}

} // namespace
} // namespace multirename
