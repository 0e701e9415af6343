#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// The way between a program and whoever started it. Text is UTF-8, and bytes that are not go through as they are.
class Console {
public:
    virtual ~Console() = default;
    Console() = default;
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Writes to standard output. False when it could not be written, except that a reader who has gone away is no
    /// failure.
    virtual bool write(std::string_view text) = 0;
    /// Writes to standard error; what cannot be written there is lost.
    virtual void write_error(std::string_view text) = 0;

    /// The whole of standard input, or as much of it as can be read.
    [[nodiscard]] virtual std::string read_input() = 0;

    [[nodiscard]] virtual bool output_is_terminal() = 0;
    [[nodiscard]] virtual bool errors_are_terminal() = 0;
    /// The columns of the terminal that standard output is, 80 where it does not tell.
    [[nodiscard]] virtual std::size_t columns() = 0;

    /// Runs a command of the system's shell with the text as its standard input and waits for its end. False when it
    /// could not be started.
    virtual bool pipe_to(const std::string& command, std::string_view text) = 0;

    /// Runs a command of the system's shell on a file and waits for its end; gives its exit status, nothing when it
    /// could not be started.
    [[nodiscard]] virtual std::optional<int> run_on_file(const std::string& command,
                                                         const std::string& native_path) = 0;

    /// A variable of the environment; nothing when it is not set or empty.
    [[nodiscard]] virtual std::optional<std::string> variable(const char* name) = 0;
};

/// The console of this process. Readers that go away do not end the process from the first call on.
[[nodiscard]] Console& system_console();

/// How many columns of a terminal the character takes: 0, 1 or 2; nothing for one that is not printed.
[[nodiscard]] std::optional<std::size_t> columns_of(char32_t character);

/// Has letters, cases and the names of months follow the user's locale for the rest of the process, or C.UTF-8 where
/// that knows ASCII alone.
void use_locale_of_user();

/// The words of the command line after the program's own name, as the system hands them over.
[[nodiscard]] std::vector<std::string> command_line_words(int argc, char** argv);

} // namespace multirename
