#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pattern/name_part.h"

namespace multirename {

/// How names are taken apart before they are analysed.
enum class NameMode : std::uint32_t {
    BaseOnly = 0, ///< names without their extension, which every file keeps
    BaseWithExtensionPart = 1, ///< names without their extension, which becomes the last part
    WholeName = 2, ///< whole names
};

/// A pattern that covers all listed names, and what the user made of it.
///
/// As text, "*" is a wild part, "#" a number part, "\" makes the next character literal, and everything else is text
/// that all names share.
struct NamePattern {
    std::u16string patternText; ///< as shown; edits to the parts do not change it
    std::vector<NamePart> parts;
    bool includesExtension = false; ///< the parts describe whole names; otherwise each file keeps its old extension
};

/// The pattern that the text describes, every setting at its default. The parts begin with a text part, no two markers
/// stand side by side, and only an extension wild may be the last part in place of a text part.
/// With NameMode::BaseWithExtensionPart `extensionText` follows the text: ".*" as a wild part that takes an extension,
/// anything else as text.
[[nodiscard]] NamePattern parsePattern(std::u16string_view patternText, std::u16string_view extensionText,
                                       NameMode nameMode);

/// `text` with "\" before each "#", so that a pattern takes it literally.
[[nodiscard]] std::u16string escape_hashes(std::u16string_view text);

/// Whether the pattern text has a number part; an escaped hash is none.
[[nodiscard]] bool has_number_marker(std::u16string_view patternText);

/// Gives the parts of `newPattern` the settings of the parts of `oldPattern` that they continue.
void carryPartSettings(NamePattern& newPattern, const NamePattern& oldPattern);

} // namespace multirename
