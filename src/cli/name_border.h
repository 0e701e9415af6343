#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// How names come in and go out: as the system spells them, or, for lists of names that touch no disk, as POSIX does,
/// so that one list gives one plan on every system.
class NameBorder {
public:
    enum class Kind { System, List };
    explicit NameBorder(Kind kind) noexcept : kind_(kind) { }

    [[nodiscard]] std::u16string name(std::string_view bytes) const;
    [[nodiscard]] std::u16string typed(std::string_view bytes) const;
    /// The name as people see it.
    [[nodiscard]] std::u16string shown(std::u16string_view name) const;

private:
    Kind kind_;
};

} // namespace multirename
