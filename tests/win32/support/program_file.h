#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// The names that a library or program exports, in the order of its table. The file is loaded as one whose sections lie
/// where they belong, not as mere data.
[[nodiscard]] std::vector<std::string> exported_names(HMODULE module);

/// The files of the libraries that it is linked with, in small letters.
[[nodiscard]] std::vector<std::string> imported_libraries(HMODULE module);
