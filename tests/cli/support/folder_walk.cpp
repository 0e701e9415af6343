#include "support/folder_walk.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace multirename {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

// A descriptor of its own, because closing the stream closes the descriptor and reading moves its position.
std::unique_ptr<DIR, CloseFolder> stream_of(int folder)
{
    Descriptor own(checked(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC), "open folder"));
    std::unique_ptr<DIR, CloseFolder> stream(fdopendir(own.get()));
    if (!stream)
        throw std::system_error(errno, std::system_category(), "fdopendir");
    static_cast<void>(own.release());
    return stream;
}

} // namespace

Descriptor open_folder(int parent, const std::string& name)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    return Descriptor(checked(openat(parent, name.c_str(), flags), name.c_str()));
}

std::vector<std::string> names_in_open(int folder)
{
    const auto stream = stream_of(folder);
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = readdir(stream.get())) {
        std::string name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..")
            names.push_back(std::move(name));
        errno = 0;
    }
    if (errno != 0)
        throw std::system_error(errno, std::system_category(), "readdir");
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace multirename
