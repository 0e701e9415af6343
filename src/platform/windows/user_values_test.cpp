#include "platform/user_values.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/testing/user_values_sandbox.h"
#include "platform/windows/wide.h"

namespace multirename {

namespace {

constexpr const wchar_t* company_key = L"SOFTWARE\\Velloria Labs";

bool key_exists(const std::wstring& path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

} // namespace

struct UserValuesSandbox::Body {
    std::u16string product = u"Unit Test " + from_wide(std::to_wstring(GetCurrentProcessId()));
    bool company_existed = key_exists(company_key);

    ~Body()
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, (std::wstring(company_key) + L"\\" + to_wide(product)).c_str());
        if (!company_existed)
            RegDeleteKeyW(HKEY_CURRENT_USER, company_key);
    }
};

UserValuesSandbox::UserValuesSandbox() : body_(std::make_unique<Body>()) { }
UserValuesSandbox::~UserValuesSandbox() = default;

std::u16string UserValuesSandbox::product_name() const { return body_->product; }

bool UserValuesSandbox::has_key(std::u16string_view key) const { return key_exists(to_wide(key)); }

void UserValuesSandbox::store_text(std::u16string_view key, std::u16string_view value) const
{
    const wchar_t text[] = L"text";
    RegSetKeyValueW(HKEY_CURRENT_USER, to_wide(key).c_str(), to_wide(value).c_str(), REG_SZ, text, sizeof text);
}

namespace {

TEST(RegistryUserValues, AreStoredAs32BitNumbersUnderTheCurrentUser)
{
    const UserValuesSandbox sandbox;
    ASSERT_TRUE(system_user_values().write(sandbox.product_key(), u"Number", 0x80000001));
    DWORD type = 0;
    DWORD number = 0;
    DWORD size = sizeof number;
    ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, to_wide(sandbox.product_key()).c_str(), L"Number", RRF_RT_ANY, &type,
                           &number, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_EQ(number, 0x80000001U);
}

TEST(RegistryUserValues, FourBytesOfAnotherTypeAreNone)
{
    const UserValuesSandbox sandbox;
    const DWORD bytes = 5;
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, to_wide(sandbox.product_key()).c_str(), L"Number", REG_BINARY, &bytes,
                              sizeof bytes),
              ERROR_SUCCESS);
    EXPECT_EQ(system_user_values().read(sandbox.product_key(), u"Number"), std::nullopt);
}

} // namespace
} // namespace multirename
