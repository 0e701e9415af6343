#pragma once

#include <windows.h>

#include "platform/unique_handle.h"

namespace multirename {

struct FileTraits {
    static HANDLE none() noexcept { return INVALID_HANDLE_VALUE; } // NOLINT(performance-no-int-to-ptr): Windows' own
    static void close(HANDLE file) noexcept { CloseHandle(file); }
};
/// An open file, pipe or console.
using UniqueFile = UniqueHandle<FileTraits>;

} // namespace multirename
