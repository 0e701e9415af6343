#include "support/temporary_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "support/descriptor.h"
#include "support/folder_walk.h"

namespace multirename {

namespace {

constexpr mode_t open_to_all = 0755;

// Root, for as long as this lives, where the process has only set that aside.
class RegainedRights {
public:
    RegainedRights() noexcept
    {
        uid_t real = 0;
        uid_t saved = 0;
        getresuid(&real, &acting_, &saved);
        if (acting_ != 0 && (real == 0 || saved == 0))
            is_changed_ = seteuid(0) == 0;
    }
    RegainedRights(const RegainedRights&) = delete;
    RegainedRights& operator=(const RegainedRights&) = delete;
    ~RegainedRights()
    {
        if (is_changed_ && seteuid(acting_) != 0)
            std::abort();
    }

private:
    uid_t acting_ = 0;
    bool is_changed_ = false;
};

void remove_entry(int parent, const std::string& name)
{
    struct stat details { };
    checked(fstatat(parent, name.c_str(), &details, AT_SYMLINK_NOFOLLOW), "fstatat");
    if (!S_ISDIR(details.st_mode)) {
        checked(unlinkat(parent, name.c_str(), 0), "unlinkat");
        return;
    }
    checked(fchmodat(parent, name.c_str(), S_IRWXU, 0), "fchmodat");
    const Descriptor folder = open_folder(parent, name);
    for (const std::string& entry : names_in_open(folder.get()))
        remove_entry(folder.get(), entry);
    checked(unlinkat(parent, name.c_str(), AT_REMOVEDIR), "unlinkat");
}

std::string new_folder()
{
    const char* base = std::getenv("TMPDIR");
    std::string path =
        std::filesystem::absolute(base != nullptr && *base != '\0' ? base : "/tmp") / "multirename.XXXXXX";
    if (mkdtemp(path.data()) == nullptr)
        throw std::system_error(errno, std::system_category(), path);
    checked(chmod(path.c_str(), open_to_all), "chmod");
    return path;
}

void make_folders_above(const std::string& path)
{
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
}

} // namespace

TemporaryFolder::TemporaryFolder() : path_(new_folder()) { }

TemporaryFolder::~TemporaryFolder()
{
    const RegainedRights rights;
    try {
        remove_entry(AT_FDCWD, path_);
    } catch (const std::exception& failure) {
        std::cerr << path_ << " stays: " << failure.what() << '\n';
    }
}

std::string TemporaryFolder::path_of(std::string_view relative_path) const
{
    return path_ + '/' + std::string(relative_path);
}

std::string TemporaryFolder::write(std::string_view relative_path, std::string_view content) const
{
    std::string path = path_of(relative_path);
    make_folders_above(path);
    constexpr mode_t usual_mode = 0666;
    const Descriptor file(checked(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, usual_mode), "open"));
    while (!content.empty()) {
        const ssize_t written = checked(::write(file.get(), content.data(), content.size()), "write");
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return path;
}

std::string TemporaryFolder::make_folder(std::string_view relative_path) const
{
    std::string path = path_of(relative_path);
    std::filesystem::create_directories(path);
    return path;
}

std::string TemporaryFolder::make_link(std::string_view relative_path, std::string_view target) const
{
    std::string path = path_of(relative_path);
    make_folders_above(path);
    checked(symlink(std::string(target).c_str(), path.c_str()), "symlink");
    return path;
}

} // namespace multirename
