#pragma once

#include <string>
#include <vector>

#include "cli/batches.h"
#include "cli/failure.h"
#include "platform/console.h"

namespace multirename {

/// Runs the program: the words after its name, the console to talk to, and where batches are written down. Whatever
/// goes wrong the user has been told by then; throws only when memory or the like runs out.
[[nodiscard]] ExitStatus run_program(const std::vector<std::string>& words, Console& console, Batches batches);

} // namespace multirename
