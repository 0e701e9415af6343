#pragma once

#include <string_view>

namespace multirename {

/// Writes the text, whose lines end with "\n", to the standard output or, without one, to the console that this program
/// was started from: as UTF-8 to a file or pipe. False when there is neither.
bool print(std::u16string_view text);

} // namespace multirename
