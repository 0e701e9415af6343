#include "support/program_file.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <span>

#include <gtest/gtest.h>

namespace {

template <class Record>
const Record* at(HMODULE module, DWORD offset)
{
    return reinterpret_cast<const Record*>(reinterpret_cast<const char*>(module) + offset);
}

const IMAGE_NT_HEADERS64& headers(HMODULE module)
{
    return *at<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
}

DWORD directory(HMODULE module, int index)
{
    return headers(module).OptionalHeader.DataDirectory[index].VirtualAddress;
}

std::span<const IMAGE_SECTION_HEADER> sections(HMODULE module)
{
    const IMAGE_FILE_HEADER& file = headers(module).FileHeader;
    const std::size_t offset = offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + file.SizeOfOptionalHeader;
    const auto* const start = reinterpret_cast<const char*>(&headers(module)) + offset;
    return {reinterpret_cast<const IMAGE_SECTION_HEADER*>(start), file.NumberOfSections};
}

// Addresses in the module that are put right wherever it comes to lie.
std::size_t relocation_count(HMODULE module)
{
    const IMAGE_DATA_DIRECTORY& all = headers(module).OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC];
    std::size_t count = 0;
    for (DWORD offset = 0; offset < all.Size;) {
        const auto* const block = at<IMAGE_BASE_RELOCATION>(module, all.VirtualAddress + offset);
        const DWORD first = all.VirtualAddress + offset + static_cast<DWORD>(sizeof *block);
        for (DWORD place = first; place < all.VirtualAddress + offset + block->SizeOfBlock; place += sizeof(WORD)) {
            if (*at<WORD>(module, place) >> 12 == IMAGE_REL_BASED_DIR64)
                ++count;
        }
        offset += block->SizeOfBlock;
    }
    return count;
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

std::vector<std::string> missing_protections(HMODULE module)
{
    std::vector<std::string> missing;
    const auto require = [&missing](bool is_met, const std::string& what) {
        if (!is_met)
            missing.push_back(what);
    };
    constexpr ULONGLONG four_gigabytes = 1ULL << 32;
    const IMAGE_OPTIONAL_HEADER64& wanted = headers(module).OptionalHeader;
    require((wanted.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE) != 0, "any address");
    require((wanted.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA) != 0, "any 64-bit address");
    require((wanted.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_NX_COMPAT) != 0, "no code in data");
    require((headers(module).FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED) == 0, "relocations kept");
    require(relocation_count(module) > 0, "relocations");
    require(wanted.ImageBase >= four_gigabytes, "a place above 4 GB");
    for (const IMAGE_SECTION_HEADER& section : sections(module)) {
        constexpr DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        require((section.Characteristics & both) != both, "code or data, not both, in a section");
    }
    return missing;
}
