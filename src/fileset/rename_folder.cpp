#include "fileset/rename_folder.h"

#include "platform/name_key.h"

namespace multirename {

RenameFolder::RenameFolder(std::u16string_view folder_path) : key(name_key(folder_path)), path(folder_path) { }

void RenameFolder::load(Disk& disk)
{
    disk_ = &disk;
    FolderEntries found;
    const FolderListing listing = disk.list_folder(path, [&found](const DirectoryEntry& entry) { found.add(entry); });
    tells_case_apart = listing.tells_case_apart;
    listing_error = listing.error;
    if (listing_error)
        found = {};
    auto loaded = std::make_shared<FilenameSet>(std::move(found), tells_case_apart);
    for (Filename& entry : *loaded)
        entry.folder = this;
    if (entries != nullptr) {
        for (const Filename& old : *entries) {
            Filename* const same = old.not_listed ? nullptr : loaded->find(old.name);
            if (same != nullptr)
                same->not_listed = false;
        }
        former_entries_.push_back(std::move(entries));
    }
    entries = std::move(loaded);
}

Filename* RenameFolder::find(std::u16string_view name) const
{
    return entries == nullptr ? nullptr : entries->find(name);
}

FilenameSet RenameFolder::entries_that_appeared() const
{
    FolderEntries appeared;
    if (disk_ != nullptr) {
        const FolderListing listing = disk_->list_folder(path, [&](const DirectoryEntry& entry) {
            if (find(entry.name) == nullptr)
                appeared.add(entry);
        });
        if (listing.error)
            appeared = {};
    }
    return FilenameSet(std::move(appeared), tells_case_apart);
}

void RenameFolder::read_details(Filename& entry) const
{
    if (entry.has_details || disk_ == nullptr)
        return;
    DirectoryEntry read;
    read.name = entry.name;
    disk_->read_details(path, read);
    entry.other_time = read.last_write;
    entry.created = read.created;
    entry.size = read.size;
    entry.read_only = read.read_only;
    entry.has_details = true;
}

} // namespace multirename
