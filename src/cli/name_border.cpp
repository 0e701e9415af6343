#include "cli/name_border.h"

#include "platform/native_text.h"
#include "text/posix_name.h"

namespace multirename {

std::u16string NameBorder::name(std::string_view bytes) const
{
    return kind_ == Kind::List ? name_from_bytes(bytes) : name_from_native(bytes);
}

std::u16string NameBorder::typed(std::string_view bytes) const
{
    return kind_ == Kind::List ? typed_from_bytes(bytes) : typed_from_native(bytes);
}

std::u16string NameBorder::shown(std::u16string_view name) const
{
    return kind_ == Kind::List ? shown_name(name) : shown_native_name(name);
}

} // namespace multirename
