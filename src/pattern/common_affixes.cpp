// The prefix starts as the first name, the suffix as what the prefix leaves of it, and each further name cuts them
// down. Runs of digits that have to be equally long are measured once, where a walk enters them: behind that both sides
// have moved on together, and as much is left of the one as of the other.

#include "pattern/common_affixes.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "pattern/number_mark.h"
#include "text/decimal.h"
#include "text/shared_front.h"

namespace multirename {

namespace {

using NameSpan = std::span<const std::u16string_view>;

struct Affix {
    std::u16string text;
    bool has_number = false;
};

struct Prefix : Affix {
    bool all_same = true;
    std::size_t plain = 0; // once it has a number, how many characters in front are neither digits nor the mark
};

std::size_t plain_front(std::u16string_view text)
{
    const auto is_plain = [](char16_t unit) { return !is_digit(unit) && unit != number_mark; };
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), is_plain) - text.begin());
}

// The prefix of the names met so far, cut down name by name. A digit that differs becomes a number mark the first time;
// from then on one that differs ends the prefix before its run.
class PrefixFinder {
public:
    PrefixFinder(NameSpan names, bool number_mode) : number_mode_(number_mode)
    {
        if (names.empty())
            return;
        prefix_.text = names.front();
        for (std::size_t i = 1; i < names.size(); ++i) {
            load_ahead(names, i);
            const bool was_empty = prefix_.text.empty();
            if (!prefix_.has_number)
                compare_exactly(names[i]);
            else
                compare_with_numbers(names[i]);
            if (prefix_.text.empty() && !was_empty)
                return;
        }
    }

    [[nodiscard]] Prefix result() && { return std::move(prefix_); }

private:
    void compare_exactly(std::u16string_view name)
    {
        const std::u16string& prefix = prefix_.text;
        const std::size_t index = shared_front(prefix, name);
        if (index == prefix.size() && index == name.size())
            return;
        const bool digit_in_prefix = index < prefix.size() && is_digit(prefix[index]);
        const bool digit_in_name = index < name.size() && is_digit(name[index]);
        const bool runs_differ_in_length =
            index > 0 && is_digit(prefix[index - 1]) && (digit_in_prefix || digit_in_name);
        if (number_mode_ && ((digit_in_prefix && digit_in_name) || runs_differ_in_length)) {
            prefix_.has_number = true;
            collapse_digit_run(prefix_.text, digit_in_prefix && digit_in_name ? index : index - 1);
            prefix_.plain = plain_front(prefix_.text);
            compare_with_numbers(name);
            return;
        }
        end_at(index);
    }

    void compare_with_numbers(std::u16string_view name)
    {
        const std::u16string& prefix = prefix_.text;
        bool in_equal_runs = false;
        std::size_t a = shared_front(std::u16string_view(prefix).substr(0, prefix_.plain), name);
        std::size_t b = a;
        while (a < prefix.size() && b < name.size()) {
            if (prefix[a] == name[b]) {
                const bool enters_runs = is_digit(prefix[a]) && !in_equal_runs;
                if (enters_runs && end_of_digits(prefix, a) - a != end_of_digits(name, b) - b)
                    return end_at(a);
                in_equal_runs = is_digit(prefix[a]);
                ++a;
                ++b;
            } else if (!is_digit(name[b])) {
                return end_at(a);
            } else if (prefix[a] == number_mark) {
                ++a;
                b = end_of_digits(name, b);
            } else {
                return end_at(start_of_digits(prefix, a));
            }
        }
        if (a < prefix.size())
            return end_at(a);
        if (b < name.size())
            prefix_.all_same = false;
    }

    void end_at(std::size_t index)
    {
        prefix_.text.resize(index);
        prefix_.plain = std::min(prefix_.plain, index);
        prefix_.all_same = false;
    }

    Prefix prefix_;
    bool number_mode_;
};

// Whether the name simply ends in the suffix, with runs of digits that begin within it.
bool stays_as_it_is(const Affix& suffix, std::u16string_view name, std::size_t lowest, bool number_mode)
{
    if (suffix.has_number || name.size() - lowest < suffix.text.size() ||
        (number_mode && is_digit(suffix.text.front())))
        return false;
    const std::u16string_view end = name.substr(name.size() - suffix.text.size());
    return shared_front(end, suffix.text) == end.size();
}

// What one backward walk over the suffix and a name leaves of the suffix. The units of each that are still to be
// compared are those before `a` and, down to the lowest index that counts, before `b`.
void narrow_suffix(Affix& suffix, std::u16string_view name, std::size_t lowest, bool number_mode)
{
    std::u16string& text = suffix.text;
    if (stays_as_it_is(suffix, name, lowest, number_mode))
        return;
    bool in_equal_runs = false;
    std::size_t a = text.size();
    std::size_t b = name.size();
    const auto skip_number_of_name = [&] { b = start_of_digits(name, b); };
    while (a > 0 && b > lowest) {
        const bool both_digits = number_mode && is_digit(text[a - 1]) && is_digit(name[b - 1]);
        if (text[a - 1] == name[b - 1] &&
            (!both_digits || in_equal_runs || a - start_of_digits(text, a) == b - start_of_digits(name, b, lowest))) {
            in_equal_runs = both_digits;
            --a;
            --b;
        } else if (both_digits) {
            in_equal_runs = false;
            suffix.has_number = true;
            const std::size_t mark = collapse_digit_run(text, a - 1);
            // The character before a new number mark is kept unseen.
            a = mark > 0 ? mark - 1 : 0;
            skip_number_of_name();
        } else if (number_mode && is_digit(name[b - 1]) && text[a - 1] == number_mark) {
            in_equal_runs = false;
            --a;
            skip_number_of_name();
        } else {
            break;
        }
    }
    text.erase(0, a);
}

Affix common_suffix(NameSpan names, std::size_t lowest, bool number_mode)
{
    Affix suffix{std::u16string(names.front().substr(lowest))};
    for (std::size_t i = 1; i < names.size() && !suffix.text.empty(); ++i) {
        load_ahead(names, i);
        narrow_suffix(suffix, names[i], lowest, number_mode);
    }
    return suffix;
}

// How many units of the name the prefix takes.
std::size_t match_length(const Prefix& prefix, std::u16string_view name)
{
    if (!prefix.has_number)
        return prefix.text.size();
    std::size_t consumed = prefix.plain; // which all names begin with
    for (const char16_t unit : std::u16string_view(prefix.text).substr(consumed)) {
        if (consumed == name.size())
            break;
        if (unit == number_mark)
            consumed = end_of_digits(name, consumed + 1);
        else if (unit == name[consumed])
            ++consumed;
        else
            break;
    }
    return consumed;
}

std::size_t suffix_match_length(const Affix& suffix, std::u16string_view name)
{
    if (!suffix.has_number)
        return suffix.text.size();
    std::size_t left = name.size();
    for (auto unit = suffix.text.rbegin(); unit != suffix.text.rend() && left > 0; ++unit) {
        if (*unit == number_mark && is_digit(name[left - 1]))
            left = start_of_digits(name, left);
        else if (*unit == name[left - 1])
            --left;
        else
            break;
    }
    return name.size() - left;
}

// What prefix and suffix leave of each name. A suffix that meets the prefix in some name is given up for all of them.
std::vector<Slice> middles_of(NameSpan names, const Prefix& prefix, Affix& suffix)
{
    std::vector<Slice> middles;
    middles.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        load_ahead(names, i);
        const std::u16string_view name = names[i];
        const std::size_t taken_in_front = match_length(prefix, name);
        const std::size_t taken_behind = suffix_match_length(suffix, name);
        if (taken_in_front + taken_behind > name.size()) {
            suffix = {};
            return middles_of(names, prefix, suffix);
        }
        middles.push_back(
            {static_cast<std::uint32_t>(taken_in_front), static_cast<std::uint32_t>(name.size() - taken_behind)});
    }
    return middles;
}

} // namespace

CommonAffixes common_affixes(NameSpan names, bool number_mode)
{
    Prefix prefix = PrefixFinder(names, number_mode).result();
    if (prefix.all_same)
        return {std::move(prefix.text), {}, true, {}};
    Affix suffix = common_suffix(names, prefix.text.size(), number_mode);
    std::vector<Slice> middles = middles_of(names, prefix, suffix);
    return {std::move(prefix.text), std::move(suffix.text), false, std::move(middles)};
}

} // namespace multirename
