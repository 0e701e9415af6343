#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "fileset/filename.h"
#include "fileset/filename_set.h"
#include "platform/disk.h"
#include "platform/large_memory.h"

namespace multirename {

/// One folder that holds at least one listed entry, with every entry that it has on disk.
struct RenameFolder {
    explicit RenameFolder(std::u16string_view folder_path);

    std::u16string key; ///< `path` in upper case
    std::u16string path; ///< as the first path that named it spelled it, ending in "\"
    std::shared_ptr<FilenameSet> entries; ///< null until the folder is first listed
    bool tells_case_apart = false; ///< names that differ only in case are different names here
    std::error_code listing_error; ///< why the folder could not be read, when it could not
    LargeVector<Filename*> rename_order; ///< the entries to rename, in an order that is safe
    std::uint64_t next_sequence = 0; ///< what the next entry of this folder in the names list is numbered

    /// Lists the folder into a new set that replaces the old one. Entries that were listed by the host stay so; all
    /// else that the old records held is lost, though they stay where they are. A folder that cannot be read becomes
    /// empty.
    void load(Disk& disk);

    /// The entry that has this name, compared without regard to case unless the folder tells case apart; null when
    /// there is none or nothing was listed.
    [[nodiscard]] Filename* find(std::u16string_view name) const;

    /// Lists the folder once more, and gives the entries that it did not have when it was loaded; none when it cannot
    /// be read. Changes no record.
    [[nodiscard]] FilenameSet entries_that_appeared() const;

    /// Fills in what the listing did not tell of the entry, if there is such.
    void read_details(Filename& entry) const;

private:
    Disk* disk_ = nullptr; // that was last listed from
    std::vector<std::shared_ptr<FilenameSet>> former_entries_;
};

} // namespace multirename
