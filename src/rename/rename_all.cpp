#include "rename/rename_all.h"

#include <algorithm>

namespace multirename {

namespace {

std::vector<const Filename*> collect(const FileSet& files, RenameProgress& progress)
{
    std::vector<const Filename*> collected;
    if (progress.is_cancelled())
        return collected;
    const std::vector<std::shared_ptr<RenameFolder>> order = folder_order(files);
    std::size_t planned = 0;
    for (const auto& folder : order)
        planned += folder->rename_order.size();
    collected.reserve(planned);
    for (const auto& folder : order) {
        for (const Filename* entry : folder->rename_order) {
            if (entry->name != entry->new_name)
                collected.push_back(entry);
            if (progress.is_cancelled())
                return collected;
        }
        if (progress.is_cancelled())
            return collected;
    }
    return collected;
}

} // namespace

std::vector<std::shared_ptr<RenameFolder>> folder_order(const FileSet& files)
{
    std::vector<std::shared_ptr<RenameFolder>> order;
    for (const auto& folder : files.folders) {
        const auto contains_folder = [&folder](const auto& other) {
            return other->key.size() < folder->key.size() && folder->key.starts_with(other->key);
        };
        order.insert(std::find_if(order.begin(), order.end(), contains_folder), folder);
    }
    return order;
}

void rename_all(OwnerWindow owner, const FileSet& files, RenameProgress& progress)
{
    progress.rename(owner, collect(files, progress));
}

MoveLists move_lists(std::span<const Filename* const> entries)
{
    MoveLists lists;
    for (const Filename* entry : entries) {
        lists.sources.append(entry->folder->path).append(entry->name).push_back(u'\0');
        lists.targets.append(entry->folder->path).append(entry->new_name).push_back(u'\0');
    }
    if (!entries.empty()) {
        lists.sources.push_back(u'\0');
        lists.targets.push_back(u'\0');
    }
    return lists;
}

} // namespace multirename
