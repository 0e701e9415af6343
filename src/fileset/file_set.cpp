#include "fileset/file_set.h"

#include <algorithm>

#include "platform/name_key.h"

namespace multirename {

namespace {

constexpr std::size_t first_too_long_path = 260;

// The status of one folder, and likewise of all folders together: what stays Ready when nothing was added, takes the
// first that is added, and falls to Pending when two differ.
void combine(Status& combined, Status added)
{
    if (combined == Status::Ready)
        combined = added;
    else if (added != Status::Ready && added != combined)
        combined = Status::Pending;
}

Status folder_status(const RenameFolder& folder)
{
    bool found = false;
    Status common = Status::Ready;
    for (const auto& entry : *folder.entries) {
        if (!entry->in_scope || entry->status == Status::Ready || entry->status == Status::Unchanged)
            continue;
        if (found && entry->status != common)
            return Status::Pending;
        common = entry->status;
        found = true;
    }
    return common;
}

} // namespace

bool FileSet::add_paths(std::span<const std::u16string> paths)
{
    std::shared_ptr<RenameFolder> current;
    for (const std::u16string& path : paths) {
        if (path.size() >= first_too_long_path)
            continue;
        const std::size_t backslash = path.rfind(u'\\');
        const bool is_bare_name = backslash == std::u16string::npos;
        const std::u16string_view name = std::u16string_view(path).substr(is_bare_name ? 0 : backslash + 1);
        if (!is_bare_name) {
            current = find_or_add_folder(std::u16string_view(path).substr(0, backslash + 1));
        } else if (current == nullptr) {
            std::optional<std::u16string> directory = disk_.working_directory();
            if (!directory)
                continue;
            if (!directory->empty() && !directory->ends_with(u'\\'))
                directory->push_back(u'\\');
            current = find_or_add_folder(*directory);
        }
        list_entry(*current, name);
    }
    return !listed.empty();
}

std::shared_ptr<Filename> FileSet::add_entry(std::u16string_view folder_path, std::u16string_view name)
{
    return list_entry(*find_or_add_folder(folder_path), name);
}

RenameFolder& FileSet::open_folder(std::u16string_view folder_path)
{
    RenameFolder& folder = *find_or_add_folder(folder_path);
    if (folder.entries == nullptr)
        folder.load(disk_);
    return folder;
}

std::shared_ptr<Filename> FileSet::list_entry(RenameFolder& folder, std::u16string_view name)
{
    if (folder.entries == nullptr)
        folder.load(disk_);
    auto entry = folder.find(name);
    if (entry == nullptr)
        return nullptr;
    entry->not_listed = false;
    listed.push_back(entry);
    if (!entry->is_folder)
        has_plain_file = true;
    return entry;
}

std::shared_ptr<RenameFolder> FileSet::find_or_add_folder(std::u16string_view folder_path)
{
    const std::u16string key = name_key(folder_path);
    const bool by_case = disk_.tells_folders_apart_by_case();
    const auto sorts_before = [&](const auto& folder, const std::u16string& wanted) {
        const int order = folder->key.compare(wanted);
        return order < 0 || (order == 0 && by_case && folder->path < folder_path);
    };
    const auto place = std::lower_bound(folders.begin(), folders.end(), key, sorts_before);
    if (place != folders.end() && (*place)->key == key && (!by_case || (*place)->path == folder_path))
        return *place;
    return *folders.insert(place, std::make_shared<RenameFolder>(folder_path));
}

bool FileSet::mark_scope(const ScopeFilter& filter)
{
    bool changed = false;
    for_each_entry([&](Filename& entry) {
        if (entry.not_listed)
            return;
        const std::u16string_view key = filter.includes_extension ? entry.key : base_name(entry.key);
        const bool in_scope = filter.text.empty() || matches_scope_pattern(filter.pattern, key);
        if (!in_scope)
            entry.new_name.clear();
        changed = changed || in_scope != entry.in_scope;
        entry.in_scope = in_scope;
    });
    return changed;
}

void FileSet::summarise()
{
    summary_status = Status::Ready;
    any_planned = false;
    any_change = false;
    any_read_only_change = false;
    for (const auto& folder : folders) {
        if (folder->entries == nullptr)
            continue;
        combine(summary_status, folder_status(*folder));
        any_planned = any_planned || !folder->rename_order.empty();
    }
    for_each_entry([this](const Filename& entry) {
        any_change = any_change || (entry.in_scope && entry.status != Status::Unchanged);
        any_read_only_change = any_read_only_change || (entry.in_scope && entry.read_only);
    });
}

ProblemCounts FileSet::count_problems() const
{
    ProblemCounts counts;
    for_each_entry([&counts](const Filename& entry) {
        if (!entry.in_scope)
            return;
        switch (entry.status) {
        case Status::SameName: ++counts.same_name; break;
        case Status::ExistingName: ++counts.existing_name; break;
        case Status::Empty: ++counts.empty; break;
        case Status::SpaceOrPeriod: ++counts.space_or_period; break;
        case Status::TooLong: ++counts.too_long; break;
        case Status::Forbidden: ++counts.forbidden; break;
        case Status::Pending:
        case Status::NotMade:
        case Status::Ready:
        case Status::Unchanged: break;
        }
    });
    return counts;
}

void FileSet::mark_all_invalid()
{
    for_each_entry([](Filename& entry) { entry.status = Status::Forbidden; });
}

void FileSet::reset_counters()
{
    for (const auto& folder : folders)
        folder->next_sequence = 0;
    for_each_entry([](Filename& entry) { entry.sequence = 0; });
}

} // namespace multirename
