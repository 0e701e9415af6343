// An entry that is marked as renamed has its new name, unless somebody else has changed that since. One that is only
// planned may have been renamed just before the process ended, or before the machine lost what it had not yet written:
// it was renamed exactly when its old name is gone and its new one is there. Looked at from the last entry to the
// first, with each taken back before the one before it is looked at, the folder is then as it was right after that
// entry's turn, so the names of other entries cannot mislead.

#include "cli/undo.h"

#include "cli/move_reason.h"
#include "platform/interruption.h"
#include "platform/move_entry.h"
#include "platform/name_key.h"
#include "platform/native_text.h"

namespace multirename {

namespace {

struct Outcome {
    enum class Kind { Restored, NothingToDo, Left };
    Kind kind = Kind::NothingToDo;
    std::string reason;
};

// Where case is not looked at, both names of such an entry are there at any time.
bool differ_in_case_only(const JournalEntry& entry)
{
    return name_key(name_from_native(entry.old_name)) == name_key(name_from_native(entry.new_name));
}

Outcome left(std::string reason) { return {Outcome::Kind::Left, std::move(reason)}; }

Outcome look_and_take_back(const JournalEntry& entry, EntryState state, EntryMover& mover)
{
    std::error_code error;
    const bool has_new = mover.exists(entry.folder, entry.new_name, error);
    if (error)
        return left(move_reason(error));
    const bool has_old = mover.exists(entry.folder, entry.old_name, error);
    if (error)
        return left(move_reason(error));
    if (!has_new)
        return has_old ? Outcome() : left("there is no file of the new name any more");
    const bool may_be_untouched = has_old && state == EntryState::Planned;
    if (may_be_untouched && !differ_in_case_only(entry))
        return {};
    error = mover.move(entry.folder, entry.new_name, entry.old_name);
    if (error == std::errc::file_exists)
        return may_be_untouched ? Outcome() : left("the old name belongs to another file now");
    if (error)
        return left(move_reason(error));
    return {Outcome::Kind::Restored, {}};
}

// Of one that is marked as renamed nothing has to be looked at, unless it cannot be moved.
Outcome take_back(const JournalEntry& entry, EntryState state, EntryMover& mover)
{
    if (state == EntryState::Renamed && !mover.move(entry.folder, entry.new_name, entry.old_name))
        return {Outcome::Kind::Restored, {}};
    return look_and_take_back(entry, state, mover);
}

} // namespace

UndoReport take_back(Batch& batch, ProgressBar& progress)
{
    UndoReport report;
    report.id = batch.id();
    report.unknown = batch.unknown();
    const Interruption interruption;
    EntryMover mover;
    JournalEntry entry;
    for (std::size_t i = batch.moves().size(); i-- > 0;) {
        if (interruption.is_wanted()) {
            report.was_stopped = true;
            break;
        }
        progress.advance();
        const EntryState state = batch.state(i);
        if (state == EntryState::Failed || state == EntryState::Restored)
            continue;
        batch.moves().get(i, entry);
        Outcome outcome = take_back(entry, state, mover);
        if (outcome.kind == Outcome::Kind::Left) {
            report.left.push_back({entry, std::move(outcome.reason)});
            continue;
        }
        report.restored += outcome.kind == Outcome::Kind::Restored ? 1 : 0;
        batch.mark(i, EntryState::Restored);
    }
    batch.close();
    return report;
}

} // namespace multirename
