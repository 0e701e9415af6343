#include "support/program_file.h"

#include <algorithm>
#include <cctype>
#include <span>

#include <gtest/gtest.h>

namespace {

template <class Record>
const Record* at(HMODULE module, DWORD offset)
{
    return reinterpret_cast<const Record*>(reinterpret_cast<const char*>(module) + offset);
}

DWORD directory(HMODULE module, int index)
{
    const auto* const headers =
        at<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    return headers->OptionalHeader.DataDirectory[index].VirtualAddress;
}

} // namespace

std::vector<std::string> exported_names(HMODULE module)
{
    const auto* const exports = at<IMAGE_EXPORT_DIRECTORY>(module, directory(module, IMAGE_DIRECTORY_ENTRY_EXPORT));
    EXPECT_EQ(exports->NumberOfFunctions, exports->NumberOfNames) << "a nameless export";
    std::vector<std::string> names;
    for (const DWORD name : std::span(at<DWORD>(module, exports->AddressOfNames), exports->NumberOfNames))
        names.emplace_back(at<char>(module, name));
    return names;
}

std::vector<std::string> imported_libraries(HMODULE module)
{
    std::vector<std::string> names;
    const auto* import = at<IMAGE_IMPORT_DESCRIPTOR>(module, directory(module, IMAGE_DIRECTORY_ENTRY_IMPORT));
    for (; import->Name != 0; ++import) {
        std::string name = at<char>(module, import->Name);
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        names.push_back(std::move(name));
    }
    return names;
}
