#include "fileset/filename.h"

#include <algorithm>

namespace multirename {

FilenameSet::FilenameSet(std::vector<std::shared_ptr<Filename>> entries) : entries_(std::move(entries))
{
    std::stable_sort(entries_.begin(), entries_.end(), FilenameSorter());
    const auto same_key = [](const auto& a, const auto& b) { return a->key == b->key; };
    entries_.erase(std::unique(entries_.begin(), entries_.end(), same_key), entries_.end());
}

std::shared_ptr<Filename> FilenameSet::find(std::u16string_view key) const noexcept
{
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), key, FilenameSorter());
    return found != entries_.end() && (*found)->key == key ? *found : nullptr;
}

std::u16string_view base_name(std::u16string_view name) noexcept { return name.substr(0, name.rfind(u'.')); }

std::u16string_view extension_of(std::u16string_view name) noexcept { return name.substr(base_name(name).size()); }

} // namespace multirename
