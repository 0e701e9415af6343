#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace multirename {

/// Gives entries new names within their folders and never replaces another entry, whatever appears meanwhile.
/// Folders (with the system's separator at their end) and names are in the system's own bytes.
class EntryMover {
public:
    /// What is done where a part of a folder's path is a link. The paths that users gave are free of links by the time
    /// they come here, so that one has taken the place of a folder meanwhile: whatever it leads to was not meant.
    enum class FolderLinks { Refuse, Follow };

    explicit EntryMover(FolderLinks links = FolderLinks::Refuse) noexcept : links_(links) { }
    EntryMover(const EntryMover&) = delete;
    EntryMover& operator=(const EntryMover&) = delete;
    ~EntryMover();

    /// Renames `from` to `to`; a link is renamed itself. When `to` exists the error equals std::errc::file_exists,
    /// unless the two are one entry in a folder that takes them for one name; when a link stands in the folder's path
    /// and is not to be followed, errc::too_many_symbolic_link_levels (links are followed on Windows, always). On any
    /// error the disk is as it was.
    [[nodiscard]] std::error_code move(std::string_view folder, const std::string& from, const std::string& to);

    /// Whether the entry exists, itself and not what a link leads to; `error` is set when that cannot be told.
    [[nodiscard]] bool exists(std::string_view folder, const std::string& name, std::error_code& error);

    /// Whether some file system had no rename of its own that refuses to replace, so that links, or for folders a look
    /// before the rename, had to do.
    [[nodiscard]] bool did_without_exclusive_rename() const noexcept { return did_without_; }

private:
    // The folder that was used last stays open: batches go folder by folder. On Windows nothing is kept.
    [[nodiscard]] std::error_code open(std::string_view folder);

    FolderLinks links_;
    std::string open_path_;
    int open_folder_ = -1;
    bool did_without_ = false;
};

} // namespace multirename
