#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/batches.h"
#include "cli/progress_bar.h"

namespace multirename {

/// An entry that could not be given its old name again.
struct LeftEntry {
    JournalEntry entry;
    std::string reason;
};

struct UndoReport {
    std::string id;
    std::size_t restored = 0;
    std::vector<LeftEntry> left;
    std::size_t unknown = 0; ///< entries that the journal should hold and does not
    bool was_stopped = false; ///< the user stopped it; what was not reached is in none of the numbers
};

/// Takes a batch back, the last rename first, each name only when nothing stands in its way, and closes the batch. What
/// was never renamed, or has its old name again, is passed over in silence. Safe to be stopped at any point and done
/// again.
[[nodiscard]] UndoReport take_back(Batch& batch, ProgressBar& progress);

} // namespace multirename
