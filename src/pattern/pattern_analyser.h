#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fileset/file_set.h"
#include "pattern/name_pattern.h"

namespace multirename {

struct ExtractedPattern {
    std::u16string pattern;
    std::u16string extensionText; ///< the extension that all names share, ".*" when they differ, or nothing
};

/// The names that a pattern is found for, in the order of the file set. They refer into the set.
struct ListedNames {
    std::vector<std::u16string_view> names;
    std::u16string extensionText; ///< as in ExtractedPattern
};

/// The names of all listed entries, without their extensions unless `nameMode` is NameMode::WholeName.
[[nodiscard]] ListedNames collectNames(const FileSet& files, NameMode nameMode);

/// The one pattern that the names of all listed entries share. For NameMode::WholeName the extension text is empty;
/// NameMode::BaseWithExtensionPart gives the pattern of the names without extensions, like NameMode::BaseOnly.
[[nodiscard]] ExtractedPattern computeNamePattern(const FileSet& files, bool numberMode, NameMode nameMode);

/// The one pattern that the given names share. Hashes of the names are escaped; with `numberMode` runs of digits that
/// differ become "#". No names give an empty pattern; names with nothing in common give "*".
/// The result depends on the order of the names, since searches start from the first and the first of equals wins.
[[nodiscard]] std::u16string pattern_of_names(std::span<const std::u16string_view> names, bool numberMode);

} // namespace multirename
