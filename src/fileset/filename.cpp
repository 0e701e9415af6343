#include "fileset/filename.h"

#include <algorithm>

namespace multirename {

FilenameSet::FilenameSet(std::vector<std::shared_ptr<Filename>> entries, bool tells_case_apart) :
    entries_(std::move(entries)), tells_case_apart_(tells_case_apart)
{
    const auto sorts_before = [tells_case_apart](const auto& a, const auto& b) {
        const int order = a->key.compare(b->key);
        return order < 0 || (order == 0 && tells_case_apart && a->name < b->name);
    };
    std::stable_sort(entries_.begin(), entries_.end(), sorts_before);
    const auto is_same = [tells_case_apart](const auto& a, const auto& b) {
        return a->key == b->key && (!tells_case_apart || a->name == b->name);
    };
    entries_.erase(std::unique(entries_.begin(), entries_.end(), is_same), entries_.end());
}

std::shared_ptr<Filename> FilenameSet::find(std::u16string_view key, std::u16string_view name) const noexcept
{
    const auto sorts_before = [&](const auto& entry, std::u16string_view wanted) {
        const int order = entry->key.compare(wanted);
        return order < 0 || (order == 0 && tells_case_apart_ && entry->name < name);
    };
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), key, sorts_before);
    const bool is_found =
        found != entries_.end() && (*found)->key == key && (!tells_case_apart_ || (*found)->name == name);
    return is_found ? *found : nullptr;
}

std::u16string_view base_name(std::u16string_view name) noexcept { return name.substr(0, name.rfind(u'.')); }

std::u16string_view extension_of(std::u16string_view name) noexcept { return name.substr(base_name(name).size()); }

} // namespace multirename
