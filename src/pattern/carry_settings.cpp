// Text parts are aligned first. They are paired from the front while they are equal; at a difference the nearest point
// is looked for at which the two lists meet again, by growing distance: a part d ahead in one list against a part less
// than d ahead in the other. The first distance that has any such pair decides, and among its pairs the one from which
// the rest of the lists pairs best. This keeps an edit beside the text that it was made on; the longest common
// subsequence would sometimes pair more parts further off.
// What follows from a pair of places never depends on how they were reached, so each is worked out once.

#include "pattern/name_pattern.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace multirename {

namespace {

using Places = std::pair<std::size_t, std::size_t>; // in the new list, in the old list
using Partners = std::vector<std::optional<std::size_t>>;

class TextAligner {
public:
    TextAligner(const NamePattern& new_pattern, const NamePattern& old_pattern) :
        new_texts_(text_parts(new_pattern)),
        old_texts_(text_parts(old_pattern)),
        new_pattern_(new_pattern),
        old_pattern_(old_pattern)
    {
    }

    /// For each part of the new pattern its partner in the old one, where it is a text part that has one.
    Partners align()
    {
        Partners partners(new_pattern_.parts.size());
        Places at{0, 0};
        while (true) {
            const std::optional<Places> next = next_pair(at);
            if (!next)
                return partners;
            partners[new_texts_[next->first]] = old_texts_[next->second];
            at = {next->first + 1, next->second + 1};
        }
    }

private:
    static std::vector<std::size_t> text_parts(const NamePattern& pattern)
    {
        std::vector<std::size_t> indices;
        for (std::size_t i = 0; i < pattern.parts.size(); ++i) {
            if (pattern.parts[i].kind == NamePartKind::Text)
                indices.push_back(i);
        }
        return indices;
    }

    [[nodiscard]] bool can_pair(Places at) const
    {
        return at.first < new_texts_.size() && at.second < old_texts_.size() &&
            new_pattern_.parts[new_texts_[at.first]].matchText == old_pattern_.parts[old_texts_[at.second]].matchText;
    }

    // How many pairs the lists make from here on.
    std::size_t count_pairs(Places at)
    {
        const auto known = pair_counts_.find(at);
        if (known != pair_counts_.end())
            return known->second;
        const std::optional<Places> next = next_pair(at);
        const std::size_t count = next ? 1 + count_pairs({next->first + 1, next->second + 1}) : 0;
        pair_counts_.emplace(at, count);
        return count;
    }

    std::optional<Places> next_pair(Places at)
    {
        if (can_pair(at))
            return at;
        const std::size_t longer = std::max(new_texts_.size() - at.first, old_texts_.size() - at.second);
        std::optional<Places> best;
        std::size_t best_count = 0;
        const auto try_pair = [&](Places place) {
            if (!can_pair(place))
                return;
            const std::size_t count = count_pairs({place.first + 1, place.second + 1});
            if (!best || count > best_count) {
                best = place;
                best_count = count;
            }
        };
        for (std::size_t distance = 1; distance <= longer && !best; ++distance) {
            for (std::size_t nearer = 0; nearer < distance; ++nearer) {
                try_pair({at.first + distance, at.second + nearer});
                try_pair({at.first + nearer, at.second + distance});
            }
        }
        return best;
    }

    std::vector<std::size_t> new_texts_;
    std::vector<std::size_t> old_texts_;
    const NamePattern& new_pattern_;
    const NamePattern& old_pattern_;
    std::map<Places, std::size_t> pair_counts_;
};

// Number and wild parts follow the text parts beside them.
void pair_markers(const NamePattern& new_pattern, const NamePattern& old_pattern, Partners& partners)
{
    const std::vector<NamePart>& old_parts = old_pattern.parts;
    for (std::size_t i = 1; i < new_pattern.parts.size(); ++i) {
        const NamePartKind kind = new_pattern.parts[i].kind;
        const std::optional<std::size_t> before = partners[i - 1];
        if (kind == NamePartKind::Text || !before || *before + 1 >= old_parts.size() ||
            old_parts[*before + 1].kind != kind)
            continue;
        const bool is_closed = i + 1 < partners.size() && partners[i + 1] == *before + 2;
        if (kind == NamePartKind::Number || is_closed)
            partners[i] = *before + 1;
    }
}

void copy_settings(NamePart& to, const NamePart& from)
{
    switch (to.kind) {
    case NamePartKind::Text:
        to.keepMatched = from.keepMatched;
        if (!from.keepMatched)
            to.text = from.text;
        to.invalid = from.invalid;
        break;
    case NamePartKind::Number:
        to.length = from.length;
        to.clearText = from.clearText;
        to.leadingZeros = from.leadingZeros;
        to.renumber = from.renumber;
        to.startNumber = from.startNumber;
        break;
    case NamePartKind::Wild:
        to.length = from.length;
        to.truncate = from.truncate;
        to.findText = from.findText;
        to.replaceText = from.replaceText;
        to.caseStyle = from.caseStyle;
        break;
    }
}

} // namespace

void carryPartSettings(NamePattern& newPattern, const NamePattern& oldPattern)
{
    Partners partners = TextAligner(newPattern, oldPattern).align();
    pair_markers(newPattern, oldPattern, partners);
    for (std::size_t i = 0; i < newPattern.parts.size(); ++i) {
        if (partners[i])
            copy_settings(newPattern.parts[i], oldPattern.parts[*partners[i]]);
    }
}

} // namespace multirename
