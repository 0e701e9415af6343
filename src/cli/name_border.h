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

    /// The name of an entry as the engine has it: characters that the pattern language does not hold are moved aside.
    [[nodiscard]] std::u16string name(std::string_view bytes) const;
    /// Text that the user has typed: the same bytes, and no character of it is moved aside.
    [[nodiscard]] std::u16string typed(std::string_view bytes) const;
    /// The name as people see it, with every character back in its place.
    [[nodiscard]] std::u16string shown(std::u16string_view name) const;

private:
    Kind kind_;
};

} // namespace multirename
