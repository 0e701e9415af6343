#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fileset/filename.h"
#include "fileset/rename_folder.h"
#include "fileset/scope_filter.h"
#include "fileset/text_store.h"
#include "platform/disk.h"
#include "platform/large_memory.h"

namespace multirename {

/// How many in-scope entries have each of the statuses that forbid a rename, in the order of the statuses 4 to 9.
struct ProblemCounts {
    std::uint32_t same_name = 0;
    std::uint32_t existing_name = 0;
    std::uint32_t empty = 0;
    std::uint32_t space_or_period = 0;
    std::uint32_t too_long = 0;
    std::uint32_t forbidden = 0;
};

/// The entries that one run is about: those the host named, and every other entry of their folders, so that new names
/// can be checked against all names that exist there. Each folder is listed once; names that come or go on disk later
/// are not seen until a rename looks for them.
class FileSet {
public:
    /// The disk must outlive the set.
    explicit FileSet(Disk& disk) : disk_(disk) { }

    // Records point back at their folders, and listed entries are shared with them: a copy would share them too.
    FileSet(const FileSet&) = delete;
    FileSet& operator=(const FileSet&) = delete;

    /// All folders, ordered by their keys, and by their paths where folders are told apart by case.
    std::vector<std::shared_ptr<RenameFolder>> folders;
    Status summary_status = Status::Ready; ///< see `summarise`
    bool any_planned = false;
    bool any_change = false;
    bool any_read_only_change = false; ///< as far as is known without asking for details
    bool has_plain_file = false; ///< some listed entry is not a folder
    /// The listed entries in the order of the host's paths; a path given twice stands twice and shares one record.
    LargeVector<Filename*> listed;
    /// The texts of new names that were pasted, and of those that were made, which are all made again on each change.
    TextStore pasted_names;
    TextStore made_names;

    /// Lists every entry that the paths name and that exists. Bad paths are left out silently: those of 260 characters
    /// or more, names that their folder does not have, folders that cannot be read. A path without "\" is a name in
    /// the folder of the path before it, or in the working directory when it comes first. True when anything was
    /// listed.
    bool add_paths(std::span<const std::u16string> paths);

    /// Lists the entry of that name in the folder whose path, ending in "\", is given, however long they are. Null,
    /// and nothing is done, when the folder has no such entry.
    Filename* add_entry(std::u16string_view folder_path, std::u16string_view name);

    /// Lists this entry, which one of the folders holds.
    void add_entry(Filename& entry);

    /// The folder with this path, ending in "\", read when it was not yet.
    RenameFolder& open_folder(std::u16string_view folder_path);

    /// The folder with this path, compared without regard to case unless the disk tells folders apart by it; made,
    /// though not yet read, when it is new.
    std::shared_ptr<RenameFolder> find_or_add_folder(std::u16string_view folder_path);

    /// Sets `in_scope` of every listed entry, and empties the new name of those out of scope. True when any changed.
    bool mark_scope(const ScopeFilter& filter);

    /// Sets `summary_status` (Ready when nothing forbids the rename, the one problem when there is but one kind, else
    /// Pending) and the three flags about what would change.
    void summarise();

    [[nodiscard]] ProblemCounts count_problems() const;

    /// Gives every entry of every folder the status Forbidden.
    void mark_all_invalid();

    /// Zeroes each folder's next sequence number and each entry's `sequence`.
    void reset_counters();

    /// Calls `visit` with every entry of every folder, folders and entries in their sorted order.
    template <class Visit>
    void for_each_entry(Visit visit) const
    {
        for (const auto& folder : folders) {
            if (folder->entries == nullptr)
                continue;
            for (Filename& entry : *folder->entries)
                visit(entry);
        }
    }

private:
    void list_entries(RenameFolder& folder, std::span<const std::u16string_view> names);

    Disk& disk_;
};

} // namespace multirename
