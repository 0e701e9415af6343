#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// The names that a library or program exports, in the order of its table. The file is loaded as one whose sections lie
/// where they belong, not as mere data.
[[nodiscard]] std::vector<std::string> exported_names(HMODULE module);

/// The files of the libraries that it is linked with, in small letters.
[[nodiscard]] std::vector<std::string> imported_libraries(HMODULE module);

/// What is missing, in words, for the system to keep a mistake with memory from being of use to anybody: addresses that
/// nobody can foretell, out of all that 64 bits allow, and no memory that can be both written and run.
[[nodiscard]] std::vector<std::string> missing_protections(HMODULE module);
