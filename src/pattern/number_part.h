#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fileset/file_set.h"
#include "pattern/name_pattern.h"

namespace multirename {

/// What a number part makes of the digits that it took from an old name: nothing when it is cleared; otherwise the old
/// number, shifted by as much as lies between base and start number when it is renumbered (never below 0), with leading
/// zeros by the part's mode. Renumbering without a mode keeps the width of a number that had leading zeros. Digits that
/// count are never cut off. Numbers saturate at 64 bits.
[[nodiscard]] std::u16string formatNumberPart(const NamePart& part, std::u16string_view digits);

/// The same, added to a name.
void append_number(std::u16string& name, const NamePart& part, std::u16string_view digits);

/// Sets each number part's base number to the smallest number that it takes from the listed entries' old names; a part
/// that takes none keeps the one it has. True when any changed.
bool computeBaseNumbers(const FileSet& files, NamePattern& pattern);

/// The smallest number that each number part captures among some names, in the order of the parts; fewer when no name
/// gave the last ones anything.
struct SmallestNumbers {
    std::vector<std::int64_t> numbers;
    bool all_names_fit = true;
};

/// What `computeBaseNumbers` sets, without setting it, for a list of names as far as the pattern describes them.
[[nodiscard]] SmallestNumbers smallest_numbers(std::span<const std::u16string_view> described_names,
                                               const NamePattern& pattern);

/// Sets the base numbers of the parts for which there is a number; true when any of them changed.
bool set_base_numbers(NamePattern& pattern, const SmallestNumbers& smallest);

} // namespace multirename
