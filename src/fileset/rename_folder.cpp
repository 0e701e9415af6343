#include "fileset/rename_folder.h"

#include "platform/name_key.h"

namespace multirename {

RenameFolder::RenameFolder(std::u16string_view folder_path) : key(name_key(folder_path)), path(folder_path) { }

void RenameFolder::load(Disk& disk)
{
    std::vector<DirectoryEntry> found = disk.list_folder(path);
    std::vector<std::shared_ptr<Filename>> records;
    records.reserve(found.size());
    for (DirectoryEntry& entry : found) {
        auto record = std::make_shared<Filename>();
        record->is_folder = entry.is_folder;
        record->key = name_key(entry.name);
        record->name = std::move(entry.name);
        record->other_time = entry.last_write;
        record->created = entry.created;
        record->size = entry.size;
        record->read_only = entry.read_only;
        record->folder = this;
        records.push_back(std::move(record));
    }
    auto loaded = std::make_shared<FilenameSet>(std::move(records));
    if (entries != nullptr) {
        for (const auto& old : *entries) {
            const auto same = old->not_listed ? nullptr : loaded->find(old->key);
            if (same != nullptr)
                same->not_listed = false;
        }
    }
    entries = std::move(loaded);
}

std::shared_ptr<Filename> RenameFolder::find(std::u16string_view name) const
{
    return entries == nullptr ? nullptr : entries->find(name_key(name));
}

} // namespace multirename
