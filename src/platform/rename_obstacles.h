#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace multirename {

/// Finds what will keep the system from renaming an entry, as far as that can be known before anything is touched. What
/// is not found may still go wrong later. On Windows names of devices and paths that are too long are known.
class RenameObstacles {
public:
    RenameObstacles() = default;
    RenameObstacles(const RenameObstacles&) = delete;
    RenameObstacles& operator=(const RenameObstacles&) = delete;

    /// The reason why the entry cannot get the new name, in words, or nothing. All are in the system's own bytes, the
    /// folder with the separator at its end.
    [[nodiscard]] std::optional<std::string> find(std::string_view folder, std::string_view name,
                                                  std::string_view new_name, bool is_folder);

private:
    struct Folder {
        std::error_code error; // why nothing in it can be renamed
        std::size_t longest_name = 0; // bytes
        bool is_sticky = false; // only who owns an entry, or the folder, may rename it
    };
    [[nodiscard]] const Folder& known(std::string_view path);

    std::map<std::string, Folder, std::less<>> folders_;
    const std::pair<const std::string, Folder>* last_ = nullptr; // entries come folder by folder
};

} // namespace multirename
