#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/unique_handle.h"

namespace multirename {

struct FileTraits {
    static HANDLE none() noexcept { return INVALID_HANDLE_VALUE; } // NOLINT(performance-no-int-to-ptr): Windows' own
    static void close(HANDLE file) noexcept { CloseHandle(file); }
};
/// An open file, pipe or console.
using UniqueFile = UniqueHandle<FileTraits>;

/// Writes all bytes where the file stands. False when that fails; GetLastError() tells why.
inline bool write_all(HANDLE file, std::string_view bytes) noexcept
{
    constexpr std::size_t largest_piece = std::size_t{1} << 20U;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), largest_piece));
        if (WriteFile(file, bytes.data(), size, &written, nullptr) == FALSE)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

/// Appends the bytes from where the file stands to its end, which is for a pipe that its writer goes away. False when
/// that fails; GetLastError() tells why.
inline bool read_all(HANDLE file, std::string& bytes)
{
    std::array<char, 65536> piece{};
    while (true) {
        DWORD length = 0;
        if (ReadFile(file, piece.data(), static_cast<DWORD>(piece.size()), &length, nullptr) == FALSE)
            return GetLastError() == ERROR_BROKEN_PIPE;
        if (length == 0)
            return true;
        bytes.append(piece.data(), length);
    }
}

} // namespace multirename
