#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// Well-formed UTF-8 as UTF-16. Each byte that is part of no well-formed sequence becomes one lone unit U+DC80 to
/// U+DCFF (U+DC00 + the byte), so that every byte string has its own UTF-16 form; see `to_bytes`.
[[nodiscard]] std::u16string from_bytes(std::string_view bytes);

/// UTF-16 as UTF-8, with lone units U+DC80 to U+DCFF turned back into the bytes that they stand for, so that
/// to_bytes(from_bytes(b)) is b for every b. Any other half of a surrogate pair has no bytes and becomes U+FFFD.
[[nodiscard]] std::string to_bytes(std::u16string_view text);

/// Appends text that is nothing but printable characters of ASCII. False, and nothing is done, when it holds anything
/// else: most texts do not, and need no closer look then.
bool append_printable_ascii(std::string& bytes, std::u16string_view text);

/// Whether the text is nothing but printable characters of ASCII.
[[nodiscard]] bool is_printable_ascii(std::u16string_view text) noexcept;

} // namespace multirename
