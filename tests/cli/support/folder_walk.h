#pragma once

#include <string>
#include <vector>

#include "support/descriptor.h"

namespace multirename {

/// Opens the folder `name` of the open folder `parent` (or AT_FDCWD); a link is not followed. Walking by descriptors
/// reaches folders whose path is longer than the system takes. Throws std::system_error.
[[nodiscard]] Descriptor open_folder(int parent, const std::string& name);

/// The names in an open folder, sorted by their bytes, without "." and "..". Throws std::system_error.
[[nodiscard]] std::vector<std::string> names_in_open(int folder);

} // namespace multirename
