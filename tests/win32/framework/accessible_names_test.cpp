#define INITGUID // the identifiers are defined here, by the header below

#include "win32/framework/accessible_names.h"

#include <oleacc.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

// COM's interfaces have no virtual destructor; their objects are never destroyed through them.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// NOLINTBEGIN(cppcoreguidelines-virtual-class-destructor): for the same reason

namespace multirename {
namespace {

/// Stands in for the system's service, which not every system has, and keeps what it is told.
class TestService final : public IAccPropServices {
public:
    std::map<HWND, std::wstring> names;

    HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property, LPCWSTR text) override
    {
        EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
        EXPECT_EQ(child, static_cast<DWORD>(CHILDID_SELF));
        EXPECT_TRUE(IsEqualGUID(property, PROPID_ACC_NAME));
        names[window] = text;
        return S_OK;
    }
    HRESULT WINAPI ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID* properties, int count) override
    {
        EXPECT_EQ(count, 1);
        EXPECT_TRUE(IsEqualGUID(*properties, PROPID_ACC_NAME));
        EXPECT_TRUE(IsWindow(window)) << "the name is to go before its window";
        names.erase(window);
        return S_OK;
    }

    // It lives as long as the test.
    HRESULT WINAPI QueryInterface(REFIID, void** object) override
    {
        *object = this;
        return S_OK;
    }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }

    // What nobody should need.
    using Bytes = const BYTE*;
    using Properties = const MSAAPROPID*;
    HRESULT WINAPI SetPropValue(Bytes, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetPropServer(Bytes, DWORD, Properties, int, IAccPropServer*, AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearProps(Bytes, DWORD, Properties, int) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, Properties, int, IAccPropServer*, AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI DecomposeHwndIdentityString(Bytes, DWORD, HWND*, DWORD*, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, Properties, int, IAccPropServer*, AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, Properties, int) override { return E_NOTIMPL; }
    HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI DecomposeHmenuIdentityString(Bytes, DWORD, HMENU*, DWORD*) override { return E_NOTIMPL; }
};

class TestFactory final : public IClassFactory {
public:
    explicit TestFactory(TestService& service) noexcept : service_(service) { }
    HRESULT WINAPI QueryInterface(REFIID, void** object) override
    {
        *object = this;
        return S_OK;
    }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI CreateInstance(IUnknown*, REFIID interface_id, void** object) override
    {
        return service_.QueryInterface(interface_id, object);
    }
    HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

private:
    TestService& service_;
};

class AccessibleNamesTest : public testing::Test {
protected:
    AccessibleNamesTest()
    {
        EXPECT_EQ(CoRegisterClassObject(CLSID_AccPropServices, &factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                        &registration_),
                  S_OK);
    }
    ~AccessibleNamesTest() override
    {
        CoRevokeClassObject(registration_);
        DestroyWindow(window);
    }

    ComApartment apartment;
    TestService service;
    HWND window = CreateWindowExW(0, L"BUTTON", L"*", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);

private:
    TestFactory factory_{service};
    DWORD registration_ = 0;
};

using Names = std::map<HWND, std::wstring>;

} // namespace

TEST_F(AccessibleNamesTest, AreToldToTheSystem)
{
    AccessibleNames names;
    names.set(window, u"Wild part 1");
    EXPECT_EQ(service.names, (Names{{window, L"Wild part 1"}}));
}

TEST_F(AccessibleNamesTest, AreTakenBackWhenTheyAreCleared)
{
    AccessibleNames names;
    names.set(window, u"Wild part 1");
    names.clear();
    EXPECT_EQ(service.names, Names());
    names.set(window, u"Wild part 2");
    EXPECT_EQ(service.names, (Names{{window, L"Wild part 2"}}));
}

TEST_F(AccessibleNamesTest, AreTakenBackWithTheirObject)
{
    {
        AccessibleNames names;
        names.set(window, u"Wild part 1");
    }
    EXPECT_EQ(service.names, Names());
}

TEST(AccessibleNamesWithoutAService, AreNoFailure)
{
    AccessibleNames names; // and the thread has no COM either
    EXPECT_NO_THROW(names.set(GetDesktopWindow(), u"Desktop"));
    names.clear();
}

} // namespace multirename

// NOLINTEND(cppcoreguidelines-virtual-class-destructor)
