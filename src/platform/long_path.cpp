#include "platform/long_path.h"

namespace multirename {

std::u16string long_path_form(std::u16string_view path)
{
    if (path.starts_with(u"\\\\?\\"))
        return std::u16string(path);
    if (path.starts_with(u"\\\\"))
        return std::u16string(u"\\\\?\\UNC\\").append(path.substr(2));
    return std::u16string(u"\\\\?\\").append(path);
}

std::u16string listing_search_text(std::u16string_view folder_path)
{
    return long_path_form(std::u16string(folder_path).append(u"*"));
}

} // namespace multirename
