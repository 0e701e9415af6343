#include "platform/user_folders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/posix/last_error.h"

namespace multirename {

namespace {

namespace fs = std::filesystem;

// Only paths from the root count, as the convention of these variables has it.
fs::path folder_of_variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? fs::path(value) : fs::path();
}

fs::path home_folder()
{
    if (fs::path home = folder_of_variable("HOME"); !home.empty())
        return home;
    const passwd* user = getpwuid(geteuid());
    return user != nullptr && user->pw_dir != nullptr && *user->pw_dir == '/' ? fs::path(user->pw_dir) : fs::path();
}

} // namespace

fs::path user_state_folder()
{
    fs::path state = folder_of_variable("XDG_STATE_HOME");
    if (state.empty()) {
        const fs::path home = home_folder();
        if (home.empty())
            return {};
        state = home / ".local" / "state";
    }
    return state / "multirename";
}

std::error_code make_private_folder(const fs::path& folder)
{
    constexpr mode_t owner_only = 0700;
    fs::path made;
    for (const fs::path& part : folder) {
        made /= part;
        if (mkdir(made.c_str(), owner_only) == 0 || errno == EEXIST)
            continue;
        // Where nothing may be made, the system may say so even of what is there.
        const std::error_code error = last_error();
        std::error_code ignored;
        if (!fs::is_directory(made, ignored))
            return error;
    }
    std::error_code error;
    const bool is_made = fs::is_directory(folder, error);
    return is_made || error ? error : std::make_error_code(std::errc::not_a_directory);
}

std::error_code make_draft(std::string_view content, fs::path& path)
{
    constexpr int length_of_ending = 4;
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    if (error)
        return error;
    std::string name = (folder / "multirename-XXXXXX.txt").string();
    const int file = mkstemps(name.data(), length_of_ending);
    if (file < 0)
        return last_error();
    close(file);
    std::ofstream stream(name, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) {
        unlink(name.c_str());
        return std::make_error_code(std::errc::io_error);
    }
    path = name;
    return {};
}

std::error_code read_file(const fs::path& path, std::string& content)
{
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        return last_error();
    if (fs::is_directory(path))
        return std::make_error_code(std::errc::is_a_directory);
    content.assign(std::istreambuf_iterator<char>(stream), {});
    return stream.bad() ? std::make_error_code(std::errc::io_error) : std::error_code();
}

std::string native_bytes(const fs::path& path) { return path.string(); }
fs::path path_of_native_bytes(std::string_view bytes) { return {bytes}; }

} // namespace multirename
