#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// One character as a terminal shows it.
struct Glyph {
    std::string bytes;
    std::size_t columns = 0;
};

/// The text, character by character, in a form that does nothing to a terminal but print: line breaks, control
/// characters, halves of surrogate pairs and bytes that are not UTF-8 become escapes such as \n, \x1b, \ud83d and \xff.
[[nodiscard]] std::vector<Glyph> glyphs(std::u16string_view text);

/// Appends the same to a string, and gives the columns that it takes.
std::size_t append_printable(std::string& bytes, std::u16string_view text);
/// Those columns alone.
[[nodiscard]] std::size_t printable_columns(std::u16string_view text);

/// The same as one string.
[[nodiscard]] std::string printable(std::u16string_view text);
/// The same of UTF-8 text, perhaps with stray bytes.
[[nodiscard]] std::string printable(std::string_view bytes);
[[nodiscard]] inline std::string printable(const std::string& bytes) { return printable(std::string_view(bytes)); }

} // namespace multirename
