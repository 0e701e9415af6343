#pragma once

#include <windows.h>

#include <combaseapi.h>

#include "platform/unique_handle.h"

namespace multirename {

/// COM on this thread for as long as the object lives. A thread that has it already keeps what it has.
class ComApartment {
public:
    ComApartment() noexcept : entered_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) { }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment()
    {
        if (SUCCEEDED(entered_))
            CoUninitialize();
    }

private:
    HRESULT entered_; // fails where the thread is in an apartment of another kind, which does as well
};

template <class Interface>
struct InterfaceTraits {
    static Interface* none() noexcept { return nullptr; }
    static void close(Interface* object) noexcept { object->Release(); }
};
template <class Interface>
using UniqueInterface = UniqueHandle<InterfaceTraits<Interface>>;

/// A new object of a class that the system registers; none when there is none.
template <class Interface>
[[nodiscard]] UniqueInterface<Interface> find_object(const CLSID& object_class, const IID& interface_id) noexcept
{
    void* object = nullptr;
    if (FAILED(CoCreateInstance(object_class, nullptr, CLSCTX_INPROC_SERVER, interface_id, &object)))
        object = nullptr;
    return UniqueInterface<Interface>(static_cast<Interface*>(object));
}

} // namespace multirename
