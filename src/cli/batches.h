#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "cli/journal.h"
#include "platform/durable_file.h"

namespace multirename {

using Moment = std::chrono::sys_seconds;

/// One batch of renames and its journal on disk, open for this process alone.
class Batch {
public:
    /// No batch yet: for `Batches` to fill in.
    Batch() = default;

    [[nodiscard]] const std::string& id() const noexcept { return id_; }
    /// The renames that can be read; none of a batch that has just begun.
    [[nodiscard]] const MoveList& moves() const noexcept { return journal_; }
    [[nodiscard]] EntryState state(std::size_t entry) const { return journal_.states[entry]; }
    /// How many entries at the end of the journal cannot be read.
    [[nodiscard]] std::size_t unknown() const noexcept { return journal_.planned - journal_.states.size(); }

    /// Writes down what became of an entry.
    void mark(std::size_t entry, EntryState state);

    /// Closes the journal. It is kept as long as it holds something to take back; one that is damaged is then set aside
    /// under another name, for its rest can be read by nobody but a person.
    void close();

private:
    friend class Batches;
    Batch(std::string id, std::filesystem::path path, Journal journal, DurableFile file);

    std::string id_;
    std::filesystem::path path_;
    Journal journal_;
    DurableFile file_;
};

/// What there is to know of a batch that can be taken back.
struct BatchSummary {
    std::string id;
    Moment created;
    std::size_t names = 0; ///< how many can be taken back at most
    std::string folder; ///< of the first, in the system's own bytes
};

/// The journals of this user.
class Batches {
public:
    explicit Batches(std::filesystem::path folder) : folder_(std::move(folder)) { }

    /// Writes the journal of a new batch; when it returns without an error the journal is on the disk. Batches of more
    /// than 90 days before `now` are forgotten.
    [[nodiscard]] std::error_code begin(const MoveList& moves, Moment now, Batch& batch);

    /// The ids of all batches, the last one first.
    [[nodiscard]] std::vector<std::string> ids() const;

    /// Opens a batch to take it back. The error equals errc::no_such_file_or_directory when there is none of that id,
    /// device_or_resource_busy while another process works on it, and bad_message when its file is no journal; such a
    /// file is set aside under another name.
    [[nodiscard]] std::error_code open(const std::string& id, Batch& batch) const;

    /// All batches that hold something to take back, the last one first.
    [[nodiscard]] std::vector<BatchSummary> summaries() const;

    [[nodiscard]] const std::filesystem::path& folder() const noexcept { return folder_; }

private:
    [[nodiscard]] std::vector<std::string> file_names() const;
    [[nodiscard]] std::filesystem::path journal_path(const std::string& id) const;
    void forget_before(Moment moment) const;

    std::filesystem::path folder_;
};

/// Whether the word has the form of a batch's id; only then may it become part of a path.
[[nodiscard]] bool is_batch_id(std::string_view word) noexcept;

/// 2024-03-05T14:07:09Z
[[nodiscard]] std::string utc_text(Moment moment);
/// The same moment as the clock on the wall shows it: 2024-03-05 14:07
[[nodiscard]] std::string local_text(Moment moment);

} // namespace multirename
