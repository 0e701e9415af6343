#include "platform/disk.h"

#include <windows.h>

#include <array>

#include "platform/long_path.h"
#include "platform/unique_handle.h"
#include "platform/windows/last_error.h"
#include "platform/windows/wide.h"

namespace multirename {

namespace {

struct FindTraits {
    static HANDLE none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE handle) noexcept { FindClose(handle); }
};

std::uint64_t joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

FileTime file_time(const FILETIME& moment) { return joined(moment.dwHighDateTime, moment.dwLowDateTime); }

bool is_link_to_itself_or_parent(const WIN32_FIND_DATAW& found)
{
    const std::wstring_view name = found.cFileName;
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && (name == L"." || name == L"..");
}

void take_details(const WIN32_FIND_DATAW& found, DirectoryEntry& entry)
{
    entry.has_details = true;
    entry.read_only = (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    entry.size = joined(found.nFileSizeHigh, found.nFileSizeLow);
    entry.created = file_time(found.ftCreationTime);
    entry.last_write = file_time(found.ftLastWriteTime);
}

class WindowsDisk final : public Disk {
public:
    FolderListing list_folder(std::u16string_view folder_path, const EntryVisitor& visit) override
    {
        WIN32_FIND_DATAW found{};
        const UniqueHandle<FindTraits> search(
            FindFirstFileW(to_wide(listing_search_text(folder_path)).c_str(), &found));
        if (!search)
            return {false, last_error()};
        DirectoryEntry entry;
        do {
            if (is_link_to_itself_or_parent(found))
                continue;
            entry.name = from_wide(found.cFileName);
            entry.is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            entry.is_hidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0 || found.cFileName[0] == L'.';
            take_details(found, entry);
            visit(entry);
        } while (FindNextFileW(search.get(), &found));
        // A listing that breaks off leaves out names that are taken.
        if (GetLastError() != ERROR_NO_MORE_FILES)
            return {false, last_error()};
        return {};
    }

    void read_details(std::u16string_view folder_path, DirectoryEntry& entry) override
    {
        WIN32_FIND_DATAW found{};
        const std::u16string path = long_path_form(std::u16string(folder_path) + entry.name);
        if (!UniqueHandle<FindTraits>(FindFirstFileW(to_wide(path).c_str(), &found)))
            found = {};
        take_details(found, entry);
    }

    bool tells_folders_apart_by_case() override { return false; }

    std::optional<std::u16string> working_directory() override
    {
        std::array<wchar_t, 260> buffer{};
        const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(buffer.size()), buffer.data());
        if (length == 0 || length >= buffer.size())
            return std::nullopt;
        return from_wide({buffer.data(), length});
    }
};

} // namespace

Disk& system_disk()
{
    static WindowsDisk disk;
    return disk;
}

} // namespace multirename
