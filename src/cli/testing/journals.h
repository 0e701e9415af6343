#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/journal.h"

namespace multirename {

/// The moves of a batch in memory, for tests.
class ListedMoves final : public MoveList {
public:
    explicit ListedMoves(std::vector<JournalEntry> moves) : moves_(std::move(moves)) { }
    [[nodiscard]] std::size_t size() const noexcept override { return moves_.size(); }
    void get(std::size_t index, JournalEntry& move) const override { move = moves_[index]; }

private:
    std::vector<JournalEntry> moves_;
};

/// The bytes of the moves' journal as `write_journal` writes it.
[[nodiscard]] inline std::string journal_bytes(const MoveList& moves, std::int64_t created)
{
    std::string bytes;
    const std::error_code never = write_journal(moves, created, [&bytes](std::string_view piece) {
        bytes += piece;
        return std::error_code();
    });
    static_cast<void>(never); // nothing fails in memory
    return bytes;
}

} // namespace multirename
