#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string_view>

/// While it lives, this program has an empty user's registry; what the user has stored is neither seen nor touched.
class EmptyUserStore {
public:
    EmptyUserStore();
    EmptyUserStore(const EmptyUserStore&) = delete;
    EmptyUserStore& operator=(const EmptyUserStore&) = delete;
    ~EmptyUserStore();

    /// A number of the module's, or nothing.
    [[nodiscard]] static std::optional<std::uint32_t> stored(std::u16string_view name);

    /// Stores a number of the module's.
    static void store(std::u16string_view name, std::uint32_t number);

private:
    HKEY key_ = nullptr;
};
