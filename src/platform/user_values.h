#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace multirename {

/// The per-user store of small numbers: keys are paths with "\" between their parts, each key holds named values.
/// Nothing is cached; every call goes to the store.
class UserValues {
public:
    virtual ~UserValues() = default;
    UserValues() = default;
    UserValues(const UserValues&) = delete;
    UserValues& operator=(const UserValues&) = delete;

    /// The 32-bit value, or nothing when the key or the value is absent or is of another type.
    [[nodiscard]] virtual std::optional<std::uint32_t> read(std::u16string_view key, std::u16string_view value) = 0;

    /// Writes the 32-bit value, making the key and those above it when they are absent. False when the store refuses.
    virtual bool write(std::u16string_view key, std::u16string_view value, std::uint32_t number) = 0;
};

/// The current user's store: under HKEY_CURRENT_USER on Windows; elsewhere the file multirename/settings.json in
/// $XDG_CONFIG_HOME, or in ~/.config when that is not set.
[[nodiscard]] UserValues& system_user_values();

} // namespace multirename
