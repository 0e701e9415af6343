// An entry moves in the first pass when its new name is free or its own. Otherwise it moves in the pass in which the
// holder of that name moves, if it stands behind the holder and so comes later in that very pass; in the pass after, if
// it stands before it. Each holder has one entry waiting for it at most, so from every entry that can move at once a
// chain of waiting ones can be followed, and the passes are counted without being made: a shift of n names by one
// would make n of them. Entries that no chain reaches stand in a cycle.

#include "rename/rename_order.h"

#include <algorithm>

namespace multirename {

std::vector<std::size_t> rename_order(std::span<const std::optional<std::size_t>> holder)
{
    const std::size_t count = holder.size();
    std::vector<std::optional<std::size_t>> waiting(count); // by holder: the entry that wants its name
    for (std::size_t i = 0; i < count; ++i) {
        if (holder[i] && *holder[i] != i)
            waiting[*holder[i]] = i;
    }

    std::vector<std::vector<std::size_t>> passes;
    for (std::size_t first = 0; first < count; ++first) {
        if (holder[first] && *holder[first] != first)
            continue;
        std::size_t pass = 0;
        for (std::optional<std::size_t> mover = first; mover;) {
            if (pass == passes.size())
                passes.emplace_back();
            passes[pass].push_back(*mover);
            const std::optional<std::size_t> next = waiting[*mover];
            if (next && *next < *mover)
                ++pass;
            mover = next;
        }
    }

    std::vector<std::size_t> order;
    order.reserve(count);
    for (std::vector<std::size_t>& pass : passes) {
        std::sort(pass.begin(), pass.end());
        order.insert(order.end(), pass.begin(), pass.end());
    }
    return order;
}

} // namespace multirename
