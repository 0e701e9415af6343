#include "win32/controls/name_part_button.h"

namespace multirename {

std::u16string_view CNamePartButton::tooltip(NamePartKind kind) noexcept
{
    if (kind == NamePartKind::Number)
        return u"Change number part settings (right-click for options)";
    return u"Change wild text part settings (right-click for options)";
}

} // namespace multirename
