#include "platform/disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
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

class PosixDisk final : public Disk {
public:
    std::vector<DirectoryEntry> list_folder(std::u16string_view folder_path) override
    {
        std::vector<DirectoryEntry> entries;
        const std::unique_ptr<DIR, CloseFolder> folder(opendir(bytes_from_path(folder_path).c_str()));
        if (folder == nullptr)
            return entries;
        while (const dirent* found = readdir(folder.get())) {
            const std::string_view name = found->d_name;
            if (name == "." || name == "..")
                continue;
            DirectoryEntry entry;
            entry.name = name_from_bytes(name);
            read_details(dirfd(folder.get()), found->d_name, entry);
            entries.push_back(std::move(entry));
        }
        return entries;
    }

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
