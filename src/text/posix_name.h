#pragma once

#include <string>
#include <string_view>

namespace multirename {

// File systems of POSIX allow the characters \ : * ? " < > | in names, and bytes that are not UTF-8; behind the border
// a name holds neither. Each of the eight characters becomes the unit U+F000 + its code, and bytes that cannot be
// told from that, or are not UTF-8, become lone units U+DC80 to U+DCFF.

/// The name (no "/" in it) as the engine holds it.
[[nodiscard]] std::u16string name_from_bytes(std::string_view bytes);

/// The bytes on disk of a name; bytes_from_name(name_from_bytes(b)) is b for every b.
[[nodiscard]] std::string bytes_from_name(std::u16string_view name);

/// A whole path, with "\" behind the border for "/" on disk.
[[nodiscard]] std::u16string path_from_bytes(std::string_view bytes);
[[nodiscard]] std::string bytes_from_path(std::u16string_view path);

} // namespace multirename
