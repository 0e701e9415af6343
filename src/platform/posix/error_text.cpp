#include "platform/error_text.h"

namespace multirename {

std::string error_text(const std::error_code& error) { return error.message(); }

} // namespace multirename
