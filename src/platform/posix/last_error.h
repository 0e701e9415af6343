#pragma once

#include <cerrno>
#include <system_error>

namespace multirename {

/// Why the system's last call that failed did so.
[[nodiscard]] inline std::error_code last_error() noexcept { return {errno, std::system_category()}; }

} // namespace multirename
