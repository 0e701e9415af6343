#include "support/decoys.h"

#include <windows.h>

#include <array>
#include <stdexcept>

#include "platform/windows/wide.h"
#include "text/utf8.h"

namespace {

using multirename::to_wide;

// Windows takes what it finds first. Wine takes its own library of that name, unless it is told not to.
constexpr const wchar_t* preferences_key = L"Software\\Wine\\DllOverrides";

std::wstring without_extension(const std::u16string& name) { return to_wide(name.substr(0, name.rfind(u'.'))); }

void prefer_decoy(const std::u16string& name)
{
    constexpr std::wstring_view decoy_first = L"native,builtin";
    RegSetKeyValueW(HKEY_CURRENT_USER, preferences_key, without_extension(name).c_str(), REG_SZ, decoy_first.data(),
                    static_cast<DWORD>((decoy_first.size() + 1) * sizeof(wchar_t)));
}

std::wstring decoy_path()
{
    std::array<wchar_t, MAX_PATH> program{};
    const DWORD length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring path(program.data(), length);
    path.resize(path.rfind(L'\\') + 1);
    return path + L"decoy.dll";
}

} // namespace

Decoys::Decoys(std::u16string folder, std::initializer_list<std::u16string_view> names) :
    folder_(std::move(folder)), names_(names.begin(), names.end())
{
    for (const std::u16string& name : names_) {
        if (CopyFileW(decoy_path().c_str(), to_wide(folder_ + u"\\" + name).c_str(), TRUE) == FALSE)
            throw std::runtime_error("decoy.dll cannot be copied from beside the tests");
        prefer_decoy(name);
    }
}

Decoys::~Decoys()
{
    for (const std::u16string& name : names_) {
        DeleteFileW(to_wide(folder_ + u"\\" + name).c_str());
        DeleteFileW(to_wide(folder_ + u"\\" + name + u".loaded").c_str());
        RegDeleteKeyValueW(HKEY_CURRENT_USER, preferences_key, without_extension(name).c_str());
    }
}

std::vector<std::string> Decoys::loaded() const
{
    std::vector<std::string> loaded;
    for (const std::u16string& name : names_) {
        const std::wstring trace = to_wide(folder_ + u"\\" + name + u".loaded");
        if (GetFileAttributesW(trace.c_str()) != INVALID_FILE_ATTRIBUTES)
            loaded.push_back(multirename::to_bytes(name));
    }
    return loaded;
}
