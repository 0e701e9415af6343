#pragma once

#include <stdexcept>
#include <string>

namespace multirename {

/// What scripts see of a run; part of the program's contract.
enum class ExitStatus {
    Done = 0, ///< or nothing to change
    Refused = 1, ///< a file has a problem, and nothing was renamed
    WrongCommandLine = 2,
    PartlyDone = 3, ///< the system refused part of the work
};

/// Ends a run before anything was renamed. The text says what is wrong and what to do, without the program's name in
/// front or a line end.
class Failure : public std::runtime_error {
public:
    Failure(ExitStatus exit_status, const std::string& text) : std::runtime_error(text), status(exit_status) { }
    ExitStatus status;
};

/// The most frequent one.
class WrongCommandLine : public Failure {
public:
    explicit WrongCommandLine(const std::string& text) : Failure(ExitStatus::WrongCommandLine, text) { }
};

} // namespace multirename
