#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace multirename {

enum class WhyLeftOut {
    NotFound,
    TooLong, ///< more characters than a path that the module takes
    NoName, ///< a drive or a share as a whole
};

/// A path that Multi Rename would pass over without a word.
struct LeftOutPath {
    std::u16string path;
    WhyLeftOut why = WhyLeftOut::NotFound;
};

/// Tells the user which paths are left out and why, the first five by name, and asks whether to go on with the others.
/// When none of the `given` paths would be left it asks nothing and says what to check. `left_out` is not empty and
/// not longer than `given`.
[[nodiscard]] std::u16string left_out_message(std::span<const LeftOutPath> left_out, std::size_t given);

} // namespace multirename
