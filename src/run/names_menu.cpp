#include "run/names_menu.h"

namespace multirename {

std::u16string names_menu_text(std::u16string_view text, std::size_t selected_rows)
{
    constexpr std::u16string_view ending = u"(s)";
    std::u16string result;
    for (std::size_t place = text.find(ending); place != std::u16string_view::npos; place = text.find(ending)) {
        result.append(text.substr(0, place)).append(selected_rows == 1 ? u"" : u"s");
        text.remove_prefix(place + ending.size());
    }
    return result.append(text);
}

} // namespace multirename
