#include "run/pattern_row.h"

#include <algorithm>

#include "run/dpi.h"

namespace multirename {

namespace {

constexpr int gap_length = 6;
constexpr int padding_length = 8;
constexpr int edit_allowance = 30;
constexpr int smallest_edit = 46;
constexpr int smallest_button = 50;

int natural_width(const RowSlot& slot, int dpi)
{
    const int with_padding = 2 * scaled(padding_length, dpi) + scaled(slot.text_width, dpi);
    if (slot.kind == NamePartKind::Text)
        return std::max(with_padding + scaled(edit_allowance, dpi), scaled(smallest_edit, dpi));
    return std::max(with_padding, scaled(smallest_button, dpi));
}

int total_width(const std::vector<RowPlace>& places, int gap)
{
    int total = (static_cast<int>(places.size()) - 1) * gap;
    for (const RowPlace& place : places)
        total += place.width;
    return total;
}

// Takes up to `wanted` pixels, evenly, from the controls that are widest, down to the next narrower ones but never
// below `smallest`. False when nothing can be taken.
bool narrow_widest(std::vector<RowPlace>& places, int wanted, int smallest)
{
    const auto narrower = [](const RowPlace& a, const RowPlace& b) { return a.width < b.width; };
    const int widest = std::max_element(places.begin(), places.end(), narrower)->width;
    int floor = smallest;
    int sharers = 0;
    for (const RowPlace& place : places) {
        if (place.width == widest)
            ++sharers;
        else
            floor = std::max(floor, place.width);
    }
    const int share = std::min((wanted + sharers - 1) / sharers, widest - floor);
    if (share <= 0)
        return false;
    for (RowPlace& place : places) {
        if (place.width == widest)
            place.width -= share;
    }
    return true;
}

} // namespace

std::vector<RowPlace> lay_out_row(std::span<const RowSlot> slots, int client_width, int dpi)
{
    std::vector<RowPlace> places;
    if (slots.empty())
        return places;
    for (const RowSlot& slot : slots)
        places.push_back({0, natural_width(slot, dpi)});

    const int gap = scaled(gap_length, dpi);
    int total = total_width(places, gap);
    while (total > client_width && narrow_widest(places, total - client_width + 4 * gap, scaled(smallest_edit, dpi)))
        total = total_width(places, gap);

    int x = std::max((client_width - total) / 2, 0);
    for (RowPlace& place : places) {
        place.x = x;
        x += place.width + gap;
    }
    return places;
}

} // namespace multirename
