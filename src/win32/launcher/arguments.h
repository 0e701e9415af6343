#pragma once

#include <span>
#include <string>
#include <vector>

#include "win32/launcher/problem.h"

namespace multirename {

/// A word of the command line that stands for paths.
struct PathWord {
    std::u16string path; ///< as it was typed, without the "@" of a list file; never empty
    bool is_list_file = false; ///< stands for the paths in that file
    bool operator==(const PathWord&) const = default;
};

enum class Task { Rename, InstallSendTo, UninstallSendTo, ShowHelp, ShowVersion };

/// What a command line asks for.
struct CommandLine {
    Task task = Task::Rename;
    std::vector<PathWord> paths; ///< for Task::Rename, in their order; none: the user is to choose the files
    bool operator==(const CommandLine&) const = default;
};

/// The words behind the program's name, understood: options, list files and paths, up to "--" in any order; behind it
/// every word is a path. The problem of a command line that makes no sense names the first word that is to blame.
/// Whether a path exists is not looked at.
[[nodiscard]] OrProblem<CommandLine> parse_arguments(std::span<const std::u16string> words);

/// What can stand on the command line, for users: lines ended by "\n", readable in any font.
[[nodiscard]] std::u16string help_text();

} // namespace multirename
