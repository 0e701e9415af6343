#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/refused_calls.h"

namespace multirename {

/// How a program is to be run. It starts with the default handling of signals, even where the tests were told to ignore
/// some, and with no open files of the tests but its standard streams.
struct ProgramRun {
    /// [0] is the program: a path, relative to `folder`, or a name that is looked for in the tests' own PATH.
    std::vector<std::string> arguments = {};
    /// Variables to set or, with nullopt, to unset on top of the tests' own.
    std::map<std::string, std::optional<std::string>> environment = {};
    std::string input = {}; ///< what standard input holds, through a pipe
    std::string folder = {}; ///< the working directory; the tests' own when empty
    /// Run with this uid and gid and without supplementary groups. Needs root. The folder is entered before.
    std::optional<unsigned> user = {};
    /// Standard output and error are one terminal of 80 columns and 24 rows, and it is the controlling one. All that is
    /// written there becomes the output, byte for byte: the terminal puts no carriage returns in.
    bool terminal = false;
    bool closed_output = false; ///< standard output is a pipe that nobody can read from any more
    RefusedCalls refused = {};
};

struct ProgramResult {
    int exit_status = 0; ///< as a shell says it: 128 + the signal for a program that a signal ended
    std::string output = {};
    std::string errors = {};
};

/// Runs a program to its end, and until nobody, no program that it left behind either, has its output streams open.
/// Input that it does not read is dropped. Throws std::system_error when it cannot be started.
[[nodiscard]] ProgramResult run_program(const ProgramRun& run);

} // namespace multirename
