#include "run/dialog_layout.h"

#include <algorithm>
#include <cassert>

#include "run/dpi.h"

namespace multirename {

namespace {

bool is_centred(const Anchor& anchor) { return anchor.horizontal == HorizontalAnchor::Centre; }

void centre_group(std::span<const Anchor> anchors, std::span<Area> places, int client_width, int dpi)
{
    std::vector<std::size_t> group;
    int total = 0;
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        if (!is_centred(anchors[i]))
            continue;
        group.push_back(i);
        total += scaled(anchors[i].width, dpi);
    }
    const int spacing = group.size() > 1 ? places[group[1]].left - places[group[0]].right : 0;
    if (!group.empty())
        total += (static_cast<int>(group.size()) - 1) * spacing;
    int left = (client_width - total) / 2;
    for (const std::size_t member : group) {
        places[member].left = left;
        places[member].right = left + scaled(anchors[member].width, dpi);
        left = places[member].right + spacing;
    }
}

} // namespace

Anchor anchor_control(HorizontalAnchor horizontal, VerticalAnchor vertical, const Area& control, const Area& frame,
                      int dpi)
{
    return {horizontal, vertical, unscaled(frame.right - control.right, dpi),
            unscaled(frame.bottom - control.bottom, dpi), unscaled(control.width(), dpi)};
}

std::vector<Area> anchored_places(std::span<const Anchor> anchors, std::span<const Area> places, int client_width,
                                  int client_height, int dpi)
{
    assert(anchors.size() == places.size());
    std::vector<Area> result(places.begin(), places.end());
    centre_group(anchors, result, client_width, dpi);
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        const Anchor& anchor = anchors[i];
        Area& place = result[i];
        const int right = client_width - scaled(anchor.right_margin, dpi);
        const int bottom = client_height - scaled(anchor.bottom_margin, dpi);
        if (anchor.horizontal == HorizontalAnchor::Move)
            place.left += right - place.right;
        if (anchor.horizontal == HorizontalAnchor::Move || anchor.horizontal == HorizontalAnchor::Stretch)
            place.right = right;
        if (anchor.vertical == VerticalAnchor::Move)
            place.top += bottom - place.bottom;
        if (anchor.vertical == VerticalAnchor::Move || anchor.vertical == VerticalAnchor::Stretch)
            place.bottom = bottom;
    }
    return result;
}

Area with_minimum_size(Area dragged, DraggedEdge edge, int dpi)
{
    const auto drags = [edge](std::initializer_list<DraggedEdge> edges) { return std::ranges::count(edges, edge) > 0; };
    const int width = scaled(minimum_width, dpi);
    const int height = scaled(minimum_height, dpi);
    if (dragged.width() < width) {
        if (drags({DraggedEdge::Left, DraggedEdge::TopLeft, DraggedEdge::BottomLeft}))
            dragged.left = dragged.right - width;
        else
            dragged.right = dragged.left + width;
    }
    if (dragged.height() < height) {
        if (drags({DraggedEdge::Bottom, DraggedEdge::BottomLeft, DraggedEdge::BottomRight}))
            dragged.bottom = dragged.top + height;
        else
            dragged.top = dragged.bottom - height;
    }
    return dragged;
}

} // namespace multirename
