#pragma once

#include <string_view>
#include <vector>

#include "pattern/name_pattern.h"

namespace multirename {

/// What one part took from an old name. Refers into both.
struct PartCapture {
    const NamePart* part = nullptr;
    std::u16string_view text;
};

/// What the parts took from an old name.
struct NameMatch {
    bool matched = false;
    /// One for each part when the name matched; otherwise those of the parts before the one that failed, and at most
    /// those before the first wild part.
    std::vector<PartCapture> captures;
};

/// Matches the whole of `text`: text parts exactly, number parts by the longest run of digits (at most 260), wild parts
/// by the shortest text that lets the rest match.
/// O(parts × text) at worst, however many wild parts there are.
[[nodiscard]] NameMatch matchName(std::u16string_view text, const std::vector<NamePart>& parts);

/// What the pattern describes of a name: all but the extension, unless the pattern includes that.
[[nodiscard]] std::u16string_view described_name(const NamePattern& pattern, std::u16string_view name) noexcept;

} // namespace multirename
