#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
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

/// The renames of a batch in their order. There may be very many, so they are told one by one.
class MoveList {
public:
    virtual ~MoveList() = default;
    MoveList() = default;
    MoveList(const MoveList&) = default;
    MoveList(MoveList&&) = default;
    MoveList& operator=(const MoveList&) = default;
    MoveList& operator=(MoveList&&) = default;

    [[nodiscard]] virtual std::size_t size() const noexcept = 0;
    /// Puts one of them into `move`, the memory of which is used again.
    virtual void get(std::size_t index, JournalEntry& move) const = 0;
};

/// What became of an entry. One that was renamed a moment before the process ended may still be Planned.
enum class EntryState : char { Planned = 'p', Renamed = 'n', Failed = 'f', Restored = 'r' };

/// A journal that was read, or what is known of one that is being written.
class Journal final : public MoveList {
public:
    std::int64_t created = 0; ///< seconds since 1970-01-01 UTC
    std::size_t planned = 0; ///< how many entries were written at first
    std::vector<EntryState> states; ///< of the entries that can be read: all, or the first ones

    /// A new one, every entry Planned, which does not know its moves.
    [[nodiscard]] static Journal begun(std::size_t entries, std::int64_t created);

    /// Reads a journal as far as it is what was written: each entry carries a sum over all before it, so that nothing
    /// behind the first damage counts, nor behind a name that is none (see `is_native_name`). Nothing when not even its
    /// head can be read.
    [[nodiscard]] static std::optional<Journal> read(std::string bytes);

    [[nodiscard]] std::size_t size() const noexcept override { return places_.size(); }
    void get(std::size_t index, JournalEntry& move) const override;

    [[nodiscard]] bool is_whole() const noexcept { return states.size() == planned; }
    /// Where the entry's state is, from the start of the file.
    [[nodiscard]] std::size_t state_offset(std::size_t entry) const;
    /// Behind the last state of those that can be read.
    [[nodiscard]] std::size_t end_of_states() const { return states.empty() ? 0 : state_offset(states.size() - 1) + 1; }

private:
    friend class JournalReader;
    struct Place {
        std::size_t fields; ///< of the entry, in the text
        std::size_t folder; ///< its own or that of an entry before
    };

    std::string text_;
    std::vector<Place> places_;
    std::optional<std::size_t> first_state_; ///< nothing where the states stand among the entries
};

/// Takes a text piece by piece.
using JournalSink = std::function<std::error_code(std::string_view)>;

/// Writes what `Journal::begun` stands for, with its moves. Gives the first error of the sink, and then nothing more.
[[nodiscard]] std::error_code write_journal(const MoveList& moves, std::int64_t created, const JournalSink& sink);

} // namespace multirename
