#pragma once

#include <functional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "cli/journal.h"

namespace multirename {

/// The names in a folder, spelled as they are on the disk; the folder in the system's own bytes, with "\" at its end.
using NamesOfFolder = std::function<std::set<std::string>(const std::string& folder)>;

/// Finds out which moves of a batch have happened, after something that does not tell has carried it out, in whole or
/// in part and in their order. Asks for the names of each folder once, by the path that it has now.
[[nodiscard]] std::vector<bool> what_happened(std::span<const JournalEntry> moves, const NamesOfFolder& names_of);

/// Which moves of a batch, made in their order, find their new names free, or taken by nothing but their own old ones
/// in other cases. One that does not is left where it is, and those that wait for its name with it. Names are compared
/// without regard to case. Asks for the names of each folder once, by the path that the moves give; a folder that does
/// not exist yet has none.
[[nodiscard]] std::vector<bool> moves_to_free_names(std::span<const JournalEntry> moves, const NamesOfFolder& names_of);

} // namespace multirename
