#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "fileset/file_set.h"

namespace multirename {

/// The window on whose behalf a rename is done, in whatever way the platform names windows; `none` where there is none.
enum class OwnerWindow : std::uintptr_t { none = 0 };

/// Carries out a rename that has been planned, and may stop it before it starts.
class RenameProgress {
public:
    virtual ~RenameProgress() = default;
    RenameProgress() = default;
    RenameProgress(const RenameProgress&) = delete;
    RenameProgress& operator=(const RenameProgress&) = delete;

    /// Kept for implementers that announce themselves; a rename never calls it.
    virtual void announce() = 0;

    /// Asked before and while the entries are collected; true ends the collection.
    [[nodiscard]] virtual bool is_cancelled() = 0;

    /// Renames the entries in their order. Each has a name and a new name that differ.
    virtual void rename(OwnerWindow owner, std::span<const Filename* const> entries) = 0;
};

/// The folders in an order in which the contents of each come before any folder that contains it.
[[nodiscard]] std::vector<std::shared_ptr<RenameFolder>> folder_order(const FileSet& files);

/// Collects what the folders' rename orders hold and the names of which differ, contents before their folders, and has
/// `progress` rename it in one go, an empty list too. Call it only when `FileSet::summarise` found nothing that forbids
/// the rename. Changes no record.
void rename_all(OwnerWindow owner, const FileSet& files, RenameProgress& progress);

/// The two lists that one shell operation takes: paths that each end in NUL, a further NUL at the end; the n-th target
/// belongs to the n-th source. Folder paths are taken as the host spelled them.
struct MoveLists {
    std::u16string sources;
    std::u16string targets;
};

/// Both lists are empty when there is nothing to move.
[[nodiscard]] MoveLists move_lists(std::span<const Filename* const> entries);

} // namespace multirename
