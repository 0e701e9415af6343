#include "support/temp_folder.h"

#include <windows.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "platform/windows/wide.h"

namespace {

using multirename::from_wide;
using multirename::to_wide;

// Names of tests may be longer than the system takes without this form.
std::wstring long_form(std::u16string_view path) { return L"\\\\?\\" + to_wide(path); }

struct Entry {
    std::u16string name;
    bool is_folder;
};

std::vector<Entry> entries_of(const std::u16string& folder)
{
    std::vector<Entry> entries;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(long_form(folder + u"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return entries;
    do {
        const std::u16string name = from_wide(found.cFileName);
        if (name != u"." && name != u"..")
            entries.push_back({name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
    return entries;
}

void collect(const std::u16string& folder, const std::u16string& prefix, Files& files)
{
    for (const Entry& entry : entries_of(folder)) {
        const std::u16string path = folder + u"\\" + entry.name;
        if (!entry.is_folder) {
            files[prefix + entry.name] = contents_of(path);
            continue;
        }
        if (entries_of(path).empty())
            files[prefix + entry.name] = u"<folder>";
        collect(path, prefix + entry.name + u"\\", files);
    }
}

void write(const std::u16string& path, DWORD disposition, std::string_view bytes)
{
    const HANDLE file = CreateFileW(long_form(path).c_str(), GENERIC_WRITE, 0, nullptr, disposition, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("the file cannot be made");
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

void remove_tree(const std::u16string& folder)
{
    for (const Entry& entry : entries_of(folder)) {
        const std::u16string path = folder + u"\\" + entry.name;
        SetFileAttributesW(long_form(path).c_str(), FILE_ATTRIBUTE_NORMAL);
        if (entry.is_folder)
            remove_tree(path);
        else
            DeleteFileW(long_form(path).c_str());
    }
    RemoveDirectoryW(long_form(folder).c_str());
}

} // namespace

TempFolder::TempFolder()
{
    std::array<wchar_t, MAX_PATH> base = {};
    GetTempPathW(static_cast<DWORD>(base.size()), base.data());
    std::array<wchar_t, MAX_PATH> name = {};
    if (GetTempFileNameW(base.data(), L"ren", 0, name.data()) == 0)
        throw std::runtime_error("no temporary folder");
    DeleteFileW(name.data());
    CreateDirectoryW(name.data(), nullptr);
    path_ = from_wide(name.data());
}

TempFolder::~TempFolder() { remove_tree(path_); }

std::u16string TempFolder::make_file(std::u16string_view name) const
{
    std::u16string path = path_of(name);
    write(path, CREATE_NEW, {reinterpret_cast<const char*>(name.data()), name.size() * sizeof(char16_t)});
    return path;
}

std::u16string TempFolder::write_file(std::u16string_view name, std::string_view bytes) const
{
    std::u16string path = path_of(name);
    write(path, CREATE_ALWAYS, bytes);
    return path;
}

std::u16string TempFolder::make_folder(std::u16string_view name) const
{
    std::u16string path = path_of(name);
    if (CreateDirectoryW(long_form(path).c_str(), nullptr) == FALSE)
        throw std::runtime_error("the folder cannot be made");
    return path;
}

Files TempFolder::files() const
{
    Files files;
    collect(path_, {}, files);
    return files;
}

std::u16string contents_of(const std::u16string& path)
{
    const HANDLE file =
        CreateFileW(long_form(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    std::array<char16_t, 1024> text = {};
    DWORD bytes = 0;
    ReadFile(file, text.data(), sizeof text, &bytes, nullptr);
    CloseHandle(file);
    return {text.data(), bytes / sizeof(char16_t)};
}
