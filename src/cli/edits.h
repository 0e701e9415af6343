#pragma once

#include <span>

#include "cli/command_line.h"
#include "cli/name_border.h"
#include "run/rename_run.h"

namespace multirename {

/// Makes the edits count in the run, in their order, so that later ones on a part win, except that a cleared number
/// part stays cleared. Throws WrongCommandLine for a part that the pattern does not have or that is of another kind,
/// and for a value that cannot be read; some edits may have been made by then.
void apply_edits(RenameRun& run, std::span<const Edit> edits, const NameBorder& border);

} // namespace multirename
