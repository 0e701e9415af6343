#pragma once

#include <string_view>
#include <vector>

#include "platform/disk.h"

namespace multirename {

/// A folder's listing with the entries that the disk told of.
struct ListedFolder : FolderListing {
    std::vector<DirectoryEntry> entries;
};

inline ListedFolder listed_folder(Disk& disk, std::u16string_view folder_path)
{
    ListedFolder listed;
    const FolderListing listing =
        disk.list_folder(folder_path, [&listed](const DirectoryEntry& entry) { listed.entries.push_back(entry); });
    listed.tells_case_apart = listing.tells_case_apart;
    listed.error = listing.error;
    return listed;
}

/// The same of the disk of this machine, each entry with its details.
inline ListedFolder listed_with_details(std::u16string_view folder_path)
{
    ListedFolder listed = listed_folder(system_disk(), folder_path);
    for (DirectoryEntry& entry : listed.entries) {
        if (!entry.has_details)
            system_disk().read_details(folder_path, entry);
    }
    return listed;
}

} // namespace multirename
