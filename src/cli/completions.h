#pragma once

#include <string>

namespace multirename {

// What a shell reads to complete the words of a command line: commands; the options of the command that was typed;
// formats, case styles, files and folders as their values; paths, or the batches that can be taken back, as operands.

/// For bash 4.4 or later; it needs nothing but the shell.
[[nodiscard]] std::string bash_completion();
/// For zsh; autoloaded as _multirename.
[[nodiscard]] std::string zsh_completion();
/// For fish 3.1 or later.
[[nodiscard]] std::string fish_completion();

} // namespace multirename
