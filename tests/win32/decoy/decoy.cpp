// A library that leaves "<its path>.loaded" beside itself when it is loaded, whatever name it has been given.

#include <windows.h>

#include <array>
#include <string>

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID)
{
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(library, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring trace = std::wstring(path.data()) + L".loaded";
    CloseHandle(CreateFileW(trace.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    return TRUE;
}
