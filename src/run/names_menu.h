#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// The text of a command on the selected rows: each "(s)" in it is the plural's ending, which goes when just one row is
/// selected.
[[nodiscard]] std::u16string names_menu_text(std::u16string_view text, std::size_t selected_rows);

} // namespace multirename
