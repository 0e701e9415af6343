#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_time.h"

namespace multirename {

/// What a folder's listing tells of one entry.
struct DirectoryEntry {
    std::u16string name;
    bool is_folder = false;
    bool read_only = false;
    bool is_hidden = false; ///< by a period in front of its name, or by the attribute that Windows has for it
    std::uint64_t size = 0; // bytes
    FileTime created = 0;
    FileTime last_write = 0;
};

/// What is known of a folder once it has been read.
struct FolderListing {
    /// In no particular order, without the folder itself and its parent.
    std::vector<DirectoryEntry> entries;
    /// Names of this folder that differ only in case belong to different entries.
    bool tells_case_apart = false;
    /// Set when the folder could not be read; it has no entries then.
    std::error_code error;
};

/// The names on disk, as far as they can be read. Paths have "\" between their parts on every system.
class Disk {
public:
    virtual ~Disk() = default;
    Disk() = default;
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    /// Reads the folder whose path, ending in "\", is given.
    [[nodiscard]] virtual FolderListing list_folder(std::u16string_view folder_path) = 0;

    /// Paths of folders that differ only in case may name different folders.
    [[nodiscard]] virtual bool tells_folders_apart_by_case() = 0;

    /// The working directory, or nothing when it cannot be told or has 260 characters or more.
    [[nodiscard]] virtual std::optional<std::u16string> working_directory() = 0;
};

/// The disk of this machine.
[[nodiscard]] Disk& system_disk();

} // namespace multirename
