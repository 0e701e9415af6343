// The names lose what they share in front and behind; what is left of them, the middles, is split again and again at
// the longest run of characters that all of them hold, until they share nothing more. Within this file ":" stands for a
// run of digits of any value and width, since file names cannot hold it; it becomes "#" at the very end, after the
// hashes of the names were escaped.
//
// Walks from the back count the characters that are left: `a` left means that the next one looked at is at index a - 1.

#include "pattern/pattern_analyser_reference.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "text/decimal.h"

namespace multirename {

namespace {

using Names = std::vector<std::u16string>;
using CharTable = std::array<unsigned char, 65536>; // one entry per code unit

constexpr char16_t number_marker = u':';

struct TooManySteps { };

struct Prefix {
    std::u16string text;
    bool allSame = true;
    bool hasNumber = false;
};

struct Suffix {
    std::u16string text;
    bool hasNumber = false;
};

// A run of the reference string in which runs of digits may have become markers.
struct Candidate {
    std::u16string text;
    std::vector<std::size_t> weights; // for each character of `text` the number of characters that it stands for
};

struct Occurrence {
    std::size_t begin;
    std::size_t end;
};

struct Split {
    Names left;
    Names right;
};

bool is_digit_at(const std::u16string& s, std::size_t i) { return i < s.size() && is_digit(s[i]); }

std::size_t run_length_from(const std::u16string& s, std::size_t i)
{
    std::size_t length = 0;
    while (is_digit_at(s, i + length))
        ++length;
    return length;
}

// The length of the run of digits that ends with the first `left` characters and does not reach below `bound`.
std::size_t run_length_before(const std::u16string& s, std::size_t left, std::size_t bound)
{
    std::size_t length = 0;
    while (left - length > bound && is_digit(s[left - length - 1]))
        ++length;
    return length;
}

// Puts one marker in place of the whole run of digits that holds index i; gives the run's first index.
std::size_t collapseDigitRun(std::u16string& s, std::size_t i)
{
    std::size_t first = i;
    while (first > 0 && is_digit(s[first - 1]))
        --first;
    std::size_t last = i;
    while (is_digit_at(s, last + 1))
        ++last;
    s.replace(first, last - first + 1, 1, number_marker);
    return first;
}

void collapseDigitRun(Candidate& candidate, std::size_t i)
{
    const std::size_t length_before = candidate.text.size();
    const std::size_t first = collapseDigitRun(candidate.text, i);
    const std::size_t run_length = length_before - candidate.text.size() + 1;
    const auto weight = candidate.weights.begin() + static_cast<std::ptrdiff_t>(first);
    *weight = run_length;
    candidate.weights.erase(weight + 1, weight + static_cast<std::ptrdiff_t>(run_length));
}

class ReferenceAnalyser {
public:
    ReferenceAnalyser(Names names, bool numberMode, std::uint64_t most_steps) :
        numberMode_(numberMode), names_(std::move(names)), most_steps_(most_steps)
    {
    }

    std::u16string pattern()
    {
        const Prefix prefix = commonPrefix();
        if (prefix.allSame)
            return escaped(prefix.text);

        Suffix suffix = commonSuffix(prefix.text.size());
        if (!suffix.text.empty() && overlaps(prefix, suffix))
            suffix = {};
        if (!prefix.text.empty() || !suffix.text.empty())
            cut_to_middles(prefix, suffix);

        buildCommonCharTable();
        std::u16string middle = u"*";
        if (any_common_character())
            middle = digitsCommon_ ? numberMiddle(names_) : textMiddle(names_);
        return escaped(prefix.text + middle + suffix.text);
    }

private:
    void step()
    {
        if (++steps_ > most_steps_)
            throw TooManySteps();
    }

    // --- what all names share in front

    Prefix commonPrefix()
    {
        Prefix prefix;
        if (names_.empty())
            return prefix;
        prefix.text = names_.front();
        for (std::size_t n = 1; n < names_.size(); ++n) {
            const bool was_empty = prefix.text.empty();
            if (!prefix.hasNumber)
                compare_plainly(prefix, names_[n]);
            // Also when the plain comparison has just met the first difference of digits: the same name is compared
            // once more, its own marker in place.
            if (prefix.hasNumber)
                compare_with_numbers(prefix, names_[n]);
            if (prefix.text.empty() && !was_empty)
                return prefix;
        }
        return prefix;
    }

    void compare_plainly(Prefix& prefix, const std::u16string& name)
    {
        std::u16string& text = prefix.text;
        std::size_t i = 0;
        while (i < text.size() && i < name.size() && text[i] == name[i]) {
            step();
            ++i;
        }
        if (i == text.size() && i == name.size())
            return;
        if (numberMode_ && is_digit_at(text, i) && is_digit_at(name, i)) {
            prefix.hasNumber = true;
            collapseDigitRun(text, i);
            return;
        }
        if (numberMode_ && i > 0 && is_digit_at(text, i - 1) && (is_digit_at(text, i) || is_digit_at(name, i))) {
            prefix.hasNumber = true;
            collapseDigitRun(text, i - 1);
            return;
        }
        text.resize(i);
        prefix.allSame = false;
    }

    // The prefix keeps the marker that it has and gets no other: a run of digits that differs ends it.
    void compare_with_numbers(Prefix& prefix, const std::u16string& name)
    {
        std::u16string& text = prefix.text;
        std::size_t a = 0;
        std::size_t b = 0;
        while (a < text.size() && b < name.size()) {
            step();
            if (text[a] == name[b]) {
                if (is_digit(text[a]) && run_length_from(text, a) != run_length_from(name, b)) {
                    a = collapseDigitRun(text, a);
                    break;
                }
                ++a;
                ++b;
                continue;
            }
            if (!is_digit(name[b]))
                break;
            if (text[a] == number_marker) {
                ++a;
                b += run_length_from(name, b);
                continue;
            }
            if (is_digit(text[a]))
                a = collapseDigitRun(text, a);
            break;
        }
        if (a < text.size()) {
            text.resize(a);
            prefix.allSame = false;
        } else if (b < name.size()) {
            prefix.allSame = false;
        }
    }

    // --- what all names share behind

    // No character of a name before index `bound` is looked at.
    Suffix commonSuffix(std::size_t bound)
    {
        Suffix suffix;
        suffix.text = names_.front().substr(bound);
        for (std::size_t n = 1; n < names_.size(); ++n) {
            compare_backwards(suffix, names_[n], bound);
            if (suffix.text.empty())
                return suffix;
        }
        return suffix;
    }

    void compare_backwards(Suffix& suffix, const std::u16string& name, std::size_t bound)
    {
        std::u16string& text = suffix.text;
        std::size_t a = text.size();
        std::size_t b = name.size();
        while (a > 0 && b > bound) {
            step();
            const char16_t ours = text[a - 1];
            const char16_t theirs = name[b - 1];
            if (ours == theirs) {
                if (!numberMode_ || !is_digit(ours) ||
                    run_length_before(text, a, 0) == run_length_before(name, b, bound)) {
                    --a;
                    --b;
                } else {
                    a = collapse_in_suffix(suffix, a);
                    b -= run_length_before(name, b, 0);
                }
                continue;
            }
            if (!numberMode_ || !is_digit(theirs))
                break;
            if (ours == number_marker)
                --a;
            else if (is_digit(ours))
                a = collapse_in_suffix(suffix, a);
            else
                break;
            b -= run_length_before(name, b, 0);
        }
        text.erase(0, a);
    }

    // Gives how many characters of the suffix are left to look at. The one directly before the new marker is not among
    // them: it stays in the suffix whatever the name has in its place, and the name does not move on past it either.
    static std::size_t collapse_in_suffix(Suffix& suffix, std::size_t left)
    {
        suffix.hasNumber = true;
        const std::size_t marker = collapseDigitRun(suffix.text, left - 1);
        return marker > 0 ? marker - 1 : 0;
    }

    // --- how much of a name prefix and suffix take

    std::size_t prefixMatchLength(const std::u16string& prefix, const std::u16string& name)
    {
        std::size_t a = 0;
        std::size_t b = 0;
        while (a < prefix.size() && b < name.size()) {
            step();
            if (prefix[a] == number_marker) {
                ++b;
                b += run_length_from(name, b);
            } else if (prefix[a] == name[b]) {
                ++b;
            } else {
                break;
            }
            ++a;
        }
        return b;
    }

    std::size_t suffixMatchLength(const std::u16string& suffix, const std::u16string& name)
    {
        std::size_t a = suffix.size();
        std::size_t b = name.size();
        while (a > 0 && b > 0) {
            step();
            if (suffix[a - 1] == number_marker) {
                const std::size_t digits = run_length_before(name, b, 0);
                if (digits == 0)
                    break;
                b -= digits;
            } else if (suffix[a - 1] == name[b - 1]) {
                --b;
            } else {
                break;
            }
            --a;
        }
        return name.size() - b;
    }

    std::size_t taken_in_front(const Prefix& prefix, const std::u16string& name)
    {
        return prefix.hasNumber ? prefixMatchLength(prefix.text, name) : prefix.text.size();
    }

    std::size_t taken_behind(const Suffix& suffix, const std::u16string& name)
    {
        return suffix.hasNumber ? suffixMatchLength(suffix.text, name) : suffix.text.size();
    }

    bool overlaps(const Prefix& prefix, const Suffix& suffix)
    {
        return std::ranges::any_of(names_, [&](const std::u16string& name) {
            return taken_in_front(prefix, name) + taken_behind(suffix, name) > name.size();
        });
    }

    void cut_to_middles(const Prefix& prefix, const Suffix& suffix)
    {
        for (std::u16string& name : names_) {
            const std::size_t front = taken_in_front(prefix, name);
            const std::size_t behind = taken_behind(suffix, name);
            name = name.substr(front, name.size() - behind - front);
        }
    }

    // --- which characters all middles hold

    // Once narrowOnly_ is set, characters from 256 on are no longer struck off, not even for the name that set it: they
    // count as common although some name lacks them. That moves the choice of the reference string.
    void buildCommonCharTable()
    {
        commonChars_.fill(1);
        digitsCommon_ = numberMode_;
        CharTable presence;
        for (const std::u16string& name : names_) {
            presence.fill(0);
            bool is_narrow = true;
            bool has_digit = false;
            for (const char16_t unit : name) {
                step();
                if (unit < 256 || !narrowOnly_)
                    presence[unit] = 1;
                is_narrow = is_narrow && unit < 256;
                has_digit = has_digit || is_digit(unit);
            }
            if (is_narrow)
                narrowOnly_ = true;
            const std::size_t entries = narrowOnly_ ? 256 : presence.size();
            for (std::size_t unit = 0; unit < entries; ++unit) {
                if (presence[unit] == 0)
                    commonChars_[unit] = 0;
            }
            if (!has_digit)
                digitsCommon_ = false;
        }
        if (digitsCommon_)
            std::fill_n(&commonChars_[u'0'], 10, static_cast<unsigned char>(1));
    }

    [[nodiscard]] bool any_common_character() const
    {
        const auto end = narrowOnly_ ? commonChars_.begin() + 256 : commonChars_.end();
        return std::find(commonChars_.begin(), end, 1) != end;
    }

    [[nodiscard]] bool is_common(char16_t unit) const { return commonChars_[unit] != 0; }

    // The string with the fewest characters that count as common, the first of equals.
    std::u16string chooseReference(const Names& list)
    {
        std::u16string reference;
        std::size_t fewest = 0;
        for (std::size_t n = 0; n < list.size(); ++n) {
            std::size_t count = 0;
            for (const char16_t unit : list[n]) {
                step();
                if (is_common(unit))
                    ++count;
            }
            if (n == 0 || count < fewest) {
                fewest = count;
                reference = list[n];
            }
        }
        return reference;
    }

    [[nodiscard]] std::size_t common_characters_from(const std::u16string& s, std::size_t i) const
    {
        std::size_t length = 0;
        while (i + length < s.size() && is_common(s[i + length]))
            ++length;
        return length;
    }

    // --- middles as text

    std::u16string textMiddle(const Names& list)
    {
        const std::u16string common = longestCommonRun(list);
        if (common.empty())
            return u"*";
        Split split;
        for (const std::u16string& s : list) {
            const std::size_t begin = s.find(common);
            const bool is_found = begin != std::u16string::npos;
            split.left.push_back(is_found ? s.substr(0, begin) : std::u16string());
            split.right.push_back(is_found ? s.substr(begin + common.size()) : s);
        }
        return textMiddle(split.left) + common + textMiddle(split.right);
    }

    std::u16string longestCommonRun(const Names& list)
    {
        const std::u16string reference = chooseReference(list);
        std::u16string result;
        for (std::size_t i = 0; i + result.size() < reference.size(); ++i) {
            if (!is_common(reference[i]))
                continue;
            std::size_t length = common_characters_from(reference, i);
            for (const std::u16string& s : list)
                length = longest_found(reference.substr(i, length), s);
            if (length > result.size())
                result = reference.substr(i, length);
        }
        return result;
    }

    // The most characters of the front of `run` that stand side by side somewhere in `s`.
    std::size_t longest_found(const std::u16string& run, const std::u16string& s)
    {
        std::size_t longest = 0;
        for (std::size_t start = 0; start < s.size(); ++start) {
            std::size_t length = 0;
            while (length < run.size() && start + length < s.size() && run[length] == s[start + length]) {
                step();
                ++length;
            }
            step();
            longest = std::max(longest, length);
        }
        return longest;
    }

    // --- middles with numbers

    std::u16string numberMiddle(const Names& list)
    {
        const std::u16string common = longestCommonNumberRun(list);
        if (common.empty())
            return u"*";
        Split split;
        for (const std::u16string& s : list) {
            const std::optional<Occurrence> found = find_with_numbers(common, s);
            split.left.push_back(found ? s.substr(0, found->begin) : std::u16string());
            split.right.push_back(found ? s.substr(found->end) : s);
        }
        return numberMiddle(split.left) + common + numberMiddle(split.right);
    }

    std::optional<Occurrence> find_with_numbers(const std::u16string& common, const std::u16string& s)
    {
        for (std::size_t begin = 0; begin < s.size(); ++begin) {
            const std::optional<std::size_t> end = end_of_match(common, s, begin);
            if (end)
                return Occurrence{begin, *end};
        }
        return std::nullopt;
    }

    std::optional<std::size_t> end_of_match(const std::u16string& common, const std::u16string& s, std::size_t begin)
    {
        std::size_t b = begin;
        for (const char16_t unit : common) {
            step();
            if (unit == number_marker) {
                const std::size_t digits = run_length_from(s, b);
                if (digits == 0)
                    return std::nullopt;
                b += digits;
            } else if (b < s.size() && s[b] == unit) {
                ++b;
            } else {
                return std::nullopt;
            }
        }
        return b;
    }

    struct NumberSearch {
        const Names& list;
        std::size_t best = 0;
        std::u16string result;
    };

    std::u16string longestCommonNumberRun(const Names& list)
    {
        const std::u16string reference = chooseReference(list);
        NumberSearch search{list, 0, {}};
        for (std::size_t i = 0; i + search.best < reference.size(); ++i) {
            if (!is_common(reference[i]))
                continue;
            const std::size_t length = common_characters_from(reference, i);
            const Candidate candidate{reference.substr(i, length), std::vector<std::size_t>(length, 1)};
            refine(search, candidate, length, 0);
        }
        return search.result;
    }

    // Cuts the candidate to what each string holds of it, from string t on; the search takes it over when its score
    // comes out above the best so far. Where digits differ, the candidate with a marker in their place is followed
    // first, over the string that showed the difference and those after it.
    void refine(NumberSearch& search, Candidate candidate, std::size_t score, std::size_t t)
    {
        for (; t < search.list.size(); ++t) {
            const std::u16string& s = search.list[t];
            if (s.empty())
                return;
            std::size_t best_length = 0;
            std::size_t best_score = 0;
            for (std::size_t start = 0; start < s.size(); ++start) {
                std::size_t a = 0;
                std::size_t b = start;
                std::size_t try_score = 0;
                while (a < candidate.text.size() && b < s.size()) {
                    step();
                    if (candidate.text[a] == s[b]) {
                        ++b;
                    } else if (!is_digit(s[b])) {
                        break;
                    } else if (candidate.text[a] == number_marker) {
                        b += run_length_from(s, b);
                    } else {
                        if (!is_digit(candidate.text[a]))
                            break;
                        Candidate copy = candidate;
                        collapseDigitRun(copy, a);
                        refine(search, copy, score, t);
                        if (search.best >= score)
                            return;
                        break;
                    }
                    try_score += candidate.weights[a];
                    ++a;
                }
                step();
                if (try_score > best_score) {
                    best_score = try_score;
                    best_length = a;
                }
                if (a == candidate.text.size())
                    break;
            }
            candidate.text.resize(best_length);
            candidate.weights.resize(best_length);
            score = best_score;
            if (score < search.best)
                return;
        }
        if (score > search.best) {
            search.best = score;
            search.result = candidate.text;
        }
    }

    // --- the pattern as the user sees it

    [[nodiscard]] std::u16string escaped(const std::u16string& pattern) const
    {
        std::u16string text;
        for (const char16_t unit : pattern) {
            if (unit == u'#')
                text += u"\\#";
            else if (unit == number_marker && numberMode_)
                text += u'#';
            else
                text += unit;
        }
        return text;
    }

    bool numberMode_;
    Names names_;
    bool narrowOnly_ = false;
    CharTable commonChars_;
    bool digitsCommon_ = false;
    std::uint64_t most_steps_;
    std::uint64_t steps_ = 0;
};

} // namespace

std::optional<std::u16string> reference_pattern_of_names(std::span<const std::u16string_view> names, bool numberMode,
                                                         std::uint64_t most_steps)
{
    try {
        return ReferenceAnalyser(Names(names.begin(), names.end()), numberMode, most_steps).pattern();
    } catch (const TooManySteps&) {
        return std::nullopt;
    }
}

} // namespace multirename
