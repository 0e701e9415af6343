#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/file_handle.h"

/// The program multirename-gui.exe, or another host of the module, started like a person's file manager would, and what
/// is done to its windows. Every operation waits for what it brings about and fails the test when that does not come.
class LaunchedProgram {
public:
    struct Start {
        std::vector<std::u16string> words; ///< behind the program's name
        std::u16string working_folder; ///< empty: that of the tests
        std::u16string program; ///< empty: the one beside the tests
    };
    explicit LaunchedProgram(const Start& start);
    explicit LaunchedProgram(std::vector<std::u16string> words) : LaunchedProgram(Start{std::move(words), {}, {}}) { }
    LaunchedProgram(const LaunchedProgram&) = delete;
    LaunchedProgram& operator=(const LaunchedProgram&) = delete;
    /// Ends the program when it still runs.
    ~LaunchedProgram();

    /// The thread that its windows belong to.
    [[nodiscard]] DWORD thread() const noexcept { return thread_; }
    /// The module's dialog.
    [[nodiscard]] HWND rename_dialog() const;
    /// The system's dialog in which files are chosen.
    [[nodiscard]] HWND file_dialog() const;
    /// Closes the message box with one of its buttons and gives the text that it showed, as UTF-8.
    [[nodiscard]] std::string take_message(int button = IDOK) const;

    /// Types in front of the first text of the module's dialog and has the files renamed.
    void rename_with_prefix(std::u16string_view prefix) const;
    void cancel_rename_dialog() const;

    /// Waits until the program has ended.
    [[nodiscard]] DWORD exit_status() const;
    /// What the program has written to its standard output until its end.
    [[nodiscard]] std::string output() const;

private:
    [[nodiscard]] bool has_ended() const;
    template <class Find>
    [[nodiscard]] HWND awaited(Find find, const char* what) const;

    multirename::UniqueFile output_;
    multirename::UniqueFile process_;
    DWORD thread_ = 0;
};

/// The full path of the program beside the tests.
[[nodiscard]] std::u16string launcher_path();
