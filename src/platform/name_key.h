#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// The upper case of a name, unit for unit, by which names are compared and looked up: the length never changes. On
/// Windows it is the system's own upper-casing of file names; elsewhere Unicode's simple upper-casing, whatever the
/// locale.
[[nodiscard]] std::u16string name_key(std::u16string_view name);

} // namespace multirename
