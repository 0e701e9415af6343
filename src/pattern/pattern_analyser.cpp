// How a pattern is found. The text that all names begin with and the text that they all end with are taken off first;
// while numbers are recognised, a run of digits that differs between names may stand in either as one ":" (a character
// that no file name holds; it becomes "#" at the very end). What is left in the middle is split at the longest run of
// characters that all middles hold, then the parts before and behind it in the same way, until nothing is common any
// more, which is a wild part.
//
// With numbers recognised a common run may hold ":" too. It is found by taking a piece of one middle, the reference,
// and cutting it down, middle by middle, to what matches best; where a digit of the piece meets another digit, a copy
// of the piece with that run of digits made into ":" is cut down as well, from that middle on. The same copy can be
// reached in many ways, exponentially many for middles that are rich in digits. What becomes of a piece depends only on
// the piece and the middle that it has reached, and only a longer result than the best so far counts; so a piece that
// was followed from there before can be dropped, and so can one that cannot end longer than the best.

#include "pattern/pattern_analyser.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <utility>

#include "text/decimal.h"

namespace multirename {

namespace {

using Names = std::vector<std::u16string_view>;

constexpr char16_t number_mark = u':';
constexpr std::size_t none = std::u16string_view::npos;

// The first index of the run of digits that ends just before `end`, not below `lowest`.
std::size_t start_of_digits(std::u16string_view text, std::size_t end, std::size_t lowest = 0)
{
    while (end > lowest && is_digit(text[end - 1]))
        --end;
    return end;
}

// Replaces the run of digits around `index` by one number mark, whose index is given back.
std::size_t collapse_digit_run(std::u16string& text, std::size_t index)
{
    const std::size_t start = start_of_digits(text, index);
    text.replace(start, end_of_digits(text, index + 1) - start, 1, number_mark);
    return start;
}

struct Affix {
    std::u16string text;
    bool has_number = false;
};

struct Prefix : Affix {
    bool all_same = true;
};

// The prefix of the names met so far, cut down name by name. A digit that differs becomes a number mark the first time;
// from then on one that differs ends the prefix before its run.
class PrefixFinder {
public:
    PrefixFinder(const Names& names, bool number_mode) : number_mode_(number_mode)
    {
        if (names.empty())
            return;
        prefix_.text = names.front();
        for (std::size_t i = 1; i < names.size(); ++i) {
            const bool was_empty = prefix_.text.empty();
            if (!prefix_.has_number)
                compare_exactly(names[i]);
            else
                compare_with_numbers(names[i]);
            if (prefix_.text.empty() && !was_empty)
                return;
        }
    }

    [[nodiscard]] const Prefix& result() const { return prefix_; }

private:
    void compare_exactly(std::u16string_view name)
    {
        const std::u16string& prefix = prefix_.text;
        const auto difference = std::mismatch(prefix.begin(), prefix.end(), name.begin(), name.end());
        const auto index = static_cast<std::size_t>(difference.first - prefix.begin());
        if (index == prefix.size() && index == name.size())
            return;
        const bool digit_in_prefix = index < prefix.size() && is_digit(prefix[index]);
        const bool digit_in_name = index < name.size() && is_digit(name[index]);
        const bool runs_differ_in_length =
            index > 0 && is_digit(prefix[index - 1]) && (digit_in_prefix || digit_in_name);
        if (number_mode_ && ((digit_in_prefix && digit_in_name) || runs_differ_in_length)) {
            prefix_.has_number = true;
            collapse_digit_run(prefix_.text, digit_in_prefix && digit_in_name ? index : index - 1);
            compare_with_numbers(name);
            return;
        }
        end_at(index);
    }

    void compare_with_numbers(std::u16string_view name)
    {
        const std::u16string& prefix = prefix_.text;
        std::size_t a = 0;
        std::size_t b = 0;
        while (a < prefix.size() && b < name.size()) {
            if (prefix[a] == name[b]) {
                if (is_digit(prefix[a]) && end_of_digits(prefix, a) - a != end_of_digits(name, b) - b)
                    return end_at(start_of_digits(prefix, a));
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
        prefix_.all_same = false;
    }

    Prefix prefix_;
    bool number_mode_;
};

// What one backward walk over the suffix and a name leaves of the suffix. The units of each that are still to be
// compared are those before `a` and, down to the lowest index that counts, before `b`.
void narrow_suffix(Affix& suffix, std::u16string_view name, std::size_t lowest, bool number_mode)
{
    std::u16string& text = suffix.text;
    std::size_t a = text.size();
    std::size_t b = name.size();
    const auto skip_number_of_name = [&] { b = start_of_digits(name, b); };
    while (a > 0 && b > lowest) {
        const bool both_digits = number_mode && is_digit(text[a - 1]) && is_digit(name[b - 1]);
        if (text[a - 1] == name[b - 1] &&
            (!both_digits || a - start_of_digits(text, a) == b - start_of_digits(name, b, lowest))) {
            --a;
            --b;
        } else if (both_digits) {
            suffix.has_number = true;
            const std::size_t mark = collapse_digit_run(text, a - 1);
            // The character before a new number mark is kept unseen.
            a = mark > 0 ? mark - 1 : 0;
            skip_number_of_name();
        } else if (number_mode && is_digit(name[b - 1]) && text[a - 1] == number_mark) {
            --a;
            skip_number_of_name();
        } else {
            break;
        }
    }
    text.erase(0, a);
}

Affix common_suffix(const Names& names, std::size_t lowest, bool number_mode)
{
    Affix suffix{std::u16string(names.front().substr(lowest))};
    for (std::size_t i = 1; i < names.size() && !suffix.text.empty(); ++i)
        narrow_suffix(suffix, names[i], lowest, number_mode);
    return suffix;
}

std::size_t prefix_match_length(std::u16string_view prefix, std::u16string_view name)
{
    std::size_t consumed = 0;
    for (const char16_t unit : prefix) {
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

std::size_t suffix_match_length(std::u16string_view suffix, std::u16string_view name)
{
    std::size_t left = name.size();
    for (auto unit = suffix.rbegin(); unit != suffix.rend() && left > 0; ++unit) {
        if (*unit == number_mark && is_digit(name[left - 1]))
            left = start_of_digits(name, left);
        else if (*unit == name[left - 1])
            --left;
        else
            break;
    }
    return name.size() - left;
}

// Which characters occur in every name. Once a name of characters below 256 alone has been met, only those are judged:
// higher ones that all names up to then hold count as common from there on, and matching has to find out that they are
// not.
class CommonCharTable {
public:
    CommonCharTable(const Names& names, bool number_mode) :
        digits_common_(number_mode), is_common_(std::ranges::all_of(names, is_all_narrow) ? narrow_count : unit_count)
    {
        std::vector<std::uint32_t> holders(is_common_.size()); // how many names hold the character
        std::vector<std::uint32_t> last_holder(is_common_.size());
        std::uint32_t judging_high_characters = 0; // how many names the higher characters are judged by
        std::uint32_t number = 0;
        for (const std::u16string_view name : names) {
            ++number;
            narrow_only_ = narrow_only_ || is_all_narrow(name);
            if (!narrow_only_)
                judging_high_characters = number;
            for (const char16_t unit : name) {
                if ((is_narrow(unit) || !narrow_only_) && last_holder[unit] != number) {
                    last_holder[unit] = number;
                    ++holders[unit];
                }
            }
            digits_common_ = digits_common_ && std::ranges::any_of(name, is_digit);
        }
        for (std::size_t unit = 0; unit < is_common_.size(); ++unit)
            is_common_[unit] = holders[unit] == (unit < narrow_count ? number : judging_high_characters);
        if (digits_common_)
            std::fill_n(is_common_.begin() + u'0', 10, true);
    }

    [[nodiscard]] bool operator[](char16_t unit) const { return is_common_[unit]; }
    /// Numbers are recognised and every name has one.
    [[nodiscard]] bool digits_common() const { return digits_common_; }
    [[nodiscard]] bool is_empty() const
    {
        const auto judged = static_cast<std::ptrdiff_t>(narrow_only_ ? narrow_count : is_common_.size());
        return std::find(is_common_.begin(), is_common_.begin() + judged, true) == is_common_.begin() + judged;
    }

private:
    static constexpr std::size_t unit_count = 0x10000;
    static constexpr std::size_t narrow_count = 0x100;

    static bool is_narrow(char16_t unit) { return unit < narrow_count; }
    static bool is_all_narrow(std::u16string_view name) { return std::ranges::all_of(name, is_narrow); }

    bool narrow_only_ = false;
    bool digits_common_;
    std::vector<bool> is_common_; // for each character; without the higher ones when no name holds any
};

// The text with the fewest characters that are common, the first of such.
std::u16string_view choose_reference(const Names& texts, const CommonCharTable& table)
{
    std::u16string_view reference;
    std::ptrdiff_t fewest = PTRDIFF_MAX;
    for (const std::u16string_view text : texts) {
        const auto count = std::ranges::count_if(text, [&table](char16_t unit) { return table[unit]; });
        if (count < fewest) {
            reference = text;
            fewest = count;
        }
    }
    return reference;
}

std::size_t common_run_length(std::u16string_view text, std::size_t start, const CommonCharTable& table)
{
    std::size_t end = start;
    while (end < text.size() && table[text[end]])
        ++end;
    return end - start;
}

// How much of `piece`, from its front, stands somewhere in the text; 0 when that is no more than `too_little`.
std::size_t length_found(std::u16string_view piece, std::u16string_view text, std::size_t too_little)
{
    std::size_t longest = 0;
    const std::u16string_view worth_finding = piece.substr(0, too_little + 1);
    for (std::size_t at = text.find(worth_finding); at != none; at = text.find(worth_finding, at + 1)) {
        const std::u16string_view rest = text.substr(at);
        const auto end = std::mismatch(piece.begin(), piece.end(), rest.begin(), rest.end()).first;
        longest = std::max(longest, static_cast<std::size_t>(end - piece.begin()));
        if (longest == piece.size())
            break;
    }
    return longest;
}

std::u16string longest_common_run(const Names& texts, const CommonCharTable& table)
{
    const std::u16string_view reference = choose_reference(texts, table);
    std::u16string_view best;
    for (std::size_t start = 0; start + best.size() < reference.size(); ++start) {
        std::size_t length = common_run_length(reference, start, table);
        for (const std::u16string_view text : texts) {
            if (length <= best.size())
                break;
            length = length_found(reference.substr(start, length), text, best.size());
        }
        if (length > best.size())
            best = reference.substr(start, length);
    }
    return std::u16string(best);
}

// A piece of the reference with some runs of digits made into number marks.
struct Piece {
    std::u16string text;
    std::vector<std::uint32_t> weights; // for each character, how many of the reference it stands for

    [[nodiscard]] std::size_t weight() const
    {
        std::size_t sum = 0;
        for (const std::uint32_t weight : weights)
            sum += weight;
        return sum;
    }

    void collapse(std::size_t index)
    {
        const std::size_t length = text.size();
        const std::size_t mark = collapse_digit_run(text, index);
        const std::size_t run = length - text.size() + 1;
        weights[mark] = static_cast<std::uint32_t>(run);
        const auto behind = weights.begin() + static_cast<std::ptrdiff_t>(mark) + 1;
        weights.erase(behind, behind + static_cast<std::ptrdiff_t>(run - 1));
    }

    void cut(std::size_t length)
    {
        text.resize(length);
        weights.resize(length);
    }
};

class NumberRunFinder {
public:
    NumberRunFinder(const Names& texts, const CommonCharTable& table) : texts_(texts)
    {
        const std::u16string_view reference = choose_reference(texts, table);
        for (std::size_t start = 0; start + best_weight_ < reference.size(); ++start) {
            const std::size_t length = common_run_length(reference, start, table);
            refine({std::u16string(reference.substr(start, length)), std::vector<std::uint32_t>(length, 1)}, 0);
        }
    }

    [[nodiscard]] const std::u16string& result() const { return best_; }

private:
    // Cuts the piece down to what all texts from `index` on hold of it, and its copies with more number marks.
    void refine(Piece piece, std::size_t index)
    {
        for (; index < texts_.size(); ++index) {
            if (piece.weight() <= best_weight_ || !is_new(piece, index))
                return;
            const std::size_t length = best_match(piece, index);
            if (length == 0)
                return;
            piece.cut(length);
        }
        const std::size_t weight = piece.weight();
        if (weight > best_weight_) {
            best_weight_ = weight;
            best_ = std::move(piece.text);
        }
    }

    // How many characters of the piece, from its front, match best in the text; 0 when nothing does, or when a copy has
    // been found that the piece cannot be longer than.
    std::size_t best_match(const Piece& piece, std::size_t index)
    {
        const std::u16string_view text = texts_[index];
        std::size_t best_length = 0;
        std::size_t best_score = 0;
        for (std::size_t start = 0; start < text.size(); ++start) {
            const auto [length, score, is_stopped_by_digit] = match(piece, text.substr(start));
            if (is_stopped_by_digit) {
                Piece copy = piece;
                copy.collapse(length);
                refine(std::move(copy), index);
                if (best_weight_ >= piece.weight())
                    return 0;
            }
            if (score > best_score) {
                best_score = score;
                best_length = length;
            }
            if (length == piece.text.size())
                break;
        }
        return best_length;
    }

    struct Match {
        std::size_t length = 0; // in characters of the piece
        std::size_t score = 0; // their weight
        bool is_stopped_by_digit = false;
    };

    static Match match(const Piece& piece, std::u16string_view text)
    {
        Match match;
        for (std::size_t at = 0; match.length < piece.text.size() && at < text.size(); ++match.length) {
            const char16_t unit = piece.text[match.length];
            if (unit == number_mark && is_digit(text[at])) {
                at = end_of_digits(text, at);
            } else if (unit == text[at]) {
                ++at;
            } else {
                match.is_stopped_by_digit = is_digit(unit) && is_digit(text[at]);
                break;
            }
            match.score += piece.weights[match.length];
        }
        return match;
    }

    bool is_new(const Piece& piece, std::size_t index)
    {
        std::u16string key;
        key.reserve(2 * piece.text.size() + 3);
        for (std::size_t i = 0; i < piece.text.size(); ++i) {
            key.push_back(piece.text[i]);
            if (piece.text[i] == number_mark)
                append_number(key, piece.weights[i]);
        }
        append_number(key, index);
        return followed_.insert(std::move(key)).second;
    }

    static void append_number(std::u16string& key, std::size_t number)
    {
        for (const unsigned shift : {0U, 16U, 32U})
            key.push_back(static_cast<char16_t>(number >> shift & 0xFFFF));
    }

    const Names& texts_;
    std::u16string best_;
    std::size_t best_weight_ = 0;
    std::unordered_set<std::u16string> followed_; // pieces and the texts that they were followed from
};

struct Occurrence {
    std::size_t start = none;
    std::size_t end = none;
};

Occurrence find_exactly(std::u16string_view common, std::u16string_view text)
{
    const std::size_t start = text.find(common);
    return start == none ? Occurrence() : Occurrence{start, start + common.size()};
}

Occurrence find_with_numbers(std::u16string_view common, std::u16string_view text)
{
    for (std::size_t start = 0; start < text.size(); ++start) {
        std::size_t at = start;
        std::size_t matched = 0;
        for (; matched < common.size() && at < text.size(); ++matched) {
            if (common[matched] == number_mark && is_digit(text[at]))
                at = end_of_digits(text, at);
            else if (common[matched] == text[at])
                ++at;
            else
                break;
        }
        if (matched == common.size())
            return {start, at};
    }
    return {};
}

// The pattern of texts that neither begin nor end alike. Where nothing is left of any of them there is a wild part all
// the same: it takes no text then.
std::u16string middle_pattern(const Names& texts, const CommonCharTable& table)
{
    const bool with_numbers = table.digits_common();
    const std::u16string common =
        with_numbers ? NumberRunFinder(texts, table).result() : longest_common_run(texts, table);
    if (common.empty())
        return u"*";
    Names left;
    Names right;
    for (const std::u16string_view text : texts) {
        const Occurrence found = with_numbers ? find_with_numbers(common, text) : find_exactly(common, text);
        const bool is_found = found.start != none;
        left.push_back(is_found ? text.substr(0, found.start) : std::u16string_view());
        right.push_back(is_found ? text.substr(found.end) : text);
    }
    return middle_pattern(left, table) + common + middle_pattern(right, table);
}

bool overlap(const Prefix& prefix, const Affix& suffix, std::u16string_view name)
{
    return prefix_match_length(prefix.text, name) + suffix_match_length(suffix.text, name) > name.size();
}

std::u16string with_marks_shown(std::u16string_view pattern, bool number_mode)
{
    std::u16string shown = escape_hashes(pattern);
    if (number_mode)
        std::ranges::replace(shown, number_mark, u'#');
    return shown;
}

// Either all extensions are one, or they are not common.
class CommonExtension {
public:
    void add(std::u16string_view extension)
    {
        if (extension.empty() || (first_ && *first_ != extension))
            all_same_ = false;
        else
            first_ = extension;
    }

    [[nodiscard]] std::u16string text() const
    {
        if (!first_)
            return {};
        return std::u16string(all_same_ ? *first_ : u".*");
    }

private:
    std::optional<std::u16string_view> first_;
    bool all_same_ = true;
};

} // namespace

std::u16string pattern_of_names(std::span<const std::u16string_view> given_names, bool numberMode)
{
    Names names(given_names.begin(), given_names.end());
    const Prefix prefix = PrefixFinder(names, numberMode).result();
    if (prefix.all_same)
        return with_marks_shown(prefix.text, numberMode);

    Affix suffix = common_suffix(names, prefix.text.size(), numberMode);
    const auto overlaps = [&](std::u16string_view name) { return overlap(prefix, suffix, name); };
    if (!suffix.text.empty() && std::ranges::any_of(names, overlaps))
        suffix = {};
    for (std::u16string_view& name : names) {
        name.remove_suffix(suffix_match_length(suffix.text, name));
        name.remove_prefix(prefix_match_length(prefix.text, name));
    }

    const CommonCharTable table(names, numberMode);
    const std::u16string middle = table.is_empty() ? u"*" : middle_pattern(names, table);
    return with_marks_shown(prefix.text + middle + suffix.text, numberMode);
}

ExtractedPattern computeNamePattern(const FileSet& files, bool numberMode, NameMode nameMode)
{
    Names names;
    CommonExtension extension;
    files.for_each_entry([&](const Filename& entry) {
        if (entry.not_listed)
            return;
        if (nameMode == NameMode::WholeName) {
            names.emplace_back(entry.name);
            return;
        }
        names.push_back(base_name(entry.name));
        extension.add(extension_of(entry.name));
    });
    return {pattern_of_names(names, numberMode), extension.text()};
}

} // namespace multirename
