#pragma once

#include <cstddef>
#include <system_error>

#include "cli/journal.h"

namespace multirename {

/// Follows a batch while it is carried out.
class MoveObserver {
public:
    virtual ~MoveObserver() = default;
    MoveObserver() = default;
    MoveObserver(const MoveObserver&) = delete;
    MoveObserver& operator=(const MoveObserver&) = delete;

    /// Asked before each move; true ends the batch there.
    [[nodiscard]] virtual bool should_stop() = 0;
    /// What became of a move.
    virtual void moved(std::size_t index, const std::error_code& error) = 0;
    /// A file system has no rename of its own that refuses to replace; told once, whatever is used in its place.
    virtual void does_without_exclusive_rename() = 0;
};

/// Carries out the moves in their order; one that fails does not keep the others from being tried. On Windows the
/// system's shell does them all in one operation, which its own undo can take back, and asks nobody anything; what it
/// did is told afterwards, and cannot be stopped.
void carry_out(const MoveList& moves, MoveObserver& observer);

} // namespace multirename
