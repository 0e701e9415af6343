#include "cli/carry_out.h"

#include <windows.h>

#include <shellapi.h>

#include <set>
#include <span>
#include <string>
#include <vector>

#include "cli/what_happened.h"
#include "platform/disk.h"
#include "platform/native_text.h"
#include "platform/windows/wide.h"

namespace multirename {

namespace {

std::set<std::string> names_in(const std::string& folder)
{
    std::set<std::string> names;
    const FolderListing listing =
        system_disk().list_folder(path_from_native(folder), [&names](const DirectoryEntry& entry) {
            names.insert(native_from_name(entry.name));
        });
    return listing.error ? std::set<std::string>() : names;
}

std::vector<JournalEntry> all_of(const MoveList& moves)
{
    std::vector<JournalEntry> all(moves.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        moves.get(i, all[i]);
    return all;
}

/// Moves for the shell, with their places in the whole batch.
struct Operation {
    std::vector<JournalEntry> moves;
    std::vector<std::size_t> places;
};

// The shell asks before it replaces a file, but not every system's does, and one answer is soon given for all files.
Operation without_taken_names(const std::vector<JournalEntry>& all, MoveObserver& observer)
{
    Operation operation;
    const std::vector<bool> is_free = moves_to_free_names(all, names_in);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!is_free[i]) {
            observer.moved(i, std::make_error_code(std::errc::file_exists));
            continue;
        }
        operation.moves.push_back(all[i]);
        operation.places.push_back(i);
    }
    return operation;
}

std::wstring list_of(std::span<const JournalEntry> moves, std::string JournalEntry::*name)
{
    std::wstring list;
    for (const JournalEntry& move : moves)
        list += to_wide(path_from_native(move.folder + move.*name)) + L'\0';
    return list + L'\0';
}

} // namespace

void carry_out(const MoveList& moves, MoveObserver& observer)
{
    if (moves.size() == 0 || observer.should_stop())
        return;
    const Operation operation = without_taken_names(all_of(moves), observer);
    if (operation.moves.empty())
        return;
    const std::wstring sources = list_of(operation.moves, &JournalEntry::old_name);
    const std::wstring targets = list_of(operation.moves, &JournalEntry::new_name);
    SHFILEOPSTRUCTW request = {};
    request.wFunc = FO_MOVE;
    request.pFrom = sources.c_str();
    request.pTo = targets.c_str();
    // Errors are told here in words; a name that has only just appeared is still for the user to answer.
    request.fFlags = FOF_MULTIDESTFILES | FOF_ALLOWUNDO | FOF_SILENT | FOF_NOERRORUI;
    const int result = SHFileOperationW(&request);
    const std::error_code error(result != 0 ? result : ERROR_CANCELLED, std::system_category());
    // The shell tells nothing useful of a batch that it did in part.
    const std::vector<bool> happened = what_happened(operation.moves, names_in);
    for (std::size_t i = 0; i < happened.size(); ++i)
        observer.moved(operation.places[i], happened[i] ? std::error_code() : error);
}

} // namespace multirename
