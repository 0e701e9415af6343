#pragma once

#include <memory>
#include <span>
#include <string>
#include <system_error>

#include "cli/batches.h"
#include "cli/carry_out.h"
#include "cli/report.h"
#include "platform/console.h"
#include "platform/interruption.h"
#include "rename/rename_all.h"

namespace multirename {

class ProgressBar;

/// Carries out a run's rename as one batch that undo can take back: the journal is on the disk before the first name
/// changes. The user can stop it between two renames.
class BatchRename final : public RenameProgress, private MoveObserver {
public:
    BatchRename(Batches& batches, Console& console);
    ~BatchRename() override;

    void announce() override { }
    [[nodiscard]] bool is_cancelled() override { return false; }
    /// Throws Failure when the journal cannot be written; nothing was renamed then.
    void rename(OwnerWindow owner, std::span<const Filename* const> entries) override;

    [[nodiscard]] std::size_t renamed() const noexcept { return renamed_; }
    /// Those that were not renamed, and why.
    [[nodiscard]] const Reasons& reasons() const noexcept { return reasons_; }
    [[nodiscard]] bool was_stopped() const noexcept { return was_stopped_; }
    /// The id of the batch; empty when there is nothing that could be taken back.
    [[nodiscard]] std::string batch() const { return renamed_ > 0 ? batch_.id() : std::string(); }

private:
    bool should_stop() override;
    void moved(std::size_t index, const std::error_code& error) override;
    void does_without_exclusive_rename() override;

    Batches& batches_;
    Console& console_;
    Batch batch_;
    std::span<const Filename* const> entries_;
    std::unique_ptr<ProgressBar> progress_;
    std::unique_ptr<Interruption> interruption_;
    std::size_t renamed_ = 0;
    Reasons reasons_;
    bool was_stopped_ = false;
};

} // namespace multirename
