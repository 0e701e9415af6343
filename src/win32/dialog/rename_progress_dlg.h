#pragma once

#include "rename/rename_all.h"

namespace multirename {

/// Has the shell move all entries in one operation, which the user can undo. The shell shows its own progress and
/// reports its own errors; what came of it is not told.
class RenameProgressDlg final : public RenameProgress {
public:
    void announce() override { }
    bool is_cancelled() override { return false; }
    void rename(OwnerWindow owner, std::span<const Filename* const> entries) override;
};

} // namespace multirename
