#include "platform/disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string>

#include "text/posix_name.h"

namespace multirename {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

FileTime file_time(const struct statx_timestamp& moment)
{
    constexpr std::int64_t seconds_1601_to_1970 = 11'644'473'600;
    constexpr std::int64_t units_per_second = 10'000'000;
    const std::int64_t seconds = moment.tv_sec + seconds_1601_to_1970;
    if (seconds < 0)
        return 0;
    return static_cast<FileTime>(seconds * units_per_second + moment.tv_nsec / 100);
}

// A link is judged as the link it is, since that is what a rename moves.
void read_details(int folder, const char* name, DirectoryEntry& entry)
{
    struct statx details { };
    constexpr unsigned int wanted = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME | STATX_BTIME;
    if (statx(folder, name, AT_SYMLINK_NOFOLLOW, wanted, &details) != 0)
        return;
    entry.is_folder = S_ISDIR(details.stx_mode);
    entry.read_only = (details.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 && !S_ISLNK(details.stx_mode);
    entry.size = S_ISREG(details.stx_mode) ? details.stx_size : 0;
    entry.last_write = file_time(details.stx_mtime);
    if ((details.stx_mask & STATX_BTIME) != 0)
        entry.created = file_time(details.stx_btime);
}

bool is_same_entry(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

// File systems of this type take names without regard to case, whatever they hold.
bool ignores_case_by_its_kind(int folder)
{
    constexpr decltype(statfs::f_type) fat = 0x4D44;
    constexpr decltype(statfs::f_type) exfat = 0x2011BAB0;
    struct statfs system { };
    if (fstatfs(folder, &system) == 0 && (system.f_type == fat || system.f_type == exfat))
        return true;
    int flags = 0;
    return ioctl(folder, FS_IOC_GETFLAGS, &flags) == 0 && (static_cast<unsigned>(flags) & FS_CASEFOLD_FL) != 0;
}

// Nothing tells this of every file system, so one of the folder's own names is asked for in the other case. Where that
// finds the same entry, and the folder does not list it as a name of its own (a second link), case is not looked at.
bool tells_case_apart(int folder, const std::vector<DirectoryEntry>& entries)
{
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr char other_case = 'a' - 'A';
    for (const DirectoryEntry& entry : entries) {
        const std::string name = bytes_from_name(entry.name);
        const std::size_t letter = name.find_first_of(letters);
        if (letter == std::string::npos)
            continue;
        std::string swapped = name;
        swapped[letter] = static_cast<char>(swapped[letter] ^ other_case);
        struct stat as_listed { };
        struct stat as_swapped { };
        if (fstatat(folder, swapped.c_str(), &as_swapped, AT_SYMLINK_NOFOLLOW) != 0)
            return true;
        return fstatat(folder, name.c_str(), &as_listed, AT_SYMLINK_NOFOLLOW) != 0 ||
            !is_same_entry(as_listed, as_swapped) ||
            std::ranges::find(entries, name_from_bytes(swapped), &DirectoryEntry::name) != entries.end();
    }
    return !ignores_case_by_its_kind(folder);
}

class PosixDisk final : public Disk {
public:
    FolderListing list_folder(std::u16string_view folder_path) override
    {
        FolderListing listing;
        const std::unique_ptr<DIR, CloseFolder> folder(opendir(bytes_from_path(folder_path).c_str()));
        if (folder == nullptr) {
            listing.error = {errno, std::system_category()};
            return listing;
        }
        errno = 0; // readdir says nothing else of a failure
        while (const dirent* found = readdir(folder.get())) {
            const std::string_view name = found->d_name;
            if (name == "." || name == "..")
                continue;
            DirectoryEntry entry;
            entry.name = name_from_bytes(name);
            entry.is_hidden = name.starts_with('.');
            read_details(dirfd(folder.get()), found->d_name, entry);
            listing.entries.push_back(std::move(entry));
            errno = 0;
        }
        if (errno != 0)
            return {{}, false, {errno, std::system_category()}};
        listing.tells_case_apart = tells_case_apart(dirfd(folder.get()), listing.entries);
        return listing;
    }

    bool tells_folders_apart_by_case() override { return true; }

    std::optional<std::u16string> working_directory() override
    {
        std::array<char, 4096> buffer{};
        if (getcwd(buffer.data(), buffer.size()) == nullptr)
            return std::nullopt;
        std::u16string path = path_from_bytes(buffer.data());
        if (path.size() >= 260)
            return std::nullopt;
        return path;
    }
};

} // namespace

Disk& system_disk()
{
    static PosixDisk disk;
    return disk;
}

} // namespace multirename
