#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace multirename {

/// A rectangle in pixels; `right` and `bottom` are the first beyond it.
struct Area {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    [[nodiscard]] int width() const noexcept { return right - left; }
    [[nodiscard]] int height() const noexcept { return bottom - top; }
    bool operator==(const Area&) const = default;
};

/// How a control follows the dialog's width.
enum class HorizontalAnchor {
    Fixed, ///< not at all
    Stretch, ///< its right edge follows the dialog's
    Move, ///< it keeps its width and follows the dialog's right edge
    Centre, ///< it stands in the row that all centred controls make together, in the middle of the dialog
};

/// How a control follows the dialog's height, likewise.
enum class VerticalAnchor { Fixed, Stretch, Move };

/// How one control of a dialog follows the dialog's size.
struct Anchor {
    HorizontalAnchor horizontal = HorizontalAnchor::Fixed;
    VerticalAnchor vertical = VerticalAnchor::Fixed;
    int right_margin = 0; ///< at 96 dots per inch, like the other lengths
    int bottom_margin = 0;
    int width = 0;
};

/// Takes the margins from where the control stands now. `frame` is the dialog's outer rectangle, borders included, in
/// the coordinates of `control`; the margins are kept against the client area later, so the borders' width comes on top
/// of what is seen.
[[nodiscard]] Anchor anchor_control(HorizontalAnchor horizontal, VerticalAnchor vertical, const Area& control,
                                    const Area& frame, int dpi);

/// Where the controls stand in a client area of this size, given where they stand now; one place for each anchor.
/// Centred controls keep the order of their anchors and the gap between the first two.
[[nodiscard]] std::vector<Area> anchored_places(std::span<const Anchor> anchors, std::span<const Area> places,
                                                int client_width, int client_height, int dpi);

/// The edge or corner of a window that is being dragged; the numbers are the system's.
enum class DraggedEdge : std::uint32_t {
    Left = 1,
    Right = 2,
    Top = 3,
    TopLeft = 4,
    TopRight = 5,
    Bottom = 6,
    BottomLeft = 7,
    BottomRight = 8,
};

/// The smallest size to which the dialog can be dragged, borders included, at 96 dots per inch.
inline constexpr int minimum_width = 480;
inline constexpr int minimum_height = 360;

/// The dragged rectangle, brought to the smallest size where it falls below. In width the edge that is not dragged
/// stays; in height the top edge gives way unless the bottom one is dragged.
[[nodiscard]] Area with_minimum_size(Area dragged, DraggedEdge edge, int dpi);

} // namespace multirename
