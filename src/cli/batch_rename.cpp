#include "cli/batch_rename.h"

#include <chrono>
#include <utility>

#include "cli/failure.h"
#include "cli/move_reason.h"
#include "cli/progress_bar.h"
#include "platform/error_text.h"
#include "platform/native_text.h"
#include "platform/user_folders.h"

namespace multirename {

namespace {

// The moves as the journal and the system want them, made from the records each time: there may be very many.
class MovesOfRun final : public MoveList {
public:
    explicit MovesOfRun(std::span<const Filename* const> entries) : entries_(entries) { }

    [[nodiscard]] std::size_t size() const noexcept override { return entries_.size(); }

    void get(std::size_t index, JournalEntry& move) const override
    {
        const Filename& entry = *entries_[index];
        if (std::exchange(folder_, entry.folder) != entry.folder)
            path_ = native_from_path(entry.folder->path);
        move.folder = path_;
        native_from_name(entry.name, move.old_name);
        native_from_name(entry.new_name, move.new_name);
    }

private:
    std::span<const Filename* const> entries_;
    mutable const RenameFolder* folder_ = nullptr; // the one whose path these bytes are
    mutable std::string path_;
};

} // namespace

BatchRename::BatchRename(Batches& batches, Console& console) : batches_(batches), console_(console) { }
BatchRename::~BatchRename() = default;

void BatchRename::rename(OwnerWindow, std::span<const Filename* const> entries)
{
    const MovesOfRun moves(entries);
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    if (const std::error_code error = batches_.begin(moves, now, batch_))
        throw Failure(ExitStatus::PartlyDone,
                      "The journal, from which undo takes names back, cannot be written to \"" +
                          native_bytes(batches_.folder()) + "\": " + error_text(error) +
                          ". Nothing was renamed. XDG_STATE_HOME can name another folder for it.");
    entries_ = entries;
    progress_ = std::make_unique<ProgressBar>(console_, "Renaming", entries.size());
    interruption_ = std::make_unique<Interruption>();
    carry_out(moves, *this);
    interruption_.reset();
    progress_.reset();
    for (std::size_t i = 0; i < moves.size(); ++i) {
        if (batch_.state(i) != EntryState::Planned)
            continue;
        batch_.mark(i, EntryState::Failed);
        reasons_.emplace(entries[i], "the batch was stopped before its turn");
    }
    batch_.close();
}

bool BatchRename::should_stop()
{
    was_stopped_ = interruption_->is_wanted();
    return was_stopped_;
}

void BatchRename::moved(std::size_t index, const std::error_code& error)
{
    batch_.mark(index, error ? EntryState::Failed : EntryState::Renamed);
    if (error)
        reasons_.emplace(entries_[index], move_reason(error));
    else
        ++renamed_;
    progress_->advance();
}

void BatchRename::does_without_exclusive_rename()
{
    console_.write_error(
        "multirename: note: this file system has no rename that refuses to overwrite; files are renamed "
        "through a second link, and folders after a look at the new name.\n");
}

} // namespace multirename
