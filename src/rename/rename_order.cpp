// An entry moves in the first pass when its new name is free or its own. Otherwise it moves in the pass in which the
// holder of that name moves, if it stands behind the holder and so comes later in that very pass; in the pass after, if
// it stands before it. Each holder has one entry waiting for it at most, so from every entry that can move at once a
// chain of waiting ones can be followed, and the passes are counted without being made: a shift of n names by one
// would make n of them. Entries that no chain reaches stand in a cycle.

#include "rename/rename_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace multirename {

namespace {

constexpr std::size_t nobody = SIZE_MAX;
constexpr std::uint32_t never = UINT32_MAX;

// By holder, the entry that wants its name.
std::vector<std::size_t> waiting_for(std::span<const std::optional<std::size_t>> holder)
{
    std::vector<std::size_t> waiting(holder.size(), nobody);
    for (std::size_t i = 0; i < holder.size(); ++i) {
        if (holder[i] && *holder[i] != i)
            waiting[*holder[i]] = i;
    }
    return waiting;
}

std::vector<std::uint32_t> pass_of_each(std::span<const std::optional<std::size_t>> holder)
{
    const std::vector<std::size_t> waiting = waiting_for(holder);
    std::vector<std::uint32_t> pass_of(holder.size(), never);
    for (std::size_t first = 0; first < holder.size(); ++first) {
        if (holder[first] && *holder[first] != first)
            continue;
        std::uint32_t pass = 0;
        for (std::size_t mover = first; mover != nobody; mover = waiting[mover]) {
            pass_of[mover] = pass;
            if (waiting[mover] < mover)
                ++pass;
        }
    }
    return pass_of;
}

} // namespace

std::vector<std::size_t> rename_order(std::span<const std::optional<std::size_t>> holder)
{
    const std::vector<std::uint32_t> pass_of = pass_of_each(holder);
    std::vector<std::size_t> places; // where in the order each pass begins
    for (const std::uint32_t pass : pass_of) {
        if (pass == never)
            continue;
        places.resize(std::max<std::size_t>(places.size(), pass + 2), 0);
        ++places[pass + 1];
    }
    std::partial_sum(places.begin(), places.end(), places.begin());
    std::vector<std::size_t> order(places.empty() ? 0 : places.back());
    for (std::size_t i = 0; i < pass_of.size(); ++i) {
        if (pass_of[i] != never)
            order[places[pass_of[i]]++] = i;
    }
    return order;
}

} // namespace multirename
