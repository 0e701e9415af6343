#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// The form of a path that Windows takes beyond 260 characters: "\\?\" in front, "\\?\UNC\" in place of the two
/// backslashes of a network path. A path in that form already is given back as it is.
[[nodiscard]] std::u16string long_path_form(std::u16string_view path);

/// The search text that lists the folder whose path, ending in "\", is given.
[[nodiscard]] std::u16string listing_search_text(std::u16string_view folder_path);

} // namespace multirename
