#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/command_table.h"

namespace multirename {

/// Which files a command is about, as it was typed.
struct Selection {
    std::vector<std::string> paths;
    std::optional<std::string> from; ///< a file of paths
    bool nul_ended = false; ///< paths and names in files end in NUL
    std::optional<std::string> in; ///< a folder
    bool folders = false;
    bool hidden = false;
    std::optional<std::string> names; ///< a file of bare names
    std::optional<std::string> listed; ///< a file of those of them that are listed
};

/// One edit as it was typed; the argument holds the part's number.
struct Edit {
    OptionId option;
    std::string argument;
    bool operator==(const Edit&) const = default;
};

enum class OutputFormat { Table, Tsv, Json };

/// A command line that was understood.
struct Request {
    enum class Kind { Command, Help, Version };
    Kind kind = Kind::Command;
    std::optional<CommandId> command; ///< for help: the command that it is about, if one

    Selection selection;
    bool numbers_as_text = false;
    bool extensions = false;
    std::vector<Edit> edits; ///< in the order in which they stand
    OutputFormat format = OutputFormat::Table;
    bool pager = false;
    bool list = false; ///< undo --list
    std::optional<std::string> batch; ///< undo ID
};

/// Takes the words after the program's name apart. Throws WrongCommandLine.
[[nodiscard]] Request parse_command_line(const std::vector<std::string>& words);

} // namespace multirename
