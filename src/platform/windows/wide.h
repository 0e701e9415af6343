#pragma once

#include <string>
#include <string_view>

namespace multirename {

// The one pair of helpers between the engine's text and Windows' wide strings. Copied, never reinterpreted: the two
// unit types are distinct for the language though not for the machine.

[[nodiscard]] inline std::wstring to_wide(std::u16string_view text) { return {text.begin(), text.end()}; }
[[nodiscard]] inline std::u16string from_wide(std::wstring_view text) { return {text.begin(), text.end()}; }

} // namespace multirename
