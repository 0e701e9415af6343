#include "fileset/rename_folder.h"

#include "platform/name_key.h"

namespace multirename {

RenameFolder::RenameFolder(std::u16string_view folder_path) : key(name_key(folder_path)), path(folder_path) { }

void RenameFolder::load(Disk& disk)
{
    FolderListing listing = disk.list_folder(path);
    tells_case_apart = listing.tells_case_apart;
    listing_error = listing.error;
    std::vector<std::shared_ptr<Filename>> records;
    records.reserve(listing.entries.size());
    for (DirectoryEntry& entry : listing.entries) {
        auto record = std::make_shared<Filename>();
        record->is_folder = entry.is_folder;
        record->key = name_key(entry.name);
        record->name = std::move(entry.name);
        record->other_time = entry.last_write;
        record->created = entry.created;
        record->size = entry.size;
        record->read_only = entry.read_only;
        record->is_hidden = entry.is_hidden;
        record->folder = this;
        records.push_back(std::move(record));
    }
    auto loaded = std::make_shared<FilenameSet>(std::move(records), tells_case_apart);
    if (entries != nullptr) {
        for (const auto& old : *entries) {
            const auto same = old->not_listed ? nullptr : loaded->find(old->key, old->name);
            if (same != nullptr)
                same->not_listed = false;
        }
    }
    entries = std::move(loaded);
}

std::shared_ptr<Filename> RenameFolder::find(std::u16string_view name) const
{
    return entries == nullptr ? nullptr : entries->find(name_key(name), name);
}

std::u16string RenameFolder::identity(std::u16string_view name) const
{
    return tells_case_apart ? std::u16string(name) : name_key(name);
}

} // namespace multirename
