#include "platform/rename_obstacles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/error_text.h"
#include "platform/posix/last_error.h"

namespace multirename {

namespace {

constexpr uid_t root = 0;

// The process may rename whatever it likes in a folder that it owns.
bool is_kept_by_its_owner(const std::string& path)
{
    struct stat details { };
    return lstat(path.c_str(), &details) == 0 && details.st_uid != geteuid();
}

bool is_mount_point(const std::string& path)
{
    struct statx details { };
    return statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, 0, &details) == 0 &&
        (details.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0 &&
        (details.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

} // namespace

const RenameObstacles::Folder& RenameObstacles::known(std::string_view path)
{
    if (last_ != nullptr && last_->first == path)
        return last_->second;
    const auto [place, is_new] = folders_.try_emplace(std::string(path));
    last_ = &*place;
    Folder& found = place->second;
    const std::string& folder = place->first;
    if (!is_new)
        return found;
    if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        found.error = last_error();
    const long longest = pathconf(folder.c_str(), _PC_NAME_MAX);
    found.longest_name = longest > 0 ? static_cast<std::size_t>(longest) : SIZE_MAX;
    struct stat details { };
    found.is_sticky = geteuid() != root && stat(folder.c_str(), &details) == 0 && (details.st_mode & S_ISVTX) != 0 &&
        details.st_uid != geteuid();
    return found;
}

std::optional<std::string> RenameObstacles::find(std::string_view folder, std::string_view name,
                                                 std::string_view new_name, bool is_folder)
{
    const Folder& where = known(folder);
    if (where.error)
        return "the folder does not let its entries be renamed: " + error_text(where.error);
    if (new_name.size() > where.longest_name)
        return "the new name has " + std::to_string(new_name.size()) + " bytes, and this file system takes at most " +
            std::to_string(where.longest_name);
    if (where.is_sticky && is_kept_by_its_owner(std::string(folder).append(name)))
        return "in this folder only the owner of an entry may rename it";
    if (is_folder && is_mount_point(std::string(folder).append(name)))
        return "another file system is mounted on this folder";
    return std::nullopt;
}

} // namespace multirename
