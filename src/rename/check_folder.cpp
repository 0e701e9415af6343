// New names are looked up by their hashes: among the names that the folder has, and among the new names before them.
// The hashes of all are made first, so that the memory that a look-up needs can be asked for some names ahead.
//
// Only entries that are still pending can share a new name with another one. What is empty, too long or badly spaced
// is so in every case; what stays has its name in the folder; and when two want a name that stays, neither is pending
// any more.

#include "rename/check_folder.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "rename/rename_order.h"

namespace multirename {

namespace {

constexpr std::size_t first_too_long_name = 256;
constexpr std::size_t names_ahead = 16;

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
    if (new_name.front() == u' ' || new_name.back() == u' ' || new_name.back() == u'.')
        return Status::SpaceOrPeriod;
    return Status::Pending;
}

// An entry to be renamed, and what its look-ups need.
struct Candidate {
    std::uint64_t hash = 0; // of the new name
    std::uint32_t place = 0; // of the entry in its folder
    std::uint32_t holder = NameIndex::none; // the place of the entry that has the new name now
};

class FolderCheck {
public:
    explicit FolderCheck(RenameFolder& folder) : folder_(folder), entries_(*folder.entries) { }

    void run()
    {
        judge_all_alone();
        find_holders();
        judge_against_holders();
        judge_duplicates();
        plan();
    }

private:
    void judge_all_alone()
    {
        std::size_t pending = 0;
        for (Filename& entry : entries_) {
            entry.status = judge_alone(entry);
            pending += entry.status == Status::Pending ? 1U : 0U;
        }
        candidates_.reserve(pending);
        for (std::uint32_t place = 0; place < entries_.size(); ++place) {
            if (entries_[place].status == Status::Pending)
                candidates_.push_back({entries_.identity_hash(entries_[place].new_name), place});
        }
    }

    void find_holders()
    {
        const NameIndex& index = entries_.index();
        for (std::size_t i = 0; i < candidates_.size(); ++i) {
            if (i + names_ahead < candidates_.size())
                index.prefetch(candidates_[i + names_ahead].hash);
            const std::u16string_view new_name = new_name_of(candidates_[i]);
            candidates_[i].holder = index.find(candidates_[i].hash, [&](std::uint32_t place) {
                return entries_.are_one_name(entries_[place].name, new_name);
            });
        }
    }

    // A name whose holder stays is taken. Entries that were pending alone change their names, so none of them stays.
    void judge_against_holders()
    {
        const auto is_taken = [this](const Candidate& candidate) {
            if (candidate.holder == NameIndex::none || candidate.holder == candidate.place)
                return false;
            const Filename& holder = entries_[candidate.holder];
            return !holder.in_scope || holder.status == Status::Unchanged;
        };
        for (const Candidate& candidate : candidates_) {
            if (is_taken(candidate))
                entry_of(candidate).status = Status::ExistingName;
        }
        keep_pending();
    }

    void judge_duplicates()
    {
        NameIndex first_with_name(candidates_.size());
        for (std::uint32_t i = 0; i < candidates_.size(); ++i) {
            if (i + names_ahead < candidates_.size())
                first_with_name.prefetch(candidates_[i + names_ahead].hash);
            const std::u16string_view new_name = new_name_of(candidates_[i]);
            const std::uint32_t first = first_with_name.find_or_add(candidates_[i].hash, i, [&](std::uint32_t other) {
                return entries_.are_one_name(new_name_of(candidates_[other]), new_name);
            });
            if (first != NameIndex::none) {
                entry_of(candidates_[first]).status = Status::SameName;
                entry_of(candidates_[i]).status = Status::SameName;
            }
        }
        keep_pending();
    }

    // The order of the passes; an entry whose name no pass sets free cannot have it.
    void plan()
    {
        folder_.rename_order.clear();
        folder_.rename_order.reserve(candidates_.size());
        if (std::ranges::none_of(candidates_, [this](const Candidate& candidate) { return waits(candidate); })) {
            for (const Candidate& candidate : candidates_)
                take(candidate);
            return;
        }
        for (const std::size_t next : rename_order(holders_among_candidates()))
            take(candidates_[next]);
        for (const Candidate& candidate : candidates_) {
            if (entry_of(candidate).status == Status::Pending)
                entry_of(candidate).status = Status::ExistingName;
        }
    }

    [[nodiscard]] bool waits(const Candidate& candidate) const
    {
        return candidate.holder != NameIndex::none && candidate.holder != candidate.place &&
            entries_[candidate.holder].status == Status::Pending;
    }

    [[nodiscard]] std::vector<std::optional<std::size_t>> holders_among_candidates() const
    {
        std::vector<std::optional<std::size_t>> holders(candidates_.size());
        for (std::size_t i = 0; i < candidates_.size(); ++i) {
            if (!waits(candidates_[i]))
                continue;
            const auto found = std::ranges::lower_bound(candidates_, candidates_[i].holder, {}, &Candidate::place);
            holders[i] = static_cast<std::size_t>(found - candidates_.begin());
        }
        return holders;
    }

    void take(const Candidate& candidate)
    {
        entry_of(candidate).status = Status::Ready;
        folder_.rename_order.push_back(&entry_of(candidate));
    }

    void keep_pending()
    {
        std::erase_if(candidates_,
                      [this](const auto& candidate) { return entry_of(candidate).status != Status::Pending; });
    }

    [[nodiscard]] Filename& entry_of(const Candidate& candidate) const { return entries_[candidate.place]; }
    [[nodiscard]] std::u16string_view new_name_of(const Candidate& candidate) const
    {
        return entry_of(candidate).new_name;
    }

    RenameFolder& folder_;
    FilenameSet& entries_;
    std::vector<Candidate> candidates_; // in the order of their places
};

} // namespace

void check_folder(RenameFolder& folder) { FolderCheck(folder).run(); }

void check_all(FileSet& files)
{
    for (const auto& folder : files.folders)
        check_folder(*folder);
}

} // namespace multirename
