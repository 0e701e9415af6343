#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/console.h"

namespace multirename {

/// A console in memory, for tests: keeps what is written, and gives what it was told to give.
class FakeConsole final : public Console {
public:
    std::string output;
    std::string errors;
    std::string input;
    bool is_terminal = false; ///< both for output and for errors
    std::map<std::string, std::string> variables;
    std::vector<std::pair<std::string, std::string>> piped; ///< commands and what they were given

    bool write(std::string_view text) override
    {
        output += text;
        return true;
    }
    void write_error(std::string_view text) override { errors += text; }
    std::string read_input() override { return input; }
    bool output_is_terminal() override { return is_terminal; }
    bool errors_are_terminal() override { return is_terminal; }
    std::size_t columns() override { return 80; }
    bool pipe_to(const std::string& command, std::string_view text) override
    {
        piped.emplace_back(command, text);
        return true;
    }
    std::optional<int> run_on_file(const std::string&, const std::string&) override { return std::nullopt; }
    std::optional<std::string> variable(const char* name) override
    {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace multirename
