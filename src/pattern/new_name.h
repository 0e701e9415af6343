#pragma once

#include "fileset/filename.h"
#include "pattern/name_pattern.h"

namespace multirename {

/// Makes the entry's new name from its old name and the pattern. A name that the pattern does not match gets what the
/// parts took before the match failed. Tags read the entry's record. Of the text that one part gives, 260 characters
/// count.
void makeNewName(const NamePattern& pattern, Filename& entry);

} // namespace multirename
