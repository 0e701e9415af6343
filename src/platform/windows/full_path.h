#pragma once

#include <windows.h>

#include <string>

#include "platform/long_path.h"
#include "platform/windows/grown_text.h"
#include "platform/windows/wide.h"

namespace multirename {

/// The number of characters from which on Windows' own rename takes no path.
inline constexpr std::size_t first_too_long_path = 260;

/// The path, relative ones taken from the working directory, as Windows spells it in full. Empty when it cannot;
/// GetLastError() tells why.
[[nodiscard]] inline std::wstring full_path_name(const std::wstring& path)
{
    return grown_text(
        [&path](wchar_t* text, DWORD size) { return GetFullPathNameW(path.c_str(), size, text, nullptr); });
}

/// The path in full and in the form in which the system's calls take it at any length.
[[nodiscard]] inline std::wstring long_path(const std::wstring& path)
{
    return to_wide(long_path_form(from_wide(full_path_name(path))));
}

} // namespace multirename
