#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "fileset/file_set.h"
#include "pattern/name_pattern.h"

namespace multirename {

/// The patterns between which the user chooses, one for each way of reading the names.
struct ModePatterns {
    static constexpr std::size_t count = 4;

    /// The place of a pattern among the four.
    [[nodiscard]] static constexpr std::size_t index(bool numbers_as_text, bool with_extension) noexcept
    {
        return (numbers_as_text ? 2U : 0U) + (with_extension ? 1U : 0U);
    }

    std::array<NamePattern, count> patterns;
    std::u16string extension_text; ///< the extension that all names share, ".*" when they differ, or nothing
};

/// The four patterns of all listed names, the base numbers of their number parts included. With `whole_names` those
/// with the extension describe names that are never split at a period.
[[nodiscard]] ModePatterns computeModePatterns(const FileSet& files, bool whole_names);

/// Computes the base numbers again, after entries were taken off the list.
void refresh_base_numbers(const FileSet& files, ModePatterns& modes);

} // namespace multirename
