#include "platform/entry_path.h"

#include <windows.h>

#include <array>

#include "platform/long_path.h"
#include "platform/name_key.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/full_path.h"
#include "platform/windows/last_error.h"
#include "platform/windows/wide.h"
#include "text/wtf8.h"

namespace multirename {

// A folder is known by its path in full. Drives that stand for folders, links to folders and short names of old
// programs lead to one folder by other paths still; the path that the system itself gives for an open folder tells
// which these are. It only tells: that of a network drive is no path that the user would recognise.

namespace {

std::u16string_view without_trailing_separators(std::u16string_view path)
{
    while (path.ends_with(u'\\') || path.ends_with(u'/'))
        path.remove_suffix(1);
    return path;
}

// Behind the last separator or the colon of a drive. In "..." and the like the system sees a folder too.
bool ends_in_a_name(std::u16string_view path)
{
    path = without_trailing_separators(path);
    return path.substr(path.find_last_of(u"\\/:") + 1).find_first_not_of(u". ") != std::u16string_view::npos;
}

// The length of what a full path has in front of its first name: a drive, a share or a device, with its separator.
std::size_t root_length(std::u16string_view path)
{
    struct Start {
        std::u16string_view text;
        int parts;
    };
    constexpr std::array starts = {Start{u"\\\\?\\UNC\\", 2}, Start{u"\\\\?\\", 1}, Start{u"\\\\.\\", 1},
                                   Start{u"\\\\", 2}, Start{u"", 1}};
    std::size_t i = 0;
    while (!path.starts_with(starts[i].text))
        ++i;
    std::size_t length = starts[i].text.size();
    for (int part = 0; part < starts[i].parts && length < path.size(); ++part)
        length = std::min(path.find(u'\\', length), path.size() - 1) + 1;
    return length;
}

std::u16string in_full(std::string_view native_path)
{
    return from_wide(full_path_name(to_wide(from_wtf8(native_path))));
}

std::error_code look_for_folder(const std::u16string& path)
{
    const std::u16string_view searched = path.size() == root_length(path) ? path : without_trailing_separators(path);
    const DWORD attributes = GetFileAttributesW(to_wide(long_path_form(searched)).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return last_error();
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? std::error_code()
                                                        : std::make_error_code(std::errc::not_a_directory);
}

// The same text for every way to the folder; where the system does not tell, the path in any case.
std::string identity_of(const std::u16string& path)
{
    constexpr DWORD everyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const UniqueFile folder(CreateFileW(to_wide(long_path_form(path)).c_str(), 0, everyone, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::wstring own_path;
    if (folder) {
        own_path = grown_text([&folder](wchar_t* text, DWORD size) {
            return GetFinalPathNameByHandleW(folder.get(), text, size, FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
        });
    }
    return to_wtf8(own_path.empty() ? long_path_form(name_key(path)) : name_key(from_wide(own_path)));
}

} // namespace

std::error_code EntryPaths::entry(std::string_view native_path, EntryPath& path)
{
    const std::u16string full = in_full(native_path);
    const std::u16string_view trimmed = without_trailing_separators(full);
    if (!ends_in_a_name(from_wtf8(native_path)) || trimmed.size() <= root_length(full))
        return std::make_error_code(std::errc::invalid_argument);
    const std::size_t name = trimmed.rfind(u'\\') + 1;
    EntryPath found{{}, std::u16string(trimmed.substr(name))};
    if (trimmed.size() >= first_too_long_path)
        return std::make_error_code(std::errc::filename_too_long);
    if (const std::error_code error = folder(to_wtf8(trimmed.substr(0, name)), found.folder))
        return error;
    if (found.folder.size() + found.name.size() >= first_too_long_path)
        return std::make_error_code(std::errc::filename_too_long);
    path = std::move(found);
    return {};
}

std::error_code EntryPaths::find_folder(std::string_view native_path, FoundFolder& found)
{
    std::u16string full = in_full(native_path);
    if (full.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    if (!full.ends_with(u'\\'))
        full.push_back(u'\\');
    if (const std::error_code error = look_for_folder(full))
        return error;
    found.identity = identity_of(full);
    found.path = std::move(full);
    return {};
}

} // namespace multirename
