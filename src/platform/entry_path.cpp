#include "platform/entry_path.h"

#include <utility>

namespace multirename {

std::error_code EntryPaths::folder(std::string_view native_path, std::u16string& path)
{
    const auto known = folders_.find(native_path);
    if (known != folders_.end()) {
        path = known->second;
        return {};
    }
    FoundFolder found;
    if (const std::error_code error = find_folder(native_path, found))
        return error;
    // Where case is not looked at, one folder has many spellings; the first stands for all.
    const auto first = identities_.try_emplace(std::move(found.identity), std::move(found.path)).first;
    path = folders_.emplace(native_path, first->second).first->second;
    return {};
}

} // namespace multirename
