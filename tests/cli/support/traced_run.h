#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "support/run_program.h"

namespace multirename {

/// A system call that gives a file a name: rename, renameat, renameat2, link or linkat.
struct MoveCall {
    std::size_t number = 0; ///< from 1; the same before and after the call
    bool is_done = false; ///< false: about to happen; true: has returned
    long result = 0; ///< when done: 0 or -errno
    std::string from = {}; ///< as the program wrote it; empty where there is nothing to be read
    std::string to = {};
};

enum class Action {
    Continue,
    Kill, ///< at once: a call that was about to happen never does, and after one that has returned nothing does
    /// SIGINT to the process, which goes on: a call that was about to happen does, and the signal comes when it
    /// returns.
    Interrupt
};

/// Called twice for each move, with the program stopped, so it may change files itself. What it throws ends the
/// program, and comes out of `run_traced`.
using Observer = std::function<Action(const MoveCall&)>;

/// Runs a program to its end as `run_program` does, stopping at each of its moves. Only its first thread is looked at:
/// other threads and programs that it starts go on unobserved. It runs without a search for leaked memory, which cannot
/// work in a traced program; ASAN_OPTIONS says so, behind what it says already. Stop signals do not stop it.
/// Throws std::system_error when the program cannot be started or traced, and what the observer throws.
[[nodiscard]] ProgramResult run_traced(const ProgramRun& run, const Observer& observer);

struct KilledRun {
    bool has_ended_before = false; ///< the program ended by itself and never came so far; the result is its own
    ProgramResult result = {};
};

/// Runs a program as `run_traced` does, and kills it before the n-th system call, from 1, of its first thread, so that
/// this call never happens. Which call is the n-th may differ from run to run, where a program looks at the time or at
/// addresses. Throws std::system_error.
[[nodiscard]] KilledRun run_killed_at_syscall(const ProgramRun& run, std::size_t n);

} // namespace multirename
