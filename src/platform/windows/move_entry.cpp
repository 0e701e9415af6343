#include "platform/move_entry.h"

#include <windows.h>

#include "platform/long_path.h"
#include "platform/windows/last_error.h"
#include "platform/windows/wide.h"
#include "text/wtf8.h"

namespace multirename {

namespace {

std::wstring path_of(std::string_view folder, std::string_view name)
{
    return to_wide(long_path_form(from_wtf8(folder) + from_wtf8(name)));
}

std::error_code last_error_of_entry()
{
    const std::error_code error = last_error();
    // Who has the entry open denies access to it, as the rights of its folder may.
    if (error.value() == ERROR_SHARING_VIOLATION || error.value() == ERROR_LOCK_VIOLATION)
        return std::make_error_code(std::errc::permission_denied);
    return error;
}

} // namespace

EntryMover::~EntryMover() = default;

std::error_code EntryMover::move(std::string_view folder, const std::string& from, const std::string& to)
{
    if (MoveFileExW(path_of(folder, from).c_str(), path_of(folder, to).c_str(), 0) != FALSE)
        return {};
    return last_error_of_entry();
}

bool EntryMover::exists(std::string_view folder, const std::string& name, std::error_code& error)
{
    error.clear();
    if (GetFileAttributesW(path_of(folder, name).c_str()) != INVALID_FILE_ATTRIBUTES)
        return true;
    error = last_error_of_entry();
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
        error.clear();
    return false;
}

} // namespace multirename
