#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// The lines of a text without their ends, for tests.
[[nodiscard]] inline std::vector<std::string> lines_of(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The text with each run of blanks and line ends as one blank, so that what was wrapped can be looked for.
[[nodiscard]] inline std::string in_one_line(std::string_view text)
{
    std::istringstream stream{std::string(text)};
    std::string line;
    for (std::string word; stream >> word;)
        line.append(line.empty() ? "" : " ").append(word);
    return line;
}

} // namespace multirename
