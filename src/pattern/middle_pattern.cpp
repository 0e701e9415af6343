// The middles are split at the longest run of characters that all of them hold, then the parts before and behind it in
// the same way, until nothing is common any more, which is a wild part. Most parts share nothing, and a few names show
// it; so while texts are split it is noted which common characters all left parts hold, and all right parts, and which
// part would be the reference of the next search.

#include "pattern/middle_pattern.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "pattern/common_char_table.h"
#include "pattern/number_run.h"
#include "pattern/text_run.h"
#include "text/find_text.h"

namespace multirename {

namespace {

using Slices = std::vector<Slice>;

std::uint64_t bit(std::uint8_t character_class) { return std::uint64_t{1} << character_class; }

std::uint32_t count_common(std::u16string_view text, const CommonCharTable& table)
{
    std::uint32_t count = 0;
    for (const char16_t unit : text)
        count += table[unit] ? 1U : 0U;
    return count;
}

// What is known of a list of texts before it is searched.
class Summary {
public:
    explicit Summary(const CommonCharTable& table) : table_(&table) { }

    // Texts are added in the order of the list. Most show soon that they hold what those before them share.
    void add(std::u16string_view text, std::uint32_t common_units, std::size_t index)
    {
        std::uint64_t missing = shared_;
        for (auto unit = text.begin(); missing != 0 && unit != text.end(); ++unit)
            missing &= ~bit(table_->class_of(*unit));
        shared_ &= ~missing;
        judge(common_units, index);
    }

    // The same for a text that is known to hold all that those before it share, or might as well.
    void judge(std::uint32_t common_units, std::size_t index)
    {
        if (common_units < fewest_) {
            fewest_ = common_units;
            reference_ = index;
        }
    }

    // False when no common character stands in all of the texts.
    [[nodiscard]] bool may_share() const { return shared_ != 0; }
    // The classes of which every text holds a character.
    [[nodiscard]] std::uint64_t shared_classes() const { return shared_; }
    // The text with the fewest common characters, the first of such.
    [[nodiscard]] std::size_t reference() const { return reference_; }

private:
    const CommonCharTable* table_;
    std::uint64_t shared_ = ~bit(0); // the classes of common characters
    std::uint32_t fewest_ = std::numeric_limits<std::uint32_t>::max();
    std::size_t reference_ = 0;
};

// A list of texts that are being split: what stands before the common run, and what is known of both sides.
struct Split {
    Split(std::size_t size, const CommonCharTable& table) : left(size), left_summary(table), right_summary(table) { }

    std::u16string common;
    Slices left;
    Summary left_summary;
    Summary right_summary;
};

class MiddleSplitter {
public:
    MiddleSplitter(std::span<const std::u16string_view> names, const CommonCharTable& table) :
        names_(names), table_(table)
    {
    }

    [[nodiscard]] std::u16string pattern(Slices texts) const
    {
        const SlicedNames sliced(names_, texts);
        Summary summary(table_);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            sliced.load_ahead(i);
            texts[i].common_units = count_common(sliced[i], table_);
            summary.judge(texts[i].common_units, i);
        }
        return pattern(texts, summary);
    }

private:
    // Where nothing is left of any text there is a wild part all the same: it takes no text then.
    std::u16string pattern(Slices& texts, Summary summary) const
    {
        std::u16string found;
        while (summary.may_share()) {
            std::optional<Split> split =
                table_.digits_common() ? split_with_numbers(texts, summary) : split_as_text(texts, summary);
            if (!split)
                break;
            found += pattern(split->left, split->left_summary) + split->common;
            summary = split->right_summary;
        }
        return found + u"*";
    }

    // Leaves the right parts in `texts`; nothing and the texts as they are when they share nothing.
    std::optional<Split> split_as_text(Slices& texts, const Summary& summary) const
    {
        const SlicedNames sliced(names_, texts);
        TextRunSearch search(sliced, summary.reference(), table_);
        for (std::u16string_view guess = search.guess(); !guess.empty(); guess = search.guess()) {
            Split split(texts.size(), table_);
            split.common = guess;
            const bool is_held = table_.is_known_in_all(guess, summary.shared_classes());
            const std::size_t stopped_at = split_at(guess, sliced, texts, split, is_held);
            if (stopped_at == texts.size()) {
                for (std::size_t i = 0; i < texts.size() && split.right_summary.may_share(); ++i)
                    texts[i] = right_of(texts[i], split.left[i], static_cast<std::uint32_t>(guess.size()));
                return split;
            }
            search.reject(stopped_at);
        }
        return std::nullopt;
    }

    // Gives the index of the first text that does not hold the run, or their number.
    std::size_t split_at(std::u16string_view run, const SlicedNames& sliced, const Slices& texts, Split& split,
                         bool is_held) const
    {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const bool noting = is_worth_noting(split);
            if (is_held && !noting)
                break;
            sliced.load_ahead(i);
            const std::size_t start = find_text(run, sliced[i]);
            if (start == std::u16string_view::npos)
                return i;
            if (noting)
                note(split, sliced[i], texts[i], {start, start + run.size()}, i);
        }
        return texts.size();
    }

    std::optional<Split> split_with_numbers(Slices& texts, const Summary& summary) const
    {
        const SlicedNames sliced(names_, texts);
        Split split(texts.size(), table_);
        split.common = longest_common_number_run(sliced, summary.reference(), table_, summary.shared_classes());
        if (split.common.empty())
            return std::nullopt;
        for (std::size_t i = 0; i < texts.size() && is_worth_noting(split); ++i) {
            sliced.load_ahead(i);
            Occurrence found = find_number_run(split.common, sliced[i]);
            if (found.start == std::u16string_view::npos)
                found = {0, 0};
            note(split, sliced[i], texts[i], found, i);
            texts[i] = right_of(texts[i], split.left[i], static_cast<std::uint32_t>(found.end - found.start));
        }
        return split;
    }

    // Parts that share nothing on either side are not split again, so that nobody asks where they are.
    static bool is_worth_noting(const Split& split)
    {
        return split.left_summary.may_share() || split.right_summary.may_share();
    }

    void note(Split& split, std::u16string_view text, Slice slice, Occurrence found, std::size_t index) const
    {
        const std::u16string_view before = text.substr(0, found.start);
        Slice& left = split.left[index];
        left = {slice.begin, slice.begin + static_cast<std::uint32_t>(found.start), count_common(before, table_)};
        const Slice right = right_of(slice, left, static_cast<std::uint32_t>(found.end - found.start));
        split.left_summary.add(before, left.common_units, index);
        split.right_summary.add(text.substr(found.end), right.common_units, index);
    }

    // What is behind the common run, of `length`; all its characters are common ones.
    static Slice right_of(Slice whole, Slice left, std::uint32_t length)
    {
        return {left.end + length, whole.end, whole.common_units - left.common_units - length};
    }

    std::span<const std::u16string_view> names_;
    const CommonCharTable& table_;
};

} // namespace

std::u16string middle_pattern(std::span<const std::u16string_view> names, Slices middles, bool number_mode)
{
    const CommonCharTable table(SlicedNames(names, middles), number_mode);
    return table.is_empty() ? u"*" : MiddleSplitter(names, table).pattern(std::move(middles));
}

} // namespace multirename
