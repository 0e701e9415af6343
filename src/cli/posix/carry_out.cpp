#include "cli/carry_out.h"

#include "platform/move_entry.h"

namespace multirename {

void carry_out(const MoveList& moves, MoveObserver& observer)
{
    EntryMover mover;
    JournalEntry move;
    bool was_told = false;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        if (observer.should_stop())
            return;
        moves.get(i, move);
        const std::error_code error = mover.move(move.folder, move.old_name, move.new_name);
        observer.moved(i, error);
        if (mover.did_without_exclusive_rename() && !was_told) {
            observer.does_without_exclusive_rename();
            was_told = true;
        }
    }
}

} // namespace multirename
