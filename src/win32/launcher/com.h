#pragma once

#include <windows.h>

#include <combaseapi.h>

#include <system_error>

#include "win32/framework/com.h"

namespace multirename {

/// Throws std::system_error with the code when it says that something failed.
inline void require(HRESULT result)
{
    if (FAILED(result))
        throw std::system_error(result, std::system_category());
}

struct TaskTextTraits {
    static wchar_t* none() noexcept { return nullptr; }
    static void close(wchar_t* text) noexcept { CoTaskMemFree(text); }
};
/// Text that COM has allocated for its caller.
using UniqueTaskText = UniqueHandle<TaskTextTraits>;

/// A new object of a class that the system registers; throws std::system_error when there is none.
template <class Interface>
[[nodiscard]] UniqueInterface<Interface> create_object(const CLSID& object_class)
{
    Interface* object = nullptr;
    require(CoCreateInstance(object_class, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
    return UniqueInterface<Interface>(object);
}

} // namespace multirename
