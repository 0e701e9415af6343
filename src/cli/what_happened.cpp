// The batch is traced back over the names of its folders, from the last move to the first: a move happened when its new
// name is there and its old one is not; with its names put back, the folder is as it was when the move before it was
// made, and that one is looked at in the same way.

#include "cli/what_happened.h"

#include <algorithm>
#include <map>
#include <utility>

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

} // namespace multirename
