#include "rename/check_folder.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "rename/rename_order.h"

namespace multirename {

namespace {

constexpr std::size_t first_too_long_name = 256;

bool stays(const Filename& entry) { return !entry.in_scope || entry.new_name == entry.name; }

Status judge_alone(const Filename& entry)
{
    const std::u16string_view new_name = entry.new_name;
    if (!entry.in_scope)
        return Status::Ready;
    if (new_name.empty())
        return Status::Empty;
    if (new_name == entry.name)
        return Status::Unchanged;
    if (new_name.size() >= first_too_long_name)
        return Status::TooLong;
    if (new_name.starts_with(u' ') || new_name.ends_with(u' ') || new_name.ends_with(u'.'))
        return Status::SpaceOrPeriod;
    return Status::Pending;
}

void judge_against_folder(const RenameFolder& folder)
{
    for (const auto& entry : *folder.entries) {
        entry->status = judge_alone(*entry);
        if (entry->status != Status::Pending)
            continue;
        const auto holder = folder.find(entry->new_name);
        if (holder != nullptr && holder != entry && stays(*holder))
            entry->status = Status::ExistingName;
    }
}

void judge_duplicates(const RenameFolder& folder)
{
    std::map<std::u16string, Filename*> first_with_name;
    const auto mark = [](Filename& entry) {
        if (entry.status == Status::Pending)
            entry.status = Status::SameName;
    };
    for (const auto& entry : *folder.entries) {
        if (!entry->in_scope)
            continue;
        const auto [first, is_new] = first_with_name.emplace(folder.identity(entry->new_name), entry.get());
        if (!is_new) {
            mark(*first->second);
            mark(*entry);
        }
    }
}

void plan(RenameFolder& folder)
{
    folder.rename_order.clear();
    std::vector<std::shared_ptr<Filename>> pending;
    std::unordered_map<const Filename*, std::size_t> place;
    for (const auto& entry : *folder.entries) {
        if (entry->status == Status::Pending) {
            place.emplace(entry.get(), pending.size());
            pending.push_back(entry);
        }
    }
    std::vector<std::optional<std::size_t>> holder(pending.size());
    for (std::size_t i = 0; i < pending.size(); ++i) {
        const auto found = place.find(folder.find(pending[i]->new_name).get());
        if (found != place.end())
            holder[i] = found->second;
    }
    for (const auto& entry : pending)
        entry->status = Status::ExistingName;
    for (const std::size_t next : rename_order(holder)) {
        pending[next]->status = Status::Ready;
        folder.rename_order.push_back(pending[next]);
    }
}

} // namespace

void check_folder(RenameFolder& folder)
{
    judge_against_folder(folder);
    judge_duplicates(folder);
    plan(folder);
}

void check_all(FileSet& files)
{
    for (const auto& folder : files.folders)
        check_folder(*folder);
}

} // namespace multirename
