#include "platform/system_libraries.h"

namespace multirename {

void find_only_system_libraries() noexcept { }

} // namespace multirename
