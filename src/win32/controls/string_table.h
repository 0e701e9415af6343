#pragma once

#include <string>

#include "run/messages.h"

namespace multirename {

/// A text of the module's string table.
[[nodiscard]] std::u16string string_table_text(MessageId id);

} // namespace multirename
