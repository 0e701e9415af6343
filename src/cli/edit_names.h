#pragma once

#include "cli/name_border.h"
#include "platform/console.h"
#include "run/rename_run.h"

namespace multirename {

/// Opens the new names of all rows that the pattern covers in the user's editor, one a line, and takes its lines as
/// pasted names. A line that was left as it was leaves its file to the pattern, also where pasting would change it.
/// Characters that names may hold on this system and the pattern language not may stay where they are, yet none can be
/// added. Throws Failure when there is no editor, when it fails, when a name holds a line break, and when its lines
/// cannot be used; in that last case they are kept in a file, and the text says in which.
void edit_names(RenameRun& run, const NameBorder& border, Console& console);

} // namespace multirename
