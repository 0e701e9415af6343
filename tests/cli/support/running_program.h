#pragma once

#include <sys/types.h>

#include "support/program_streams.h"
#include "support/run_program.h"

namespace multirename {

enum class Tracing { Off, On };

/// A child process; killed, if it has not ended by then, and taken leave of when this goes.
class ChildProcess {
public:
    explicit ChildProcess(pid_t id) noexcept : id_(id) { }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] pid_t id() const noexcept { return id_; }
    [[nodiscard]] bool has_ended() const noexcept { return has_ended_; }
    /// Sends a signal to the process, unless it has ended.
    void send(int signal) const noexcept;
    /// Waits until the process ends or, when it is traced, stops; gives what waitpid says. Not after its end.
    /// Throws std::system_error.
    int wait();
    /// Lets the process end, passing over stops, and gives its exit status as a shell says it. Throws
    /// std::system_error.
    int exit_status();

private:
    pid_t id_;
    bool has_ended_ = false;
    int status_ = 0;
};

/// A program that has been started and whose streams are served.
class RunningProgram {
public:
    /// Starts it; with tracing, by this thread, it stops with a SIGTRAP before its first instruction. Throws
    /// std::system_error.
    RunningProgram(const ProgramRun& run, Tracing tracing);

    [[nodiscard]] ChildProcess& process() noexcept { return process_; }
    /// Waits for the end of the process and of its streams. Throws std::system_error.
    [[nodiscard]] ProgramResult result();

private:
    // The process goes first, or the streams would wait for it.
    ProgramStreams streams_;
    ChildProcess process_;
};

} // namespace multirename
