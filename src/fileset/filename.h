#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_time.h"

namespace multirename {

struct RenameFolder;

/// What the checks say of an entry. The numbers are part of what scripts see.
enum class Status : std::uint32_t {
    Pending = 0, ///< to be renamed, waiting for its target name to become free
    NotMade = 1, ///< the new name has still to be made from the pattern
    Ready = 2, ///< will be renamed, or takes no part
    Unchanged = 3, ///< the new name is the old name, case included
    SameName = 4, ///< another entry gets the same new name
    ExistingName = 5, ///< the new name belongs to an entry that is not renamed away first
    Empty = 6, ///< the new name is empty
    SpaceOrPeriod = 7, ///< the new name starts with a space, or ends with a space or a period
    TooLong = 8, ///< the new name has 256 characters or more
    Forbidden = 9, ///< the pattern holds text that no name may hold
};

/// One entry of a folder, a file or a sub-folder.
struct Filename {
    bool is_folder = false;
    std::u16string key; ///< `name` in upper case; every comparison and look-up of names goes through it
    std::u16string name; ///< as on disk, without the folder
    FileTime other_time = 0; ///< last write
    FileTime created = 0;
    std::uint64_t size = 0; ///< bytes
    bool read_only = false;
    bool in_scope = false; ///< takes part in the rename: listed, and covered by the pattern
    bool not_listed = true; ///< cleared when the host's paths name this entry
    bool manual_name = false; ///< `new_name` was pasted; the pattern leaves it alone
    Status status = Status::Pending;
    std::uint32_t sequence = 0; ///< position in the names list, from 0
    std::uint32_t folder_sequence = 0; ///< position among its folder's entries in the names list, from 0
    std::u16string new_name;
    bool is_hidden = false; ///< listings of its folder leave it out unless asked for it
    RenameFolder* folder = nullptr; ///< the folder that holds this record; it outlives the record's use
};

/// Orders entries by their keys, code unit by code unit: no natural order of digit runs, no locale.
struct FilenameSorter {
    bool operator()(const std::shared_ptr<Filename>& a, const std::shared_ptr<Filename>& b) const noexcept
    {
        return a->key < b->key;
    }
};

/// The entries of a folder, sorted by `FilenameSorter`, no two with one key; or, where names that differ only in case
/// are told apart, no two with one name, and those with one key sorted by their names.
class FilenameSet {
public:
    FilenameSet() = default;

    /// Of entries with one key, or one name where case is told apart, the first stays. O(n log n).
    explicit FilenameSet(std::vector<std::shared_ptr<Filename>> entries, bool tells_case_apart = false);

    /// The entry with exactly this key, and this name where case is told apart, or null. O(log n).
    [[nodiscard]] std::shared_ptr<Filename> find(std::u16string_view key, std::u16string_view name) const noexcept;

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] bool empty() const noexcept { return entries_.empty(); }
    [[nodiscard]] auto begin() const noexcept { return entries_.begin(); }
    [[nodiscard]] auto end() const noexcept { return entries_.end(); }

private:
    std::vector<std::shared_ptr<Filename>> entries_;
    bool tells_case_apart_ = false;
};

/// The part of a name before its last ".", or the whole name when it has none.
[[nodiscard]] std::u16string_view base_name(std::u16string_view name) noexcept;

/// The part of a name from its last "." on, or nothing when it has none.
[[nodiscard]] std::u16string_view extension_of(std::u16string_view name) noexcept;

} // namespace multirename
