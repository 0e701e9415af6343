#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_time.h"

namespace multirename {

/// What a folder's listing tells of one entry.
struct DirectoryEntry {
    std::u16string name;
    bool is_folder = false;
    bool read_only = false;
    std::uint64_t size = 0; // bytes
    FileTime created = 0;
    FileTime last_write = 0;
};

/// The names on disk, as far as they can be read. Paths have "\" between their parts on every system.
class Disk {
public:
    virtual ~Disk() = default;
    Disk() = default;
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    /// Every entry of the folder whose path, ending in "\", is given, in no particular order and without the folder
    /// itself and its parent. A folder that cannot be read has no entries.
    [[nodiscard]] virtual std::vector<DirectoryEntry> list_folder(std::u16string_view folder_path) = 0;

    /// The working directory, or nothing when it cannot be told or has 260 characters or more.
    [[nodiscard]] virtual std::optional<std::u16string> working_directory() = 0;
};

/// The disk of this machine.
[[nodiscard]] Disk& system_disk();

} // namespace multirename
