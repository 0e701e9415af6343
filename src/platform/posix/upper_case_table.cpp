#include "platform/upper_case_table.h"

#include <clocale>
#include <cwctype>

namespace multirename {

UpperCaseTable make_upper_case_table()
{
    UpperCaseTable table{};
    const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    for (std::size_t unit = 0; unit < table.size(); ++unit) {
        const auto code = static_cast<wint_t>(unit);
        wint_t upper = code;
        if (locale != nullptr)
            upper = towupper_l(code, locale);
        // As on Windows a letter whose upper case is that of another letter, such as the dotless i, stays itself.
        if (locale != nullptr && towlower_l(upper, locale) != code)
            upper = code;
        else if (code >= L'a' && code <= L'z')
            upper = code - (L'a' - L'A');
        // One unit stays one unit.
        table[unit] = static_cast<char16_t>(upper < table.size() ? upper : code);
    }
    if (locale != nullptr)
        freelocale(locale);
    return table;
}

} // namespace multirename
