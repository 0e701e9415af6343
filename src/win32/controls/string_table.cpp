#include "win32/controls/string_table.h"

#include "win32/framework/module.h"

namespace multirename {

std::u16string string_table_text(MessageId id) { return load_text(static_cast<UINT>(id)); }

} // namespace multirename
