#include "fileset/filename.h"

namespace multirename {

std::u16string_view base_name(std::u16string_view name) noexcept { return name.substr(0, name.rfind(u'.')); }

std::u16string_view extension_of(std::u16string_view name) noexcept { return name.substr(base_name(name).size()); }

} // namespace multirename
