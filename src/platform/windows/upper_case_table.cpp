#include "platform/upper_case_table.h"

#include <windows.h>

#include <algorithm>
#include <vector>

namespace multirename {

// Without a linguistic flag the system upper-cases by the rules of its file systems, unit for unit, so one call over
// every unit there is gives the whole table.
UpperCaseTable make_upper_case_table()
{
    UpperCaseTable table{};
    std::vector<wchar_t> units(table.size());
    for (std::size_t unit = 0; unit < units.size(); ++unit)
        units[unit] = static_cast<wchar_t>(unit);
    const auto count = static_cast<int>(units.size());
    std::vector<wchar_t> upper = units;
    const int mapped = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, units.data(), count, upper.data(), count,
                                     nullptr, nullptr, 0);
    if (mapped != count) {
        upper = units;
        CharUpperBuffW(upper.data(), static_cast<DWORD>(count));
    }
    std::transform(upper.begin(), upper.end(), table.begin(), [](wchar_t unit) { return static_cast<char16_t>(unit); });
    return table;
}

} // namespace multirename
