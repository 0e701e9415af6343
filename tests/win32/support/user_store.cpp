#include "support/user_store.h"

#include <stdexcept>

#include "platform/windows/wide.h"

namespace {

constexpr const wchar_t* tests_key = L"Software\\multirename_tests";
constexpr const wchar_t* module_key = L"SOFTWARE\\Velloria Labs\\Tallyhand";

} // namespace

EmptyUserStore::EmptyUserStore()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, tests_key);
    if (RegCreateKeyExW(HKEY_CURRENT_USER, tests_key, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &key_, nullptr) != ERROR_SUCCESS ||
        RegOverridePredefKey(HKEY_CURRENT_USER, key_) != ERROR_SUCCESS)
        throw std::runtime_error("the user's registry cannot be put aside");
}

EmptyUserStore::~EmptyUserStore()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(key_, nullptr);
    RegCloseKey(key_);
    RegDeleteKeyW(HKEY_CURRENT_USER, tests_key);
}

std::optional<std::uint32_t> EmptyUserStore::stored(std::u16string_view name)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, module_key, multirename::to_wide(name).c_str(),
                                        RRF_RT_REG_DWORD, nullptr, &number, &size);
    return status == ERROR_SUCCESS ? std::optional<std::uint32_t>(number) : std::nullopt;
}

void EmptyUserStore::store(std::u16string_view name, std::uint32_t number)
{
    RegSetKeyValueW(HKEY_CURRENT_USER, module_key, multirename::to_wide(name).c_str(), REG_DWORD, &number,
                    sizeof number);
}
