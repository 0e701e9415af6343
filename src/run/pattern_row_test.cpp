#include "run/pattern_row.h"

#include <gtest/gtest.h>

#include <random>

namespace multirename {
namespace {

constexpr NamePartKind text = NamePartKind::Text;
constexpr NamePartKind number = NamePartKind::Number;
constexpr NamePartKind wild = NamePartKind::Wild;

using Row = std::vector<RowSlot>;
using Places = std::vector<std::pair<int, int>>; ///< x and width of each control

Places laid_out(const Row& row, int client_width, int dpi)
{
    Places places;
    for (const RowPlace& place : lay_out_row(row, client_width, dpi))
        places.emplace_back(place.x, place.width);
    return places;
}

struct LayoutRow {
    const char* sentence;
    Row row;
    int client_width;
    int dpi;
    Places expected;
};
class PatternRowLayout : public testing::TestWithParam<LayoutRow> { };
TEST_P(PatternRowLayout, Holds)
{
    EXPECT_EQ(laid_out(GetParam().row, GetParam().client_width, GetParam().dpi), GetParam().expected);
}

std::string layout_sentence(const testing::TestParamInfo<LayoutRow>& row) { return row.param.sentence; }

INSTANTIATE_TEST_SUITE_P(
    Fitting, PatternRowLayout,
    testing::Values(
        LayoutRow{"NothingHasNoPlaces", {}, 400, 96, {}},
        // 16 + 60 + 30 for the text, 50 for the number whose 16 + 10 are fewer, 46 for the empty text: 214 with gaps.
        LayoutRow{"ARowThatFitsIsCentred",
                  {{text, 60}, {number, 10}, {text, 0}},
                  414,
                  96,
                  {{100, 106}, {212, 50}, {268, 46}}},
        LayoutRow{"AnOddRestIsHalvedDownwards",
                  {{text, 60}, {number, 10}, {text, 0}},
                  415,
                  96,
                  {{100, 106}, {212, 50}, {268, 46}}},
        LayoutRow{"ARowThatJustFitsStartsAtTheEdge",
                  {{text, 60}, {number, 10}, {text, 0}},
                  214,
                  96,
                  {{0, 106}, {112, 50}, {168, 46}}},
        LayoutRow{"AButtonGrowsWithItsText", {{wild, 40}}, 56, 96, {{0, 56}}},
        LayoutRow{"AButtonHasAtLeast50", {{wild, 34}, {number, 0}}, 106, 96, {{0, 50}, {56, 50}}},
        LayoutRow{"ATextHasAtLeast46", {{text, 0}, {text, 1}}, 99, 96, {{0, 46}, {52, 47}}},
        // At 144: gap 9, padding 24, 30 is 45, 46 is 69, 50 is 75.
        LayoutRow{"EveryLengthIsScaled",
                  {{text, 60}, {number, 10}, {text, 0}},
                  521,
                  144,
                  {{100, 159}, {268, 75}, {352, 69}}}),
    layout_sentence);

INSTANTIATE_TEST_SUITE_P(
    Shrinking, PatternRowLayout,
    testing::Values(
        // 446 + 50 + 46 + 12 = 554; 154 too many and 4 gaps of 6 go off the widest: 268, which makes 376.
        LayoutRow{"TheWidestGivesWayWithFourGapsMore",
                  {{text, 400}, {number, 10}, {text, 0}},
                  400,
                  96,
                  {{12, 268}, {286, 50}, {342, 46}}},
        // 246 + 246 + 6 = 498; 198 and 24 are 222, 111 each.
        LayoutRow{"TheWidestShareEvenly", {{text, 200}, {text, 200}}, 300, 96, {{12, 135}, {153, 135}}},
        // One fewer too many: 221 shared by two is rounded up to 111.
        LayoutRow{"TheShareIsRoundedUp", {{text, 200}, {text, 200}}, 301, 96, {{12, 135}, {153, 135}}},
        // 246 + 146 + 46 + 12 = 450 at 200: first 246 down to 146; then of 350 another 174, 87 each.
        LayoutRow{"TheWidestShrinkNoFurtherThanTheNextAtOnce",
                  {{text, 200}, {text, 100}, {text, 0}},
                  200,
                  96,
                  {{12, 59}, {77, 59}, {142, 46}}},
        // 246 + 146 + 6 = 398 at 390: 8 and 24 off the widest alone.
        LayoutRow{"OnlyTheWidestShrink", {{text, 200}, {text, 100}}, 390, 96, {{12, 214}, {232, 146}}},
        LayoutRow{
            "NothingShrinksBelow46", {{text, 100}, {text, 0}, {text, 0}}, 100, 96, {{0, 46}, {52, 46}, {104, 46}}},
        LayoutRow{"ButtonsShrinkTo46Too", {{wild, 10}, {number, 10}}, 96, 96, {{0, 46}, {52, 46}}},
        LayoutRow{"ARowThatCannotShrinkStartsAtTheEdge", {{text, 0}, {text, 0}}, 10, 96, {{0, 46}, {52, 46}}},
        // At 144: 24 + 600 + 45 = 669, 75 and 69, gaps 9: 831; 231 and 36 are 267 off the widest: 402, which makes 564.
        LayoutRow{
            "ShrinkingIsScaled", {{text, 400}, {number, 10}, {text, 0}}, 600, 144, {{18, 402}, {429, 75}, {513, 69}}},
        LayoutRow{"TheSmallestIsScaled", {{text, 400}, {wild, 0}}, 100, 144, {{0, 69}, {78, 69}}}),
    layout_sentence);

TEST(PatternRow, HasItsHeightsAt96)
{
    EXPECT_EQ(row_top, 80);
    EXPECT_EQ(row_height, 32);
    EXPECT_EQ(row_edit_height, 26);
}

// A control at a time, as long as the row is too wide: the rules one by one.
std::vector<int> widths_plainly(const Row& row, int client_width, int dpi)
{
    const auto at = [dpi](int length) { return (length * dpi + 48) / 96; };
    std::vector<int> widths;
    for (const RowSlot& slot : row) {
        const int content = 2 * at(8) + at(slot.text_width);
        widths.push_back(slot.kind == text ? std::max(content + at(30), at(46)) : std::max(content, at(50)));
    }
    const int gaps = static_cast<int>(row.size() - 1) * at(6);
    while (true) {
        int total = gaps;
        int widest = 0;
        for (const int width : widths) {
            total += width;
            widest = std::max(widest, width);
        }
        if (total <= client_width)
            return widths;
        int next = at(46);
        int count = 0;
        for (const int width : widths) {
            if (width == widest)
                ++count;
            else
                next = std::max(next, width);
        }
        if (widest <= next)
            return widths;
        const int wanted = total - client_width + 4 * at(6);
        const int each = std::min((wanted + count - 1) / count, widest - next);
        for (int& width : widths) {
            if (width == widest)
                width -= each;
        }
    }
}

TEST(PatternRow, StandsSideBySideWithEvenGapsWhateverTheTexts)
{
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        const int dpi = std::vector{96, 120, 144, 192}[random() % 4];
        Row row;
        for (std::size_t count = 1 + random() % 9; row.size() < count;) {
            const NamePartKind kind = row.size() % 2 == 0 ? text : random() % 2 == 0 ? number : wild;
            row.push_back({kind, static_cast<int>(random() % 300)});
        }
        const int client_width = static_cast<int>(random() % 1500);
        const std::vector<int> widths = widths_plainly(row, client_width, dpi);
        int total = static_cast<int>(row.size() - 1) * ((6 * dpi + 48) / 96);
        for (const int width : widths)
            total += width;
        int x = total <= client_width ? (client_width - total) / 2 : 0;
        Places expected;
        for (const int width : widths) {
            expected.emplace_back(x, width);
            x += width + (6 * dpi + 48) / 96;
        }
        ASSERT_EQ(laid_out(row, client_width, dpi), expected) << round;
    }
}

} // namespace
} // namespace multirename
