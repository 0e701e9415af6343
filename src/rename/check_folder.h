#pragma once

#include "fileset/file_set.h"

namespace multirename {

/// Judges the new name of every entry of the folder, sets its status, and rebuilds the folder's rename order.
///
/// An entry out of scope is Ready. One in scope is Unchanged when its new name is its name, a fault (SameName to
/// TooLong) when it may not get that name, and otherwise Ready and part of the rename order. A name of another entry
/// may be taken only when that entry takes part and moves away first; entries that could only move with the help of a
/// temporary name, those of a swap or a longer cycle, are ExistingName.
/// Names are compared as the folder compares them; Unchanged is judged with case everywhere.
void check_folder(RenameFolder& folder);

/// `check_folder` for every folder.
void check_all(FileSet& files);

/// Looks at the disk once more, for a rename that is to follow at once: an entry of a rename order whose new name has
/// come to exist since its folder was read becomes ExistingName, and one that had become so by an earlier look is Ready
/// again when the name has gone. What the checks above refuse stays refused. Lists each folder that has a rename order.
void check_for_names_that_appeared(FileSet& files);

} // namespace multirename
