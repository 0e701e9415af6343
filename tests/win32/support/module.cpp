#include "support/module.h"

#include <array>
#include <bit>
#include <stdexcept>
#include <string>

Module::Module()
{
    std::array<wchar_t, MAX_PATH> program = {};
    const DWORD length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring path(program.data(), length);
    path.resize(path.rfind(L'\\') + 1);
    library_ = LoadLibraryW((path + L"multirename.dll").c_str());
    if (library_ == nullptr)
        throw std::runtime_error("multirename.dll cannot be loaded from beside the tests");
    run_ = std::bit_cast<decltype(&run_multirename)>(GetProcAddress(library_, "run_multirename"));
    if (run_ == nullptr)
        throw std::runtime_error("multirename.dll has no run_multirename");
}

Module::~Module() { FreeLibrary(library_); }
