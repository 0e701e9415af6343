#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "fileset/file_set.h"
#include "names.h"
#include "run/rename_run.h"

namespace multirename {

/// A folder in memory that holds a family's names, and the paths that select all of them.
class Listing final : public Disk {
public:
    Listing(const NameFamily& family, std::size_t count);

    [[nodiscard]] const std::vector<std::u16string>& names() const noexcept { return names_; }
    [[nodiscard]] const std::vector<std::u16string>& paths() const noexcept { return paths_; }
    /// Another number for each listing that is made.
    [[nodiscard]] std::size_t serial() const noexcept { return serial_; }
    [[nodiscard]] std::size_t units() const noexcept { return units_; } ///< of all names together

    FolderListing list_folder(std::u16string_view folder_path, const EntryVisitor& visit) override;
    void read_details(std::u16string_view folder_path, DirectoryEntry& entry) override;
    bool tells_folders_apart_by_case() override { return false; }
    std::optional<std::u16string> working_directory() override { return std::nullopt; }

private:
    std::vector<std::u16string> names_;
    std::vector<std::u16string> paths_;
    std::size_t units_ = 0;
    std::size_t serial_;
};

/// A run over all of a listing's names, with all that must live as long as it.
struct ListingRun {
    FileSet files;
    RememberedBoxes boxes;
    RenameRun run;
    explicit ListingRun(Listing& listing);
};

} // namespace multirename
