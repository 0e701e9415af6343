#pragma once

#include <string>

namespace multirename {

/// The manual page multirename(1) as source in the macros of man(7), ASCII throughout.
[[nodiscard]] std::string manual_page();

} // namespace multirename
