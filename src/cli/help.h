#pragma once

#include <optional>
#include <string>

#include "cli/command_table.h"

namespace multirename {

/// What --help prints: of the program, or of one of its commands with examples. At most 80 columns wide.
[[nodiscard]] std::string help_text(std::optional<CommandId> command);

/// How an option is written, with its short form in front: -h, --help.
[[nodiscard]] std::string option_words(const OptionInfo& option);

} // namespace multirename
