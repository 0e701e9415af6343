#include "win32/launcher/program_paths.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>

#include "platform/long_path.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/full_path.h"
#include "platform/windows/wide.h"
#include "win32/launcher/system_text.h"

namespace multirename {

namespace {

Problem unreadable(std::u16string_view path, DWORD error)
{
    return {std::u16string(u"The list file cannot be read:\n\n")
                .append(path)
                .append(u"\n")
                .append(system_text(error))
                .append(u"\n\nCheck the name behind the \"@\". A path that itself begins with \"@\" goes behind the "
                        u"word \"--\".")};
}

bool is_root(const std::wstring& path) { return PathIsRootW(path.c_str()) != FALSE; }

} // namespace

std::u16string full_path(std::u16string_view path)
{
    std::wstring full = full_path_name(to_wide(path));
    if (full.empty())
        return std::u16string(path);
    while (full.ends_with(L'\\') && !is_root(full))
        full.pop_back();
    return from_wide(full);
}

std::optional<WhyLeftOut> why_left_out(std::u16string_view full_path)
{
    if (GetFileAttributesW(to_wide(long_path_form(full_path)).c_str()) == INVALID_FILE_ATTRIBUTES)
        return WhyLeftOut::NotFound;
    if (is_root(to_wide(full_path)))
        return WhyLeftOut::NoName;
    if (full_path.size() >= first_too_long_path)
        return WhyLeftOut::TooLong;
    return std::nullopt;
}

OrProblem<std::string> list_file_bytes(std::u16string_view full_path)
{
    constexpr DWORD everyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const UniqueFile file(CreateFileW(to_wide(long_path_form(full_path)).c_str(), GENERIC_READ, everyone, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        return unreadable(full_path, GetLastError());
    std::string bytes;
    std::array<char, 65536> piece{};
    DWORD length = 0;
    do {
        if (ReadFile(file.get(), piece.data(), static_cast<DWORD>(piece.size()), &length, nullptr) == FALSE)
            return unreadable(full_path, GetLastError());
        bytes.append(piece.data(), length);
    } while (length != 0);
    return bytes;
}

std::u16string program_path()
{
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return from_wide(std::wstring_view(path).substr(0, length));
        path.resize(path.size() * 2);
    }
}

std::u16string program_folder()
{
    std::u16string path = program_path();
    path.resize(path.rfind(u'\\') + 1);
    return path;
}

} // namespace multirename
