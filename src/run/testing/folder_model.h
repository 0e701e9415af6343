#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/name_key.h"

namespace multirename {

/// The paths of a disk in memory, on which renames are tried one at a time. Folders end in no "\".
class FolderModel {
public:
    explicit FolderModel(bool tells_case_apart) : tells_case_apart_(tells_case_apart) { }

    void add(std::u16string_view path) { paths_.emplace(identity(path), path); }

    /// Renames one entry with all that is in it. False, and nothing is done, when it is not there, or when the new name
    /// is that of another entry.
    bool rename(const std::u16string& from, const std::u16string& to)
    {
        const std::u16string old_identity = identity(from);
        const std::u16string new_identity = identity(to);
        if (!paths_.contains(old_identity) || (old_identity != new_identity && paths_.contains(new_identity)))
            return false;
        std::map<std::u16string, std::u16string> renamed;
        for (const auto& [known, path] : paths_) {
            const bool moves = known == old_identity || known.starts_with(old_identity + u'\\');
            const std::u16string now = moves ? to + path.substr(from.size()) : path;
            renamed.emplace(identity(now), now);
        }
        paths_ = std::move(renamed);
        return true;
    }

    bool operator==(const FolderModel&) const = default;

private:
    [[nodiscard]] std::u16string identity(std::u16string_view path) const
    {
        return tells_case_apart_ ? std::u16string(path) : name_key(path);
    }

    bool tells_case_apart_;
    std::map<std::u16string, std::u16string> paths_; // by what makes two of them one
};

} // namespace multirename
