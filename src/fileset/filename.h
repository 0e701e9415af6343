#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_time.h"
#include "platform/name_key.h"

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

/// One entry of a folder, a file or a sub-folder. The texts lie elsewhere: those of names with the entry's folder,
/// those of new names with whoever makes them.
struct Filename {
    std::u16string_view name; ///< as on disk, without the folder
    std::u16string_view new_name;
    FileTime other_time = 0; ///< last write
    FileTime created = 0;
    std::uint64_t size = 0; ///< bytes
    RenameFolder* folder = nullptr; ///< the folder that holds this record; it outlives the record's use
    Status status = Status::Pending;
    std::uint32_t sequence = 0; ///< position in the names list, from 0
    std::uint32_t folder_sequence = 0; ///< position among its folder's entries in the names list, from 0
    bool is_folder = false;
    bool in_scope = false; ///< takes part in the rename: listed, and covered by the pattern
    bool not_listed = true; ///< cleared when the host's paths name this entry
    bool manual_name = false; ///< `new_name` was pasted; the pattern leaves it alone
    bool is_hidden = false; ///< listings of its folder leave it out unless asked for it
    /// Whether the times, the size and `read_only` are known; see `RenameFolder::read_details`.
    bool has_details = false;
    bool read_only = false;

    /// `name` in upper case; every comparison and look-up of names goes by it.
    [[nodiscard]] std::u16string key() const { return name_key(name); }
};

/// Orders entries by their keys, code unit by code unit: no natural order of digit runs, no locale.
struct FilenameSorter {
    bool operator()(const Filename& a, const Filename& b) const noexcept { return compare_keys(a.name, b.name) < 0; }
};

/// The part of a name before its last ".", or the whole name when it has none.
[[nodiscard]] std::u16string_view base_name(std::u16string_view name) noexcept;

/// The part of a name from its last "." on, or nothing when it has none.
[[nodiscard]] std::u16string_view extension_of(std::u16string_view name) noexcept;

} // namespace multirename
