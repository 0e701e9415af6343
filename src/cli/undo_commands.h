#pragma once

#include "cli/batches.h"
#include "cli/command_line.h"
#include "cli/failure.h"
#include "platform/console.h"

namespace multirename {

/// Runs undo or lists what it could take back. Throws Failure when there is no such batch or it cannot be read.
[[nodiscard]] ExitStatus run_undo_command(const Request& request, Console& console, Batches& batches);

} // namespace multirename
