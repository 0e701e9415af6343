#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/command_line.h"
#include "cli/name_border.h"
#include "fileset/file_set.h"
#include "platform/console.h"

namespace multirename {

/// The entries that a command is about, ready for a run.
class SelectedFiles {
public:
    /// Finds them all, in the order of the paths, then of the file of paths, then of the folder. Throws
    /// WrongCommandLine for one that cannot be found, and Failure when a folder cannot be read.
    SelectedFiles(const Selection& selection, Console& console);

    [[nodiscard]] FileSet& files() noexcept { return files_; }
    [[nodiscard]] const NameBorder& border() const noexcept { return border_; }
    /// True for a list of names, which no disk holds.
    [[nodiscard]] bool are_names_only() const noexcept { return names_only_; }

private:
    /// The folder that a list of names stands for, and every other that is asked for.
    class NamesDisk final : public Disk {
    public:
        std::vector<std::u16string> names;
        FolderListing list_folder(std::u16string_view folder_path, const EntryVisitor& visit) override;
        void read_details(std::u16string_view, DirectoryEntry& entry) override { entry.has_details = true; }
        std::optional<std::u16string> working_directory() override { return std::nullopt; }
        bool tells_folders_apart_by_case() override { return false; }
    };

    void take_names(const Selection& selection, Console& console);
    void take_paths(const Selection& selection, Console& console);
    void take_folder(const Selection& selection, const std::u16string& path);

    bool names_only_;
    NameBorder border_;
    NamesDisk names_disk_;
    FileSet files_;
};

/// The lines of a file of paths or names, or what stands between its NULs. What follows the last end counts when it is
/// not empty; empty ones do not. On Windows a carriage return at a line's end and a byte order mark belong to no name.
[[nodiscard]] std::vector<std::string> items_of(std::string_view bytes, bool nul_ended);

} // namespace multirename
