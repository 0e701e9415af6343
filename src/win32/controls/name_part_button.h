#pragma once

#include <string_view>

#include "pattern/name_part.h"
#include "win32/framework/controls.h"

namespace multirename {

/// Stands for a wild or number part in the pattern row; a click asks for the part's settings.
class CNamePartButton : public CButton {
public:
    using CButton::CButton;

    /// What the button's tooltip says.
    [[nodiscard]] static std::u16string_view tooltip(NamePartKind kind) noexcept;
};

} // namespace multirename
