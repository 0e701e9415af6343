#pragma once

#include <span>
#include <vector>

#include "pattern/name_part.h"

namespace multirename {

/// One control of the pattern row: an edit for a text part, a button for a number or wild part.
struct RowSlot {
    NamePartKind kind = NamePartKind::Text;
    int text_width = 0; ///< of its text in the dialog's font, at 96 dots per inch
};

/// Where a control of the row stands, in pixels.
struct RowPlace {
    int x = 0;
    int width = 0;
};

/// The row's top edge and the heights of its controls, at 96 dots per inch; edits are centred in the row.
inline constexpr int row_top = 80;
inline constexpr int row_height = 32;
inline constexpr int row_edit_height = 26;

/// Places the controls side by side in `client_width` pixels at `dpi`: a row that fits is centred; in one that does
/// not, the widest controls are narrowed first, none below 46 (scaled), and the row starts at the left edge.
[[nodiscard]] std::vector<RowPlace> lay_out_row(std::span<const RowSlot> slots, int client_width, int dpi);

} // namespace multirename
