#pragma once

#include <string>
#include <system_error>

#include "platform/error_text.h"

namespace multirename {

/// Why an entry could not be given a name, in words for the user; `error` is what EntryMover::move gave.
[[nodiscard]] inline std::string move_reason(const std::error_code& error)
{
    if (error == std::errc::file_exists)
        return "a file of the new name has appeared meanwhile";
    if (error == std::errc::no_such_file_or_directory)
        return "it is not there any more";
    if (error == std::errc::too_many_symbolic_link_levels)
        return "a link has taken the place of its folder, or of a folder above that";
    return error_text(error);
}

} // namespace multirename
