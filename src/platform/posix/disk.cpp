#include "platform/disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

#include "platform/posix/last_error.h"
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

// The first of a folder's names that has a letter, and the same name with that letter in its other case.
struct CaseProbe {
    std::string name;
    std::string swapped;

    void take(std::string_view candidate)
    {
        constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        constexpr char other_case = 'a' - 'A';
        if (!name.empty())
            return;
        const std::size_t letter = candidate.find_first_of(letters);
        if (letter == std::string_view::npos)
            return;
        name = candidate;
        swapped = candidate;
        swapped[letter] = static_cast<char>(swapped[letter] ^ other_case);
    }
};

class Folder {
public:
    explicit Folder(const std::string& path) : stream_(opendir(path.c_str())) { }

    [[nodiscard]] bool is_open() const { return stream_ != nullptr; }
    [[nodiscard]] int descriptor() const { return dirfd(stream_.get()); }

    // Calls `visit` with each entry, from the first on; the error says why the reading stopped before the end.
    template <class Visit>
    std::error_code read(Visit visit) const
    {
        rewinddir(stream_.get());
        errno = 0; // readdir says nothing else of a failure
        while (const dirent* found = readdir(stream_.get())) {
            const std::string_view name = found->d_name;
            if (name != "." && name != "..")
                visit(*found);
            errno = 0;
        }
        return last_error();
    }

    [[nodiscard]] bool lists(const std::string& name) const
    {
        bool is_found = false;
        const std::error_code error = read([&](const dirent& found) { is_found = is_found || name == found.d_name; });
        return is_found && !error;
    }

private:
    std::unique_ptr<DIR, CloseFolder> stream_;
};

// Nothing tells this of every file system, so one of the folder's own names is asked for in the other case. Where that
// is found, and the folder does not list it as a name of its own, case is not looked at. (The numbers of the two
// entries tell nothing: some file systems make them up for each spelling.)
bool tells_case_apart(const Folder& folder, const CaseProbe& probe)
{
    if (probe.name.empty())
        return !ignores_case_by_its_kind(folder.descriptor());
    struct stat as_swapped { };
    return fstatat(folder.descriptor(), probe.swapped.c_str(), &as_swapped, AT_SYMLINK_NOFOLLOW) != 0 ||
        folder.lists(probe.swapped);
}

// Some file systems do not tell in their listings what an entry is.
bool is_folder(const Folder& folder, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat details { };
    return fstatat(folder.descriptor(), entry.d_name, &details, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(details.st_mode);
}

class PosixDisk final : public Disk {
public:
    FolderListing list_folder(std::u16string_view folder_path, const EntryVisitor& visit) override
    {
        const Folder folder(bytes_from_path(folder_path));
        if (!folder.is_open())
            return {false, last_error()};
        CaseProbe probe;
        DirectoryEntry entry;
        const std::error_code error = folder.read([&](const dirent& found) {
            const std::string_view name = found.d_name;
            name_from_bytes(name, entry.name);
            entry.is_hidden = name.starts_with('.');
            entry.is_folder = is_folder(folder, found);
            probe.take(name);
            visit(entry);
        });
        if (error)
            return {false, error};
        return {tells_case_apart(folder, probe), {}};
    }

    // A link is judged as the link it is, since that is what a rename moves.
    void read_details(std::u16string_view folder_path, DirectoryEntry& entry) override
    {
        entry.has_details = true;
        entry.read_only = false;
        entry.size = 0;
        entry.last_write = 0;
        entry.created = 0;
        struct statx details { };
        constexpr unsigned int wanted = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME | STATX_BTIME;
        const std::string path = bytes_from_path(folder_path) + bytes_from_name(entry.name);
        if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &details) != 0)
            return;
        entry.read_only = (details.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 && !S_ISLNK(details.stx_mode);
        entry.size = S_ISREG(details.stx_mode) ? details.stx_size : 0;
        entry.last_write = file_time(details.stx_mtime);
        if ((details.stx_mask & STATX_BTIME) != 0)
            entry.created = file_time(details.stx_btime);
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
