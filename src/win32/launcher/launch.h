#pragma once

#include <span>
#include <string>
#include <string_view>

namespace multirename {

enum ExitStatus : int { Done = 0, Failed = 1, NotUnderstood = 2 };

/// Shows what went wrong in a message box of this program and returns when the user has read it.
void show_error(std::u16string_view text) noexcept;

/// Does what the words behind the program's name ask for and gives the exit status. Whatever goes wrong with the words
/// and the files the user has been told by then; throws only when memory or the like runs out.
[[nodiscard]] ExitStatus launch(std::span<const std::u16string> words);

} // namespace multirename
