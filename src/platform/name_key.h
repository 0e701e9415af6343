#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace multirename {

/// The upper case of a name, unit for unit, by which names are compared and looked up: the length never changes. On
/// Windows it is the system's own upper-casing of file names; elsewhere the same by Unicode's simple upper-casing,
/// whatever the locale: of letters that share an upper case, such as i and the dotless i, only the one that it leads
/// back to is raised.
[[nodiscard]] std::u16string name_key(std::u16string_view name);

/// The same into `key`, whose room is used again.
void name_key(std::u16string_view name, std::u16string& key);

/// How the keys of two names compare, without making them: below 0, 0 or above 0, as `std::u16string::compare` has it.
[[nodiscard]] int compare_keys(std::u16string_view a, std::u16string_view b) noexcept;

/// Four units of the key from `start` on, as one number that sorts as they do; zeros stand for units beyond the end.
[[nodiscard]] std::uint64_t key_word(std::u16string_view name, std::size_t start) noexcept;

/// Whether two names have one key.
[[nodiscard]] bool have_one_key(std::u16string_view a, std::u16string_view b) noexcept;

/// A number that is the same for names with one key, and seldom for others.
[[nodiscard]] std::uint64_t key_hash(std::u16string_view name) noexcept;

/// A number that is the same for equal names, and seldom for others.
[[nodiscard]] std::uint64_t name_hash(std::u16string_view name) noexcept;

} // namespace multirename
