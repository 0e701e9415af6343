#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

// The record of a batch of renames, in one file: what is to be renamed, in order, written before the first rename; and
// one byte an entry for what became of it, overwritten in place.

/// One rename, in the system's own bytes; the folder with the separator at its end.
struct JournalEntry {
    std::string folder;
    std::string old_name;
    std::string new_name;
    bool operator==(const JournalEntry&) const = default;
};

/// What became of an entry. One that was renamed a moment before the process ended may still be Planned.
enum class EntryState : char { Planned = 'p', Renamed = 'n', Failed = 'f', Restored = 'r' };

struct JournalText {
    std::string bytes;
    std::vector<std::size_t> state_offsets; ///< where each entry's state is, from the start of the file
};

/// The text of a new journal, every entry Planned. `created` is in seconds since 1970-01-01 UTC.
[[nodiscard]] JournalText journal_text(std::span<const JournalEntry> entries, std::int64_t created);

struct Journal {
    std::int64_t created = 0;
    std::size_t planned = 0; ///< how many entries were written at first
    std::vector<JournalEntry> entries; ///< those that can be read: all, or the first ones
    std::vector<EntryState> states;
    std::vector<std::size_t> state_offsets;
    [[nodiscard]] bool is_whole() const noexcept { return entries.size() == planned; }
};

/// Reads a journal as far as it is what was written: each entry carries a sum over all before it, so that nothing
/// behind the first damage counts. Nothing when not even its head can be read.
[[nodiscard]] std::optional<Journal> read_journal(std::string_view bytes);

} // namespace multirename
