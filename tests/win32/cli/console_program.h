#pragma once

#include <map>
#include <string>
#include <vector>

/// How multirename.exe, the one beside the tests, is to be run.
struct ConsoleRun {
    std::vector<std::u16string> words; ///< behind the program's name
    std::u16string folder; ///< the working folder
    std::string input;
    std::map<std::u16string, std::u16string> environment; ///< set on top of the tests' own
    std::u16string program; ///< empty: the one beside the tests
};

struct ConsoleResult {
    unsigned exit_status = 0;
    std::string output; ///< UTF-8
    std::string errors;
};

/// The full path of the program beside the tests.
[[nodiscard]] std::u16string console_program_path();

/// Runs the program to its end. Fails the test when it cannot be started.
[[nodiscard]] ConsoleResult run_console_program(const ConsoleRun& run);
