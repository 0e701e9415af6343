#pragma once

#include <string>
#include <vector>

#include "win32/launcher/problem.h"

namespace multirename {

/// Lets the user choose files in the system's own dialog and gives their full paths; none when the user cancels.
[[nodiscard]] OrProblem<std::vector<std::u16string>> choose_files();

} // namespace multirename
