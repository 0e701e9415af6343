#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// UTF-16 as UTF-8 in which a half of a surrogate pair that stands alone takes the three bytes that its value would
/// have as a character. from_wtf8(to_wtf8(t)) is t for every t, also for the names that Windows allows and UTF-8 does
/// not.
[[nodiscard]] std::string to_wtf8(std::u16string_view text);

/// The way back. Bytes that are neither UTF-8 nor such a half become U+FFFD, one for each.
[[nodiscard]] std::u16string from_wtf8(std::string_view bytes);

} // namespace multirename
