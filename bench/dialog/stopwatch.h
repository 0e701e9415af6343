#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

/// Times a modal dialog from within its own thread. The system tells the owner of a modal dialog whenever the dialog
/// has run out of messages; when nothing is left to be painted then either, the step before is over and the next
/// begins. So nothing polls or sleeps, and every step goes the way that a person's click or key goes.
class Stopwatch {
public:
    /// Sets something off, by posting to the dialog or its controls.
    using Step = std::function<void(HWND dialog)>;

    Stopwatch();
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;
    ~Stopwatch();

    /// Calls `open`, which shows a dialog owned by the window that it is given and returns when that has been closed.
    /// Meanwhile carries out the steps in turn, calls `finish` and cancels the dialog.
    /// Gives milliseconds: from the call until all was painted, then the same of each step.
    /// Throws std::runtime_error when the dialog was closed before all of that happened.
    std::vector<double> run(const std::function<void(HWND owner)>& open, std::vector<Step> steps,
                            const Step& finish = {});

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    void went_quiet(HWND dialog);

    HWND owner_;
    std::vector<Step> steps_;
    Step finish_;
    std::vector<double> times_;
    LARGE_INTEGER start_ = {};
    bool is_done_ = true;
};

/// The command line's arguments, without the program.
[[nodiscard]] std::vector<std::wstring> arguments();

/// A name of the files that are made for these measurements, counted from 0.
[[nodiscard]] std::wstring sample_name(int index);

/// Times one opening of the dialog with the list that has this number, scrolls the list by pages, and types into the
/// first edit, if the dialog has one. Prints three numbers of milliseconds, in this order, the latter two
/// medians, a dash for no edit. An opening on one file comes before, so that what is made once in a process counts for
/// nobody. `open` is told how many of the files to show. `check` looks at the dialog when all is done and says whether
/// it is right. Gives the status that the program should end with.
int time_and_print(const std::function<void(HWND owner, int count)>& open, int count, int list_id,
                   const std::function<bool(HWND dialog)>& check);
