#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

#include "win32/framework/com.h"

struct IAccPropServices;

namespace multirename {

/// The names under which screen readers announce controls whose text does not say what they are. They are taken back
/// with the object. Where the system offers no such service nothing happens.
class AccessibleNames {
public:
    AccessibleNames() noexcept; // defined where the service's type is known
    AccessibleNames(const AccessibleNames&) = delete;
    AccessibleNames& operator=(const AccessibleNames&) = delete;
    ~AccessibleNames();

    /// Names the control. Only while the thread is in a COM apartment; see ComApartment.
    void set(HWND control, std::u16string_view name);

    /// Takes all names back; to be called before their controls go.
    void clear() noexcept;

private:
    UniqueInterface<IAccPropServices> service_;
    std::vector<HWND> named_;
};

} // namespace multirename
