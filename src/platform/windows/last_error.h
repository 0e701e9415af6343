#pragma once

#include <windows.h>

#include <system_error>

namespace multirename {

/// Why the system's last call that failed did so.
[[nodiscard]] inline std::error_code last_error() noexcept
{
    return {static_cast<int>(GetLastError()), std::system_category()};
}

} // namespace multirename
