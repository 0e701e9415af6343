#include "run/dialog_layout.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

using H = HorizontalAnchor;
using V = VerticalAnchor;

// A dialog of 600 by 400 pixels with borders of 8 pixels and a caption of 30 above; client area 584 by 354.
constexpr Area frame = {-8, -38, 592, 362};
constexpr int client_width = 584;
constexpr int client_height = 354;

struct AnchorRow {
    const char* sentence;
    H horizontal;
    V vertical;
    Area before;
    int dpi;
    Area after; ///< in a client area that is 100 wider and 50 higher
};
class AnchoredControl : public testing::TestWithParam<AnchorRow> { };
TEST_P(AnchoredControl, Holds)
{
    const AnchorRow& row = GetParam();
    const Anchor anchor = anchor_control(row.horizontal, row.vertical, row.before, frame, row.dpi);
    EXPECT_EQ(anchored_places({{anchor}}, {{row.before}}, client_width + 100, client_height + 50, row.dpi),
              std::vector{row.after});
}
INSTANTIATE_TEST_SUITE_P(
    All, AnchoredControl,
    testing::Values(
        AnchorRow{"StaysWhenFixed", H::Fixed, V::Fixed, {10, 20, 110, 40}, 96, {10, 20, 110, 40}},
        // Margins are taken from the outer edge and kept against the client area: 8 pixels less than it grew.
        AnchorRow{"KeepsItsSizeWhenItMoves", H::Move, V::Move, {484, 320, 574, 344}, 96, {576, 362, 666, 386}},
        AnchorRow{"GrowsWhenItStretches", H::Stretch, V::Stretch, {10, 150, 574, 310}, 96, {10, 150, 666, 352}},
        AnchorRow{"MovesInOneDirectionAlone", H::Move, V::Fixed, {484, 320, 574, 344}, 96, {576, 320, 666, 344}},
        AnchorRow{"StretchesInOneDirectionAlone", H::Fixed, V::Stretch, {10, 150, 574, 310}, 96, {10, 150, 574, 352}},
        AnchorRow{"StandsInTheMiddleWhenCentredAlone", H::Centre, V::Fixed, {0, 90, 100, 110}, 96, {292, 90, 392, 110}},
        // At 144 dots per inch a margin of 18 pixels is kept as 12 and comes back as 18.
        AnchorRow{
            "KeepsItsMarginsAtEveryResolution", H::Move, V::Move, {484, 320, 574, 344}, 144, {576, 362, 666, 386}}),
    [](const auto& row) { return std::string(row.param.sentence); });

} // namespace

TEST(Area, HasNeitherPlaceNorSizeAtFirst) { EXPECT_EQ(Area(), (Area{0, 0, 0, 0})); }

TEST(AnchoredControls, AreCentredAsOneGroupInTheOrderOfTheirAnchors)
{
    const std::vector<Area> places = {{10, 90, 90, 110}, {100, 90, 220, 110}, {230, 90, 330, 110}};
    std::vector<Anchor> anchors;
    for (const Area& place : places)
        anchors.push_back(anchor_control(H::Centre, V::Fixed, place, frame, 96));
    // 80 + 120 + 100 and two gaps of 10 make 320: 140 are left on either side of 600.
    EXPECT_EQ(anchored_places(anchors, places, 600, client_height, 96),
              (std::vector<Area>{{140, 90, 220, 110}, {230, 90, 350, 110}, {360, 90, 460, 110}}));
}

TEST(AnchoredControls, TakeEveryGapOfTheGroupFromItsFirstTwo)
{
    const std::vector<Area> places = {{0, 0, 100, 20}, {120, 0, 220, 20}, {500, 0, 600, 20}};
    const std::vector<Anchor> anchors(3, Anchor{H::Centre, V::Fixed, 0, 0, 100});
    EXPECT_EQ(anchored_places(anchors, places, 400, 300, 96),
              (std::vector<Area>{{30, 0, 130, 20}, {150, 0, 250, 20}, {270, 0, 370, 20}}));
}

TEST(AnchoredControls, GroupAroundOthersThatDoNotBelongToIt)
{
    const std::vector<Anchor> anchors = {
        {H::Centre, V::Fixed, 0, 0, 100}, {H::Move, V::Fixed, 10, 0, 50}, {H::Centre, V::Fixed, 0, 0, 100}};
    const std::vector<Area> places = {{0, 0, 100, 20}, {300, 0, 350, 20}, {110, 0, 210, 20}};
    EXPECT_EQ(anchored_places(anchors, places, 410, 300, 96),
              (std::vector<Area>{{100, 0, 200, 20}, {350, 0, 400, 20}, {210, 0, 310, 20}}));
}

TEST(AnchoredControls, WidenWithTheResolutionWhenCentred)
{
    const std::vector<Anchor> anchors = {{H::Centre, V::Fixed, 0, 0, 100}};
    EXPECT_EQ(anchored_places(anchors, {{{0, 0, 100, 20}}}, 450, 300, 144), (std::vector<Area>{{150, 0, 300, 20}}));
}

TEST(AnchoredControls, MayBeNone) { EXPECT_TRUE(anchored_places({}, {}, 100, 100, 96).empty()); }

TEST(AnchoredControls, StandWhereTheyStoodWhenTheSizeComesBack)
{
    const std::vector<Area> first = {{484, 320, 574, 344}, {10, 150, 574, 310}};
    const std::vector<Anchor> anchors = {anchor_control(H::Move, V::Move, first[0], frame, 96),
                                         anchor_control(H::Stretch, V::Stretch, first[1], frame, 96)};
    const std::vector<Area> settled = anchored_places(anchors, first, client_width, client_height, 96);
    const std::vector<Area> narrowed = anchored_places(anchors, settled, 300, 200, 96);
    EXPECT_EQ(anchored_places(anchors, narrowed, client_width, client_height, 96), settled);
}

namespace {

struct DragRow {
    const char* sentence;
    DraggedEdge edge;
    int dpi;
    Area dragged;
    Area expected;
};
class MinimumSize : public testing::TestWithParam<DragRow> { };
TEST_P(MinimumSize, Holds)
{
    const DragRow& row = GetParam();
    EXPECT_EQ(with_minimum_size(row.dragged, row.edge, row.dpi), row.expected);
}
using E = DraggedEdge;
constexpr Area narrow = {100, 100, 500, 600};
constexpr Area low = {100, 100, 700, 400};
constexpr Area small = {100, 100, 500, 400};
INSTANTIATE_TEST_SUITE_P(
    All, MinimumSize,
    testing::Values(
        DragRow{"LeavesWhatIsLargeEnough", E::Left, 96, {100, 100, 580, 460}, {100, 100, 580, 460}},
        DragRow{"PinsTheRightEdgeWhileTheLeftIsDragged", E::Left, 96, narrow, {20, 100, 500, 600}},
        DragRow{"PinsTheRightEdgeWhileTheTopLeftIsDragged", E::TopLeft, 96, narrow, {20, 100, 500, 600}},
        DragRow{"PinsTheRightEdgeWhileTheBottomLeftIsDragged", E::BottomLeft, 96, narrow, {20, 100, 500, 600}},
        DragRow{"PinsTheLeftEdgeWhileTheRightIsDragged", E::Right, 96, narrow, {100, 100, 580, 600}},
        DragRow{"PinsTheLeftEdgeWhileTheTopRightIsDragged", E::TopRight, 96, narrow, {100, 100, 580, 600}},
        DragRow{"PinsTheLeftEdgeWhileTheBottomRightIsDragged", E::BottomRight, 96, narrow, {100, 100, 580, 600}},
        DragRow{"PinsTheLeftEdgeWhileTheTopIsDragged", E::Top, 96, narrow, {100, 100, 580, 600}},
        DragRow{"PinsTheLeftEdgeWhileTheBottomIsDragged", E::Bottom, 96, narrow, {100, 100, 580, 600}},
        DragRow{"PinsTheTopWhileTheBottomIsDragged", E::Bottom, 96, low, {100, 100, 700, 460}},
        DragRow{"PinsTheTopWhileTheBottomLeftIsDragged", E::BottomLeft, 96, low, {100, 100, 700, 460}},
        DragRow{"PinsTheTopWhileTheBottomRightIsDragged", E::BottomRight, 96, low, {100, 100, 700, 460}},
        DragRow{"PinsTheBottomWhileTheTopIsDragged", E::Top, 96, low, {100, 40, 700, 400}},
        DragRow{"PinsTheBottomWhileTheTopLeftIsDragged", E::TopLeft, 96, low, {100, 40, 700, 400}},
        DragRow{"PinsTheBottomWhileTheTopRightIsDragged", E::TopRight, 96, low, {100, 40, 700, 400}},
        DragRow{"PinsTheBottomWhileASideIsDragged", E::Left, 96, low, {100, 40, 700, 400}},
        DragRow{"HoldsInBothDirectionsAtOnce", E::TopLeft, 96, small, {20, 40, 500, 400}},
        DragRow{"GrowsWithTheResolution", E::BottomRight, 144, small, {100, 100, 820, 640}},
        DragRow{"HoldsForARectangleTurnedInsideOut", E::Right, 96, {500, 100, 100, 600}, {500, 100, 980, 600}}),
    [](const auto& row) { return std::string(row.param.sentence); });

} // namespace
} // namespace multirename
