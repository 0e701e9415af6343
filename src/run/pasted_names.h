#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// Whether any of the nine characters stands in the text that file names may not hold.
[[nodiscard]] bool holds_forbidden_character(std::u16string_view text) noexcept;

/// The lines of a pasted text, trimmed of white space at both ends. Lines that are then empty are left out, except the
/// piece after the last line feed when it holds white space: that one stands for a file whose name is left as it is.
[[nodiscard]] std::vector<std::u16string_view> pasted_lines(std::u16string_view text);

/// The new name that a pasted line gives to a file: the line itself, or, where extensions are left alone, the line
/// without its own extension followed by the old name's. An old name without a period takes the line up to its first
/// period, any other the line up to its last.
[[nodiscard]] std::u16string pasted_name(std::u16string_view line, std::u16string_view old_name,
                                         bool allow_extension_changes);

} // namespace multirename
