#pragma once

#include <string>
#include <system_error>

namespace multirename {

/// What the system says of an error, in the user's language where it speaks that, as UTF-8, without a line end or a
/// period behind it.
[[nodiscard]] std::string error_text(const std::error_code& error);

} // namespace multirename
