#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "win32/launcher/left_out.h"
#include "win32/launcher/problem.h"

namespace multirename {

/// A path, relative ones taken from the working directory, as Windows spells it in full: of any length, and without
/// backslashes at its end, as the module wants it; those of a drive or share stay. What Windows cannot make full comes
/// back as it is.
[[nodiscard]] std::u16string full_path(std::u16string_view path);

/// Why the module would pass over a full path, or nothing when it takes it.
[[nodiscard]] std::optional<WhyLeftOut> why_left_out(std::u16string_view full_path);

/// The bytes of the file with this full path; a problem that names the file and the reason when it cannot be read.
[[nodiscard]] OrProblem<std::string> list_file_bytes(std::u16string_view full_path);

/// The full path of this program, of any length.
[[nodiscard]] std::u16string program_path();

/// The folder of this program, ended by a backslash.
[[nodiscard]] std::u16string program_folder();

} // namespace multirename
