#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "launcher/launched_program.h"

/// One of the hosts in examples/, started beside the tests or from a copy, and what is done to its own window. Every
/// operation waits for what it brings about and fails the test when that does not come.
class ExampleHost {
public:
    /// `title` is that of the window which the host shows.
    ExampleHost(std::u16string_view title, const LaunchedProgram::Start& start);

    [[nodiscard]] const LaunchedProgram& program() const noexcept { return program_; }
    [[nodiscard]] HWND window() const noexcept { return window_; }
    [[nodiscard]] bool takes_input() const { return IsWindowEnabled(window_) != FALSE; }
    [[nodiscard]] bool can_rename() const;
    [[nodiscard]] std::u16string label() const;
    [[nodiscard]] std::vector<std::u16string> listed_names() const;

    /// Selects these names in the list and no others.
    void select(const std::vector<std::u16string>& names) const;
    void press_rename() const;
    /// Waits until the call of the module has come back.
    void wait_until_back() const;
    /// Closes the message box with this title and gives the text that it showed, as UTF-8.
    [[nodiscard]] std::string take_message(std::u16string_view title) const;
    /// Closes the window; the program is to end well.
    void close() const;

private:
    LaunchedProgram program_;
    HWND window_;
};

/// The full path of a program or library beside the tests.
[[nodiscard]] std::u16string path_beside_tests(std::u16string_view name);
