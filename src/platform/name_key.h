#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// The upper case of a name, unit for unit, by which names are compared and looked up: the length never changes. On
/// Windows it is the system's own upper-casing of file names; elsewhere the same by Unicode's simple upper-casing,
/// whatever the locale: of letters that share an upper case, such as i and the dotless i, only the one that it leads
/// back to is raised.
[[nodiscard]] std::u16string name_key(std::u16string_view name);

} // namespace multirename
