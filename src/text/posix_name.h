#pragma once

#include <string>
#include <string_view>

namespace multirename {

// File systems of POSIX allow the characters \ : * ? " < > | in names, and bytes that are not UTF-8; behind the border
// a name holds neither. Each of the eight characters becomes the unit U+F000 + its code, and bytes that cannot be
// told from that, or are not UTF-8, become lone units U+DC80 to U+DCFF.

/// The name (no "/" in it) as the engine holds it.
[[nodiscard]] std::u16string name_from_bytes(std::string_view bytes);

/// The same into `name`, whose room is used again.
void name_from_bytes(std::string_view bytes, std::u16string& name);

/// The bytes on disk of a name; bytes_from_name(name_from_bytes(b)) is b for every b.
[[nodiscard]] std::string bytes_from_name(std::u16string_view name);
/// The same into memory that is used again.
void bytes_from_name(std::u16string_view name, std::string& bytes);

/// Whether the name is nothing but characters of ASCII of which none was or can be moved aside: most names are, and
/// need no closer look then.
[[nodiscard]] bool is_plain_name(std::u16string_view name) noexcept;

/// Whether name_from_bytes(bytes_from_name(name)) is the name.
[[nodiscard]] bool is_same_from_bytes(std::u16string_view name);

/// A name with the characters that were moved aside in their places again, still in UTF-16: what people see.
[[nodiscard]] std::u16string shown_name(std::u16string_view name);

/// Text that was typed: the eight characters stay what they are, and are refused where a name may not hold them. What
/// looks like one of them moved aside becomes its bytes.
[[nodiscard]] std::u16string typed_from_bytes(std::string_view bytes);

/// A whole path, with "\" behind the border for "/" on disk.
[[nodiscard]] std::u16string path_from_bytes(std::string_view bytes);
[[nodiscard]] std::string bytes_from_path(std::u16string_view path);

} // namespace multirename
