// New names mostly come in the order of the old ones: an edit of what all names share does not change it. Then no two
// of them can be the same, and a walk along the folder's names beside them finds those that exist already. Otherwise
// they are looked up by their hashes, among the names that the folder has and among the new names before them; the
// hashes of all are made first, so that the memory that a look-up needs can be asked for some names ahead.
//
// Only entries that are still pending can share a new name with another one. What is empty, too long or badly spaced
// is so in every case; what stays has its name in the folder; and when two want a name that stays, neither is pending
// any more.

#include "rename/check_folder.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/large_memory.h"
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

// An entry to be renamed.
struct Candidate {
    std::uint32_t place = 0; // in its folder
    std::uint32_t holder = NameIndex::none; // the place of the entry that has the new name now
};

class FolderCheck {
public:
    explicit FolderCheck(RenameFolder& folder) : folder_(folder), entries_(*folder.entries) { }

    void run()
    {
        judge_all_alone();
        if (is_sorted_) {
            find_holders_beside();
        } else {
            find_holders_by_hash();
            judge_duplicates();
        }
        plan();
    }

private:
    void judge_all_alone()
    {
        candidates_.reserve(entries_.size());
        std::u16string_view last;
        for (std::uint32_t place = 0; place < entries_.size(); ++place) {
            Filename& entry = entries_[place];
            entry.status = judge_alone(entry);
            if (entry.status != Status::Pending)
                continue;
            candidates_.push_back({place});
            is_sorted_ = is_sorted_ && entries_.compare(last, entry.new_name) < 0;
            last = entry.new_name;
        }
    }

    void find_holders_beside()
    {
        if (candidates_.empty())
            return;
        const auto sorts_before = [this](const Filename& entry, std::u16string_view name) {
            return entries_.compare(entry.name, name) < 0;
        };
        const Filename* entry =
            std::lower_bound(entries_.begin(), entries_.end(), new_name_of(candidates_.front()), sorts_before);
        for (Candidate& candidate : candidates_) {
            int order = -1;
            while (entry != entries_.end() && (order = entries_.compare(entry->name, new_name_of(candidate))) < 0)
                ++entry;
            if (entry == entries_.end())
                break;
            if (order == 0)
                take_holder(candidate, static_cast<std::uint32_t>(entry - entries_.begin()));
        }
        keep_pending();
    }

    void find_holders_by_hash()
    {
        const NameIndex& index = entries_.index();
        hashes_.reserve(candidates_.size());
        for (const Candidate& candidate : candidates_)
            hashes_.push_back(entries_.identity_hash(new_name_of(candidate)));
        for (std::size_t i = 0; i < candidates_.size(); ++i) {
            if (i + names_ahead < candidates_.size())
                index.prefetch(hashes_[i + names_ahead]);
            const std::u16string_view new_name = new_name_of(candidates_[i]);
            const std::uint32_t holder = index.find(
                hashes_[i], [&](std::uint32_t place) { return entries_.are_one_name(entries_[place].name, new_name); });
            if (holder != NameIndex::none)
                take_holder(candidates_[i], holder);
        }
    }

    // A name whose holder stays is taken. Entries that were pending alone change their names, so none of them stays.
    void take_holder(Candidate& candidate, std::uint32_t holder)
    {
        if (holder == candidate.place)
            return;
        if (!entries_[holder].in_scope || entries_[holder].status == Status::Unchanged) {
            refuse(candidate, Status::ExistingName);
            return;
        }
        candidate.holder = holder;
        has_holders_ = true;
    }

    void judge_duplicates()
    {
        NameIndex first_with_name(candidates_.size());
        for (std::uint32_t i = 0; i < candidates_.size(); ++i) {
            if (i + names_ahead < candidates_.size())
                first_with_name.prefetch(hashes_[i + names_ahead]);
            if (entry_of(candidates_[i]).status == Status::ExistingName)
                continue;
            const std::u16string_view new_name = new_name_of(candidates_[i]);
            const std::uint32_t first = first_with_name.find_or_add(hashes_[i], i, [&](std::uint32_t other) {
                return entries_.are_one_name(new_name_of(candidates_[other]), new_name);
            });
            if (first != NameIndex::none) {
                refuse(candidates_[first], Status::SameName);
                refuse(candidates_[i], Status::SameName);
            }
        }
        keep_pending();
    }

    // The order of the passes; an entry whose name no pass sets free cannot have it.
    void plan()
    {
        folder_.rename_order.clear();
        folder_.rename_order.reserve(candidates_.size());
        if (!has_holders_) {
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

    // A holder that is not pending itself counts as moved away.
    [[nodiscard]] std::vector<std::optional<std::size_t>> holders_among_candidates() const
    {
        std::vector<std::uint32_t> candidate_at(entries_.size(), NameIndex::none);
        for (std::uint32_t i = 0; i < candidates_.size(); ++i)
            candidate_at[candidates_[i].place] = i;
        std::vector<std::optional<std::size_t>> holders(candidates_.size());
        for (std::size_t i = 0; i < candidates_.size(); ++i) {
            const std::uint32_t holder = candidates_[i].holder;
            if (holder != NameIndex::none && candidate_at[holder] != NameIndex::none)
                holders[i] = candidate_at[holder];
        }
        return holders;
    }

    void take(const Candidate& candidate)
    {
        entry_of(candidate).status = Status::Ready;
        folder_.rename_order.push_back(&entry_of(candidate));
    }

    void refuse(const Candidate& candidate, Status status)
    {
        entry_of(candidate).status = status;
        is_any_refused_ = true;
    }

    void keep_pending()
    {
        if (!is_any_refused_)
            return;
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
    LargeVector<Candidate> candidates_; // in the order of their places
    LargeVector<std::uint64_t> hashes_; // of their new names
    bool is_sorted_ = true; // the new names as the folder's names are, no two of them one
    bool is_any_refused_ = false;
    bool has_holders_ = false;
};

} // namespace

void check_folder(RenameFolder& folder) { FolderCheck(folder).run(); }

void check_all(FileSet& files)
{
    for (const auto& folder : files.folders)
        check_folder(*folder);
}

void check_for_names_that_appeared(FileSet& files)
{
    for (const auto& folder : files.folders) {
        if (folder->rename_order.empty())
            continue;
        const FilenameSet appeared = folder->entries_that_appeared();
        for (Filename* const entry : folder->rename_order) {
            if (entry->status == Status::Ready || entry->status == Status::ExistingName)
                entry->status = appeared.find(entry->new_name) == nullptr ? Status::Ready : Status::ExistingName;
        }
    }
}

} // namespace multirename
