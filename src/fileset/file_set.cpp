#include "fileset/file_set.h"

#include <algorithm>
#include <array>

#include "platform/name_key.h"

namespace multirename {

namespace {

constexpr std::size_t first_too_long_path = 260;
constexpr std::size_t names_at_once = 64;

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
    for (const Filename& entry : *folder.entries) {
        if (!entry.in_scope || entry.status == Status::Ready || entry.status == Status::Unchanged)
            continue;
        if (found && entry.status != common)
            return Status::Pending;
        common = entry.status;
        found = true;
    }
    return common;
}

} // namespace

bool FileSet::add_paths(std::span<const std::u16string> paths)
{
    listed.reserve(listed.size() + paths.size());
    std::shared_ptr<RenameFolder> current;
    std::vector<std::u16string_view> names; // that wait to be listed in the current folder
    const auto list_names = [&] {
        if (current != nullptr)
            list_entries(*current, names);
        names.clear();
    };
    for (const std::u16string& path : paths) {
        if (path.size() >= first_too_long_path)
            continue;
        const std::size_t backslash = path.rfind(u'\\');
        const bool is_bare_name = backslash == std::u16string::npos;
        const std::u16string_view folder_path = std::u16string_view(path).substr(0, is_bare_name ? 0 : backslash + 1);
        if (!is_bare_name && (current == nullptr || current->path != folder_path)) {
            list_names();
            current = find_or_add_folder(folder_path);
        } else if (current == nullptr) {
            std::optional<std::u16string> directory = disk_.working_directory();
            if (!directory)
                continue;
            if (!directory->empty() && !directory->ends_with(u'\\'))
                directory->push_back(u'\\');
            current = find_or_add_folder(*directory);
        }
        names.push_back(std::u16string_view(path).substr(folder_path.size()));
        if (names.size() == names_at_once)
            list_names();
    }
    list_names();
    return !listed.empty();
}

Filename* FileSet::add_entry(std::u16string_view folder_path, std::u16string_view name)
{
    Filename* const entry = open_folder(folder_path).find(name);
    if (entry != nullptr)
        add_entry(*entry);
    return entry;
}

RenameFolder& FileSet::open_folder(std::u16string_view folder_path)
{
    RenameFolder& folder = *find_or_add_folder(folder_path);
    if (folder.entries == nullptr)
        folder.load(disk_);
    return folder;
}

void FileSet::list_entries(RenameFolder& folder, std::span<const std::u16string_view> names)
{
    if (folder.entries == nullptr)
        folder.load(disk_);
    const Filename* const last = listed.empty() || listed.back()->folder != &folder ? nullptr : listed.back();
    std::array<Filename*, names_at_once> found{};
    folder.entries->find_each(last, names, found);
    for (Filename* entry : std::span(found).first(names.size())) {
        if (entry != nullptr)
            add_entry(*entry);
    }
}

void FileSet::add_entry(Filename& entry)
{
    entry.not_listed = false;
    listed.push_back(&entry);
    if (!entry.is_folder)
        has_plain_file = true;
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
    std::u16string key;
    for_each_entry([&](Filename& entry) {
        if (entry.not_listed)
            return;
        name_key(filter.includes_extension ? entry.name : base_name(entry.name), key);
        const bool in_scope = filter.text.empty() || matches_scope_pattern(filter.pattern, key);
        if (!in_scope)
            entry.new_name = {};
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
