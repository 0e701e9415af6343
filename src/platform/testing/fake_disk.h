#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/disk.h"

namespace multirename {

/// A disk in memory, for tests: folders by their path as it is asked for. Remembers every listing that was asked for.
class FakeDisk final : public Disk {
public:
    std::map<std::u16string, std::vector<DirectoryEntry>> folders;
    std::optional<std::u16string> directory;
    std::vector<std::u16string> listings;
    std::vector<std::u16string> details_read; ///< the paths of entries that were asked for one by one
    bool gives_details = true; ///< with its listings
    bool tells_case_apart = false; ///< for names and for folders
    std::error_code error_behind_entries; ///< of every listing, once it has told of all

    /// Adds a folder of plain files.
    FakeDisk& with(const std::u16string& folder_path, const std::vector<std::u16string>& names)
    {
        for (const std::u16string& name : names)
            add(folder_path, name);
        folders.try_emplace(folder_path);
        return *this;
    }

    /// Adds one file, for its details to be set.
    DirectoryEntry& add(const std::u16string& folder_path, const std::u16string& name)
    {
        DirectoryEntry entry;
        entry.name = name;
        return folders[folder_path].emplace_back(std::move(entry));
    }

    FolderListing list_folder(std::u16string_view folder_path, const EntryVisitor& visit) override
    {
        const auto& asked = listings.emplace_back(folder_path);
        const auto found = folders.find(asked);
        if (found == folders.end())
            return {tells_case_apart, std::make_error_code(std::errc::no_such_file_or_directory)};
        for (const DirectoryEntry& entry : found->second) {
            DirectoryEntry told = entry;
            if (gives_details)
                told.has_details = true;
            else
                told = {entry.name, entry.is_folder, entry.is_hidden};
            visit(told);
        }
        return {tells_case_apart, error_behind_entries};
    }

    void read_details(std::u16string_view folder_path, DirectoryEntry& entry) override
    {
        details_read.push_back(std::u16string(folder_path) + entry.name);
        for (const DirectoryEntry& known : folders[std::u16string(folder_path)]) {
            if (known.name == entry.name)
                entry = known;
        }
        entry.has_details = true;
    }

    bool tells_folders_apart_by_case() override { return tells_case_apart; }

    std::optional<std::u16string> working_directory() override { return directory; }
};

} // namespace multirename
