#pragma once

#include <string>
#include <vector>

#include "documents.h"

namespace multirename {

/// What a shell makes of a line when its user presses Tab at the end.
struct Answer {
    std::vector<std::string> candidates; ///< sorted, without quoting, a folder's separator and what is in front of "="
    std::string line; ///< what the line has become; empty where the shell does not tell
};

/// Each of them runs a real shell of the user's, with our completion for it and none of its own settings.
[[nodiscard]] Answer ask_bash(const Home& home, const std::string& line);
[[nodiscard]] Answer ask_zsh(const Home& home, const std::string& line);
[[nodiscard]] Answer ask_fish(const Home& home, const std::string& line);

} // namespace multirename
