#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "fileset/block_list.h"
#include "fileset/filename.h"
#include "fileset/name_index.h"
#include "fileset/text_store.h"
#include "platform/disk.h"
#include "platform/large_memory.h"

namespace multirename {

/// The entries of one folder as they are read, one by one, to be made into a `FilenameSet`.
class FolderEntries {
public:
    void add(const DirectoryEntry& entry);

private:
    friend class FilenameSet;

    struct Row {
        std::u16string_view name;
        std::uint32_t details = 0; // their place from 1, or 0 where there are none
        bool is_folder = false;
        bool is_hidden = false;
    };
    struct Details {
        FileTime created = 0;
        FileTime last_write = 0;
        std::uint64_t size = 0;
        bool read_only = false;
    };

    void fill(Filename& entry, const Row& row) const;

    TextStore names_;
    BlockList<Row> rows_;
    BlockList<Details> details_;
};

/// The entries of a folder, sorted by their keys code unit by code unit: no natural order of digit runs, no locale. No
/// two have one key; or, where names that differ only in case are told apart, no two have one name, and those with one
/// key are sorted by their names.
/// The records lie side by side in their order, and so do their names. They stay where they are as long as the set.
class FilenameSet {
public:
    FilenameSet() = default;

    /// Of entries with one key, or one name where case is told apart, the first that was added stays.
    /// O(n) for names that come sorted, O(n log n) at worst.
    explicit FilenameSet(FolderEntries entries, bool tells_case_apart = false);

    FilenameSet(const FilenameSet&) = delete;
    FilenameSet& operator=(const FilenameSet&) = delete;

    /// The entry that has this name, compared without regard to case unless case is told apart; or null. O(1).
    [[nodiscard]] Filename* find(std::u16string_view name) const;

    /// The same for many names, one `found` for each, and much quicker for each of them: most of all when the entries
    /// follow each other, the first of them behind `previous` (or the very first, when that is null).
    void find_each(const Filename* previous, std::span<const std::u16string_view> names,
                   std::span<Filename*> found) const;

    /// How two names compare in the order of this set: below 0, 0 when this folder takes them for one, or above 0.
    [[nodiscard]] int compare(std::u16string_view a, std::u16string_view b) const noexcept;

    /// What `find` looks for: the same for names that this folder takes for one.
    [[nodiscard]] std::uint64_t identity_hash(std::u16string_view name) const noexcept;

    /// Whether this folder takes two names for one.
    [[nodiscard]] bool are_one_name(std::u16string_view a, std::u16string_view b) const noexcept;

    /// The places of the entries by the `identity_hash` of their names; made when it is first needed. O(n) then.
    [[nodiscard]] const NameIndex& index() const;

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] bool empty() const noexcept { return entries_.empty(); }
    [[nodiscard]] Filename* begin() const noexcept { return entries_.data(); }
    [[nodiscard]] Filename* end() const noexcept { return entries_.data() + entries_.size(); }
    [[nodiscard]] Filename& operator[](std::size_t place) const noexcept { return entries_[place]; }

private:
    // At most as many names as are looked up at once.
    void find_by_hash(std::span<const std::u16string_view> names, std::span<Filename*> found) const;
    void add(const FolderEntries& entries, const FolderEntries::Row& row, std::u16string_view name);

    TextStore names_;
    // Who has the set may change the records, not which there are.
    mutable LargeVector<Filename> entries_;
    mutable std::optional<NameIndex> index_;
    bool tells_case_apart_ = false;
};

} // namespace multirename
