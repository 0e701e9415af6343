// The identifiers of the service are defined here, by its header, so that no further library is linked.
#define INITGUID

#include "win32/framework/accessible_names.h"

#include <oleacc.h>

#include "platform/windows/wide.h"

namespace multirename {

namespace {

constexpr DWORD client_object = static_cast<DWORD>(OBJID_CLIENT);

} // namespace

AccessibleNames::AccessibleNames() noexcept = default;

AccessibleNames::~AccessibleNames() { clear(); }

void AccessibleNames::set(HWND control, std::u16string_view name)
{
    if (!service_)
        service_ = find_object<IAccPropServices>(CLSID_AccPropServices, IID_IAccPropServices);
    if (!service_)
        return;
    const std::wstring wide = to_wide(name);
    if (SUCCEEDED(service_.get()->SetHwndPropStr(control, client_object, CHILDID_SELF, PROPID_ACC_NAME, wide.c_str())))
        named_.push_back(control);
}

void AccessibleNames::clear() noexcept
{
    for (const HWND control : named_) {
        MSAAPROPID name = PROPID_ACC_NAME;
        service_.get()->ClearHwndProps(control, client_object, CHILDID_SELF, &name, 1);
    }
    named_.clear();
}

} // namespace multirename
