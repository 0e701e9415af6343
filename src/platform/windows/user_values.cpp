#include "platform/user_values.h"

#include <windows.h>

#include "platform/unique_handle.h"
#include "platform/windows/wide.h"

namespace multirename {

namespace {

struct KeyTraits {
    static HKEY none() noexcept { return nullptr; }
    static void close(HKEY key) noexcept { RegCloseKey(key); }
};
using Key = UniqueHandle<KeyTraits>;

class RegistryValues final : public UserValues {
public:
    std::optional<std::uint32_t> read(std::u16string_view key_path, std::u16string_view value) override
    {
        HKEY opened = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, to_wide(key_path).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
            return std::nullopt;
        const Key key(opened);
        DWORD type = 0;
        DWORD number = 0;
        DWORD size = sizeof number;
        const LSTATUS result = RegQueryValueExW(key.get(), to_wide(value).c_str(), nullptr, &type,
                                                reinterpret_cast<BYTE*>(&number), &size);
        if (result != ERROR_SUCCESS || type != REG_DWORD)
            return std::nullopt;
        return number;
    }

    bool write(std::u16string_view key_path, std::u16string_view value, std::uint32_t number) override
    {
        HKEY created = nullptr;
        if (RegCreateKeyExW(HKEY_CURRENT_USER, to_wide(key_path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                            KEY_WRITE, nullptr, &created, nullptr) != ERROR_SUCCESS)
            return false;
        const Key key(created);
        const DWORD stored = number;
        return RegSetValueExW(key.get(), to_wide(value).c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&stored),
                              sizeof stored) == ERROR_SUCCESS;
    }
};

} // namespace

UserValues& system_user_values()
{
    static RegistryValues values;
    return values;
}

} // namespace multirename
