#include "platform/name_key.h"

#include <algorithm>

#include "platform/upper_case_table.h"

namespace multirename {

std::u16string name_key(std::u16string_view name)
{
    // Made once: every name is upper-cased on every keystroke, and the system takes tens of calls for one.
    static const UpperCaseTable table = make_upper_case_table();
    std::u16string key(name);
    std::transform(key.begin(), key.end(), key.begin(), [](char16_t unit) { return table[unit]; });
    return key;
}

} // namespace multirename
