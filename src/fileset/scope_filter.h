#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// Decides which listed entries take part in a rename.
struct ScopeFilter {
    std::u16string text; ///< the pattern text; when empty every listed entry takes part
    std::u16string pattern; ///< the same text in upper case, matched against the entries' keys
    bool includes_extension = true; ///< otherwise keys are cut before their last "."
};

/// Whether the whole of `text` fits `pattern`, both in upper case.
///
/// "*" takes any run of characters, an empty one too, yet with more pattern after it one character at least must be
/// left for that rest; "?" takes one character; "#" takes the longest run of one or more digits and never a shorter
/// one; "\" makes the next pattern character literal; "/" matches nothing and is skipped. Once the text is used up,
/// "*" and "/" at the end of the pattern are skipped.
/// O(pattern × text) at worst, however many "*" there are, and no memory.
[[nodiscard]] bool matches_scope_pattern(std::u16string_view pattern, std::u16string_view text);

} // namespace multirename
