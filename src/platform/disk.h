#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_time.h"

namespace multirename {

/// What is known of one entry of a folder.
struct DirectoryEntry {
    std::u16string name;
    bool is_folder = false;
    bool is_hidden = false; ///< by a period in front of its name, or by the attribute that Windows has for it
    /// Whether the four below are known; otherwise they have to be asked for, and are zero.
    bool has_details = false;
    bool read_only = false;
    std::uint64_t size = 0; // bytes
    FileTime created = 0;
    FileTime last_write = 0;
};

/// What is known of a folder once it has been read.
struct FolderListing {
    /// Names of this folder that differ only in case belong to different entries.
    bool tells_case_apart = false;
    /// Set when the folder could not be read; the entries that were told of count for nothing then.
    std::error_code error;
};

/// The names on disk, as far as they can be read. Paths have "\" between their parts on every system.
class Disk {
public:
    /// Is told of one entry, which lasts only for the call.
    using EntryVisitor = std::function<void(const DirectoryEntry& entry)>;

    virtual ~Disk() = default;
    Disk() = default;
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    /// Reads the folder whose path, ending in "\", is given, and tells of its entries one by one: in no particular
    /// order, without the folder itself and its parent, with their details only where these come at no cost.
    [[nodiscard]] virtual FolderListing list_folder(std::u16string_view folder_path, const EntryVisitor& visit) = 0;

    /// Reads the details of the entry, whose name is set, in that folder. When it is not there any more they are zero.
    virtual void read_details(std::u16string_view folder_path, DirectoryEntry& entry) = 0;

    /// Paths of folders that differ only in case may name different folders.
    [[nodiscard]] virtual bool tells_folders_apart_by_case() = 0;

    /// The working directory, or nothing when it cannot be told or has 260 characters or more.
    [[nodiscard]] virtual std::optional<std::u16string> working_directory() = 0;
};

/// The disk of this machine.
[[nodiscard]] Disk& system_disk();

} // namespace multirename
