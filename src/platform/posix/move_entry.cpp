#include "platform/move_entry.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "platform/posix/last_error.h"

namespace multirename {

namespace {

std::error_code result_of(int returned) { return returned == 0 ? std::error_code() : last_error(); }

bool is_in_the_way(const std::error_code& error)
{
    return error == std::errc::file_exists || error == std::errc::directory_not_empty;
}

bool says_not_supported(const std::error_code& error)
{
    return error == std::errc::invalid_argument || error == std::errc::function_not_supported ||
        error == std::errc::operation_not_supported;
}

bool differ_in_case_only(const std::string& a, const std::string& b)
{
    const auto without_case = [](char c) { return static_cast<unsigned char>(c) < 0x80 ? c | ('a' - 'A') : -1; };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) {
               return x == y || without_case(x) == without_case(y);
           });
}

struct CloseFolder {
    void operator()(DIR* stream) const noexcept { closedir(stream); }
};

enum class Listed { No, Yes, Unknown };

Listed lists(int folder, const std::string& name)
{
    const int opened = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return Listed::Unknown;
    const std::unique_ptr<DIR, CloseFolder> stream(fdopendir(opened));
    if (stream == nullptr) {
        close(opened);
        return Listed::Unknown;
    }
    errno = 0; // readdir says nothing else of a failure
    while (const dirent* found = readdir(stream.get())) {
        if (name == found->d_name)
            return Listed::Yes;
        errno = 0;
    }
    return errno == 0 ? Listed::No : Listed::Unknown;
}

// Both names lead to the very same entry, and not because there are two links: then there would be two of them. Some
// file systems make up another number of the entry for each spelling; there the folder lists one of the two only.
bool are_one_entry(int folder, const std::string& a, const std::string& b)
{
    struct stat first { };
    struct stat second { };
    if (!differ_in_case_only(a, b) || fstatat(folder, a.c_str(), &first, AT_SYMLINK_NOFOLLOW) != 0 ||
        fstatat(folder, b.c_str(), &second, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    if (first.st_dev == second.st_dev && first.st_ino == second.st_ino)
        return first.st_nlink == 1 || S_ISDIR(first.st_mode);
    // It must still be there after the look, or it was an entry of its own that has gone since.
    return lists(folder, a) == Listed::Yes && lists(folder, b) == Listed::No &&
        fstatat(folder, b.c_str(), &second, AT_SYMLINK_NOFOLLOW) == 0;
}

bool is_same_entry(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

// Somebody may have moved the entry away after it was linked, and put another in its place: that one is not ours to
// remove. Nor is the new name, once it is the only one that the entry has.
std::error_code link_and_unlink(int folder, const std::string& from, const std::string& to)
{
    if (linkat(folder, from.c_str(), folder, to.c_str(), 0) != 0)
        return last_error();
    struct stat linked { };
    struct stat old { };
    std::error_code error = std::make_error_code(std::errc::no_such_file_or_directory);
    const bool is_linked = fstatat(folder, to.c_str(), &linked, AT_SYMLINK_NOFOLLOW) == 0;
    if (is_linked && fstatat(folder, from.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0 && is_same_entry(linked, old)) {
        if (unlinkat(folder, from.c_str(), 0) == 0)
            return {};
        error = last_error();
    }
    if (is_linked && linked.st_nlink == 1)
        return {}; // the old name has gone by itself
    if (is_linked)
        unlinkat(folder, to.c_str(), 0);
    return error;
}

// A rename never replaces anything by a folder except an empty folder, and that only within a moment after this look.
std::error_code move_folder(int folder, const std::string& from, const std::string& to)
{
    struct stat details { };
    if (fstatat(folder, to.c_str(), &details, AT_SYMLINK_NOFOLLOW) == 0)
        return std::make_error_code(std::errc::file_exists);
    if (errno != ENOENT)
        return last_error();
    return result_of(renameat(folder, from.c_str(), folder, to.c_str()));
}

std::error_code move_without_exclusive_rename(int folder, const std::string& from, const std::string& to)
{
    struct stat details { };
    if (fstatat(folder, from.c_str(), &details, AT_SYMLINK_NOFOLLOW) != 0)
        return last_error();
    return S_ISDIR(details.st_mode) ? move_folder(folder, from, to) : link_and_unlink(folder, from, to);
}

bool is_link(int folder, const std::string& name)
{
    struct stat details { };
    return fstatat(folder, name.c_str(), &details, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(details.st_mode);
}

// Part by part, for the system looks at no more than the last one of a path for links.
int open_without_links(const std::string& path)
{
    constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;
    int opened = ::open(path.starts_with('/') ? "/" : ".", flags);
    for (std::size_t start = 0; opened >= 0 && start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string part = path.substr(start, end - start);
        start = end + 1;
        if (part.empty())
            continue;
        const int parent = opened;
        opened = openat(parent, part.c_str(), flags);
        const int error = opened < 0 && is_link(parent, part) ? ELOOP : errno;
        close(parent);
        errno = error;
    }
    return opened;
}

} // namespace

EntryMover::~EntryMover()
{
    if (open_folder_ >= 0)
        close(open_folder_);
}

std::error_code EntryMover::open(std::string_view folder)
{
    if (open_folder_ >= 0 && folder == open_path_)
        return {};
    const std::string path(folder);
    const int opened = links_ == FolderLinks::Refuse ? open_without_links(path)
                                                     : ::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return last_error();
    if (open_folder_ >= 0)
        close(open_folder_);
    open_folder_ = opened;
    open_path_ = path;
    return {};
}

std::error_code EntryMover::move(std::string_view folder, const std::string& from, const std::string& to)
{
    if (const std::error_code error = open(folder))
        return error;
    if (renameat2(open_folder_, from.c_str(), open_folder_, to.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    std::error_code error = last_error();
    if (says_not_supported(error)) {
        did_without_ = true;
        error = move_without_exclusive_rename(open_folder_, from, to);
    }
    if (!is_in_the_way(error))
        return error;
    if (are_one_entry(open_folder_, from, to))
        return result_of(renameat(open_folder_, from.c_str(), open_folder_, to.c_str()));
    return std::make_error_code(std::errc::file_exists);
}

bool EntryMover::exists(std::string_view folder, const std::string& name, std::error_code& error)
{
    error = open(folder);
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
        error.clear(); // then the entry is certainly not there
    else if (!error) {
        struct stat details { };
        if (fstatat(open_folder_, name.c_str(), &details, AT_SYMLINK_NOFOLLOW) == 0)
            return true;
        if (errno != ENOENT)
            error = last_error();
    }
    return false;
}

} // namespace multirename
