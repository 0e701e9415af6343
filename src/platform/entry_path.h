#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <system_error>

namespace multirename {

/// Where an entry lies: its folder's path, ending in "\", and its name, both as the engine holds them.
struct EntryPath {
    std::u16string folder;
    std::u16string name;
};

/// Takes apart the paths that the user gives. Every way to one folder leads to one text, so that two paths of one
/// folder are known to be that; what was found out about a folder is remembered.
class EntryPaths {
public:
    /// The folder and the name of the entry that the path names; a link is the link itself. On an error `path` is left
    /// alone: errc::invalid_argument for a path without a name of its own (".", "..", a root), filename_too_long where
    /// the system's own rename takes no path of that length, else what the system says of the folder. Whether the
    /// folder has the entry is not looked at.
    [[nodiscard]] std::error_code entry(std::string_view native_path, EntryPath& path);

    /// The path of a folder, ending in "\".
    [[nodiscard]] std::error_code folder(std::string_view native_path, std::u16string& path);

private:
    struct FoundFolder {
        std::u16string path; // ending in "\"
        std::string identity; // the same for every way to the folder
    };
    // Asks the system for the folder to which the path leads.
    [[nodiscard]] static std::error_code find_folder(std::string_view native_path, FoundFolder& found);

    std::map<std::string, std::u16string, std::less<>> folders_; // by the path as it was given
    std::map<std::string, std::u16string> identities_; // the path that was found first, by the folder's identity
};

} // namespace multirename
