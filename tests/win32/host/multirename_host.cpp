// The smallest program that lets its user rename files: it hands the paths of its command line to the module.
//     multirename_host.exe PATH...
// Relative paths are taken from the working directory.

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "multirename.h"

namespace {

std::wstring full_path(const wchar_t* path)
{
    std::wstring full(GetFullPathNameW(path, 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path, static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

int main()
{
    SetProcessDPIAware();
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> paths;
    for (int i = 1; i < count; ++i)
        paths.push_back(full_path(arguments[i]));
    LocalFree(arguments);

    std::vector<const wchar_t*> pointers;
    pointers.reserve(paths.size());
    for (const std::wstring& path : paths)
        pointers.push_back(path.c_str());
    const HWND window = CreateWindowExW(0, L"STATIC", L"Multi Rename host", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                                        nullptr, nullptr, nullptr, nullptr);
    run_multirename(window, static_cast<INT32>(pointers.size()), pointers.data(), 0, nullptr);
    DestroyWindow(window);
    return 0;
}
