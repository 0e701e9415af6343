#include "platform/entry_path.h"

#include <sys/stat.h>

#include <cstdlib>
#include <memory>

#include "platform/posix/last_error.h"
#include "text/posix_name.h"

namespace multirename {

namespace {

struct Free {
    void operator()(char* memory) const noexcept { std::free(memory); } // NOLINT: realpath gives memory of malloc's
};

std::string_view without_trailing_slashes(std::string_view path)
{
    while (path.ends_with('/'))
        path.remove_suffix(1);
    return path;
}

} // namespace

std::error_code EntryPaths::entry(std::string_view native_path, EntryPath& path)
{
    const std::string_view trimmed = without_trailing_slashes(native_path);
    const std::size_t slash = trimmed.rfind('/');
    const std::string_view name = trimmed.substr(slash + 1);
    if (name.empty() || name == "." || name == "..")
        return std::make_error_code(std::errc::invalid_argument);
    std::string_view parent = ".";
    if (slash != std::string_view::npos)
        parent = native_path.substr(0, slash + 1);
    std::u16string found;
    if (const std::error_code error = folder(parent, found))
        return error;
    path = {std::move(found), name_from_bytes(name)};
    return {};
}

std::error_code EntryPaths::find_folder(std::string_view native_path, FoundFolder& found)
{
    const std::string given(native_path);
    const std::unique_ptr<char, Free> resolved(realpath(given.c_str(), nullptr));
    if (resolved == nullptr)
        return last_error();
    struct stat details { };
    if (stat(resolved.get(), &details) != 0)
        return last_error();
    if (!S_ISDIR(details.st_mode))
        return std::make_error_code(std::errc::not_a_directory);
    std::string bytes = resolved.get();
    if (!bytes.ends_with('/'))
        bytes.push_back('/');
    found = {path_from_bytes(bytes), std::to_string(details.st_dev) + " " + std::to_string(details.st_ino)};
    return {};
}

} // namespace multirename
