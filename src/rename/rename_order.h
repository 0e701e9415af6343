#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace multirename {

/// The order in which entries of one folder can take their new names, none ever landing on a name in use.
///
/// `holder[i]` is the index of the entry that now has entry i's new name: i itself for a change of case only, empty
/// when the name is free. Indices are below holder.size(), and none but i itself appears twice.
/// Gives indices in the order of repeated passes from the front, each pass taking every entry whose name has come free.
/// Leaves out swaps and longer cycles: without temporary names they can never move.
/// O(n) time and memory; throws only std::bad_alloc.
[[nodiscard]] std::vector<std::size_t> rename_order(std::span<const std::optional<std::size_t>> holder);

} // namespace multirename
