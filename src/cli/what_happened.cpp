// The batch is traced back over the names of its folders, from the last move to the first: a move happened when its new
// name is there and its old one is not; with its names put back, the folder is as it was when the move before it was
// made, and that one is looked at in the same way.

#include "cli/what_happened.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/name_key.h"
#include "platform/native_text.h"

namespace multirename {

namespace {

using Names = std::set<std::string>;

class FoldersNow {
public:
    explicit FoldersNow(const NamesOfFolder& names_of) : names_of_(names_of) { }

    Names& names(const std::string& folder)
    {
        const std::string path = path_now(folder);
        const auto [place, is_new] = names_.try_emplace(path);
        if (is_new)
            place->second = names_of_(path);
        return place->second;
    }

    // Moves before the one that renamed a folder know that folder, and those in it, by the old path.
    void trace_back(const JournalEntry& move)
    {
        renamed_.emplace_back(move.folder + move.old_name + "\\", move.folder + move.new_name + "\\");
    }

private:
    [[nodiscard]] std::string path_now(std::string folder) const
    {
        std::for_each(renamed_.rbegin(), renamed_.rend(), [&folder](const auto& step) {
            if (folder.starts_with(step.first))
                folder = step.second + folder.substr(step.first.size());
        });
        return folder;
    }

    const NamesOfFolder& names_of_;
    std::map<std::string, Names> names_;
    std::vector<std::pair<std::string, std::string>> renamed_; // old paths and new ones, the last rename first
};

} // namespace

std::vector<bool> what_happened(std::span<const JournalEntry> moves, const NamesOfFolder& names_of)
{
    std::vector<bool> happened(moves.size());
    FoldersNow folders(names_of);
    for (std::size_t i = moves.size(); i-- > 0;) {
        const JournalEntry& move = moves[i];
        Names& names = folders.names(move.folder);
        happened[i] = names.contains(move.new_name) && !names.contains(move.old_name);
        if (!happened[i])
            continue;
        names.erase(move.new_name);
        names.insert(move.old_name);
        folders.trace_back(move);
    }
    return happened;
}

std::vector<bool> moves_to_free_names(std::span<const JournalEntry> moves, const NamesOfFolder& names_of)
{
    std::map<std::string, std::set<std::u16string>> folders; // the keys of the names
    const auto key_of = [](const std::string& name) { return name_key(name_from_native(name)); };
    std::vector<bool> is_free;
    for (const JournalEntry& move : moves) {
        const auto [folder, is_new] = folders.try_emplace(move.folder);
        std::set<std::u16string>& keys = folder->second;
        if (is_new) {
            for (const std::string& name : names_of(move.folder))
                keys.insert(key_of(name));
        }
        const std::u16string old_key = key_of(move.old_name);
        const std::u16string new_key = key_of(move.new_name);
        is_free.push_back(old_key == new_key || !keys.contains(new_key));
        if (!is_free.back())
            continue;
        keys.erase(old_key);
        keys.insert(new_key);
    }
    return is_free;
}

} // namespace multirename
