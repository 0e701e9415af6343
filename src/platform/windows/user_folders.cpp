#include "platform/user_folders.h"

#include <windows.h>

#include <shlobj.h>

#include <array>

#include "platform/windows/file_handle.h"
#include "platform/windows/full_path.h"
#include "platform/windows/grown_text.h"
#include "platform/windows/last_error.h"
#include "platform/windows/wide.h"
#include "text/wtf8.h"

namespace multirename {

// Whose eyes files are for is said by the rights of the folders that they lie in: the user's application data and the
// user's temporary files are nobody else's.

namespace {

namespace fs = std::filesystem;

UniqueFile make_new_file(const std::wstring& path)
{
    return UniqueFile(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool is_taken(DWORD error) { return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS; }

// Numbered names, each program's own; what an earlier one of the same number has left behind is passed over.
UniqueFile make_file_for_draft(const fs::path& folder, fs::path& path)
{
    constexpr int most_tries = 10'000;
    const std::wstring start = L"multirename-" + std::to_wstring(GetCurrentProcessId()) + L"-";
    for (int number = 1; number <= most_tries; ++number) {
        path = folder / (start + std::to_wstring(number) + L".txt");
        UniqueFile file = make_new_file(path.native());
        if (file || !is_taken(GetLastError()))
            return file;
    }
    return UniqueFile();
}

} // namespace

fs::path user_state_folder()
{
    std::array<wchar_t, MAX_PATH> folder{};
    if (SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder.data()) != S_OK)
        return {};
    return fs::path(folder.data()) / "multirename";
}

std::error_code make_private_folder(const fs::path& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    return error;
}

std::error_code make_draft(std::string_view content, fs::path& path)
{
    const std::wstring folder = grown_text([](wchar_t* text, DWORD size) { return GetTempPathW(size, text); });
    if (folder.empty())
        return last_error();
    fs::path draft;
    UniqueFile file = make_file_for_draft(folder, draft);
    if (!file)
        return last_error();
    if (!write_all(file.get(), content)) {
        const std::error_code error = last_error();
        file = UniqueFile();
        DeleteFileW(draft.c_str());
        return error;
    }
    path = draft;
    return {};
}

std::error_code read_file(const fs::path& path, std::string& content)
{
    constexpr DWORD everyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const UniqueFile file(CreateFileW(long_path(path.native()).c_str(), GENERIC_READ, everyone, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    std::string bytes;
    if (!file || !read_all(file.get(), bytes))
        return last_error();
    content = std::move(bytes);
    return {};
}

std::string native_bytes(const fs::path& path) { return to_wtf8(from_wide(path.native())); }
fs::path path_of_native_bytes(std::string_view bytes) { return {to_wide(from_wtf8(bytes))}; }

} // namespace multirename
