#pragma once

#include "cli/batches.h"
#include "cli/command_line.h"
#include "cli/failure.h"
#include "platform/console.h"

namespace multirename {

/// Runs pattern, preview, rename or edit. Throws Failure, with nothing renamed.
[[nodiscard]] ExitStatus run_file_command(const Request& request, Console& console, Batches& batches);

} // namespace multirename
