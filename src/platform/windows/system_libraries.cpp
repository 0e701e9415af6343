#include "platform/system_libraries.h"

#include <windows.h>

#include <bit>

namespace multirename {

void find_only_system_libraries() noexcept
{
    using SetFolders = BOOL(WINAPI*)(DWORD);
    const auto set_folders =
        std::bit_cast<SetFolders>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories"));
    if (set_folders == nullptr || set_folders(LOAD_LIBRARY_SEARCH_SYSTEM32) == FALSE)
        SetDllDirectoryW(L"");
}

} // namespace multirename
