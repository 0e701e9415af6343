// A common run with numbers is found by taking a piece of the reference and cutting it down, text by text, to what
// matches best; where a digit of the piece meets another digit, a copy of the piece with that run of digits made into a
// mark is cut down as well, from that text on. The same copy can be reached in many ways, exponentially many for texts
// that are rich in digits.
//
// What becomes of a piece depends only on the piece and the text that it has reached, and only a longer result than the
// best so far counts. So a piece is dropped that was followed from there before. It is also dropped when it cannot end
// longer than the best: no piece from a place of the reference can, with whatever numbers, be longer than what some
// text holds when every run of digits matches every other. Those bounds are cheap, and taken from some texts in advance
// they tell which places of the reference to begin with. That the first of equals has to come out is kept by asking
// more of a later place than of an earlier one.

#include "pattern/number_run.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "pattern/number_mark.h"
#include "pattern/run_bounds.h"
#include "pattern/text_run.h"
#include "text/decimal.h"

namespace multirename {

namespace {

constexpr std::size_t nowhere = std::u16string_view::npos;

// So many times every text may be read before too many pieces seem to be followed in vain.
constexpr std::size_t usual_readings = 3;

// A piece of the reference with some runs of digits made into number marks.
struct Piece {
    std::u16string text;
    std::vector<std::uint32_t> ends; // for each character, how many of the reference the piece stands for up to there

    [[nodiscard]] std::uint32_t weight() const { return ends.empty() ? 0 : ends.back(); }

    void collapse(std::size_t index)
    {
        const std::size_t length = text.size();
        const std::size_t mark = collapse_digit_run(text, index);
        const auto first = ends.begin() + static_cast<std::ptrdiff_t>(mark);
        ends.erase(first, first + static_cast<std::ptrdiff_t>(length - text.size()));
    }

    void cut(std::size_t length)
    {
        text.resize(length);
        ends.resize(length);
    }

    // No two pieces have the same.
    [[nodiscard]] std::u16string key() const
    {
        std::u16string key;
        for (std::size_t i = 0; i < text.size(); ++i) {
            key.push_back(text[i]);
            if (text[i] == number_mark) {
                key.push_back(static_cast<char16_t>(ends[i] & 0xFFFF));
                key.push_back(static_cast<char16_t>(ends[i] >> 16));
            }
        }
        return key;
    }
};

struct Match {
    std::size_t length = 0; // in characters of the run
    std::size_t end = 0; // in the text
};

Match match_at(std::u16string_view run, std::u16string_view text, std::size_t start)
{
    Match match{0, start};
    for (; match.length < run.size() && match.end < text.size(); ++match.length) {
        const char16_t unit = run[match.length];
        if (unit == number_mark && is_digit(text[match.end]))
            match.end = end_of_digits(text, match.end);
        else if (unit == text[match.end])
            ++match.end;
        else
            break;
    }
    return match;
}

// The next place from `start` on where a match of a run that begins with `first` can begin or be stopped by a digit.
// A mark matches the rest of a run of digits as it matches the whole, so that one place is enough for it.
std::size_t next_start(char16_t first, std::u16string_view text, std::size_t start)
{
    if (first == number_mark) {
        while (start < text.size() && text[start] != number_mark &&
               (!is_digit(text[start]) || (start > 0 && is_digit(text[start - 1]))))
            ++start;
    } else if (is_digit(first)) {
        while (start < text.size() && !is_digit(text[start]))
            ++start;
    } else {
        while (start < text.size() && text[start] != first)
            ++start;
    }
    return start;
}

// Over which texts a piece has been followed, and what came of it at most.
class Followed {
public:
    // The end of the texts from `text` on over which nothing longer than `threshold` is to be expected; 0 for none.
    [[nodiscard]] std::uint32_t end_of_known(std::uint32_t text, std::uint32_t threshold) const
    {
        for (const Stretch& stretch : stretches_) {
            if (stretch.begin <= text && text < stretch.end && stretch.longest <= threshold)
                return stretch.end;
        }
        return 0;
    }

    void add(std::uint32_t begin, std::uint32_t end, std::uint32_t longest)
    {
        if (!stretches_.empty()) {
            Stretch& last = stretches_.back();
            if (begin <= last.end && last.begin <= end) {
                last = {std::min(last.begin, begin), std::max(last.end, end), std::max(last.longest, longest)};
                return;
            }
        }
        stretches_.push_back({begin, end, longest});
    }

private:
    struct Stretch {
        std::uint32_t begin;
        std::uint32_t end;
        std::uint32_t longest; // no result that can be reached from there is longer
    };
    std::vector<Stretch> stretches_;
};

// The reference and the texts with every run of digits made one place, for bounds that hold whatever becomes of them.
class PlaceBounds {
public:
    PlaceBounds(std::u16string_view reference, const CommonCharTable& table) :
        table_(table), place_of_(reference.size()), bounds_(classes_of(reference))
    {
        for (std::size_t i = 0, place = 0; i < reference.size(); ++place) {
            const std::size_t end = end_of_place(reference, i);
            std::fill(place_of_.begin() + static_cast<std::ptrdiff_t>(i),
                      place_of_.begin() + static_cast<std::ptrdiff_t>(end), static_cast<std::uint32_t>(place));
            ends_.push_back(static_cast<std::uint32_t>(end));
            i = end;
        }
        // A mark in a name would match what is not of its class.
        is_sound_ = reference.find(number_mark) == nowhere;
    }

    // True when the highest bound, in places, is lower now.
    bool lower(std::u16string_view text)
    {
        if (!is_sound_)
            return false;
        const std::uint32_t highest = bounds_[bounds_.highest()];
        bounds_.lower(classes_of(text));
        return bounds_[bounds_.highest()] < highest;
    }

    // How many characters of the reference a run from `start` can stand for at most.
    [[nodiscard]] std::uint32_t operator[](std::size_t start) const
    {
        const std::uint32_t place = place_of_[start];
        const std::uint32_t places = bounds_[place];
        return places == 0 ? 0 : ends_[place + places - 1] - static_cast<std::uint32_t>(start);
    }

private:
    static std::size_t end_of_place(std::u16string_view text, std::size_t index)
    {
        return is_digit(text[index]) ? end_of_digits(text, index) : index + 1;
    }

    [[nodiscard]] RunBounds::Classes classes_of(std::u16string_view text) const
    {
        RunBounds::Classes classes;
        for (std::size_t i = 0; i < text.size(); i = end_of_place(text, i))
            classes.push_back(table_.class_of(text[i]));
        return classes;
    }

    const CommonCharTable& table_;
    std::vector<std::uint32_t> place_of_; // for each character of the reference
    std::vector<std::uint32_t> ends_; // for each place, where it ends in the reference
    RunBounds bounds_;
    bool is_sound_ = true;
};

class NumberRunSearch {
public:
    NumberRunSearch(const SlicedNames& texts, std::size_t reference, const CommonCharTable& table,
                    std::uint64_t held_classes) :
        texts_(texts),
        table_(table),
        held_classes_(held_classes),
        reference_(texts[reference]),
        count_(static_cast<std::uint32_t>(texts.size())),
        bounds_(reference_, table),
        has_lowered_(texts.size()),
        is_tried_(reference_.size()),
        budget_(texts.size(), reference_.size())
    {
        budget_.begin([this](std::size_t text) { return lower_bounds(text); });
    }

    [[nodiscard]] std::u16string result()
    {
        for (std::size_t start = most_promising(); start != nowhere; start = most_promising()) {
            is_tried_[start] = true;
            try_start(start);
        }
        return best_;
    }

private:
    // The first place with the highest bound among those that can still change the result.
    [[nodiscard]] std::size_t most_promising() const
    {
        std::size_t promising = nowhere;
        for (std::size_t start = 0; start < reference_.size(); ++start) {
            if (!is_tried_[start] && bounds_[start] > threshold_for(start) &&
                (promising == nowhere || bounds_[start] > bounds_[promising]))
                promising = start;
        }
        return promising;
    }

    // A piece from there has to be longer than this. An earlier place takes the result over with an equally long one.
    [[nodiscard]] std::uint32_t threshold_for(std::size_t start) const
    {
        return start < best_start_ && best_weight_ > 0 ? best_weight_ - 1 : best_weight_;
    }

    void try_start(std::size_t start)
    {
        start_ = start;
        threshold_ = threshold_for(start);
        Piece piece;
        for (std::size_t i = start; i < reference_.size() && table_[reference_[i]]; ++i) {
            piece.text.push_back(reference_[i]);
            piece.ends.push_back(static_cast<std::uint32_t>(i - start + 1));
        }
        if (table_.is_known_in_all(piece.text, held_classes_))
            take_if_longer(piece);
        else
            refine(std::move(piece), 0);
    }

    // Cuts the piece down to what all texts from `text` on hold of it, and its copies with more number marks. Gives the
    // end of the texts over which the piece need not be followed again.
    std::uint32_t refine(Piece piece, std::uint32_t text)
    {
        struct Stage {
            Followed* followed;
            std::uint32_t begin;
            std::uint32_t end;
        };
        std::vector<Stage> stages;
        while (!piece.text.empty()) {
            Followed& followed = followed_[piece.key()];
            const std::uint32_t begin = text;
            const std::uint32_t end = follow(piece, text, followed);
            stages.push_back({&followed, begin, end});
        }
        // Only now is it known what has come of them.
        for (const Stage& stage : stages)
            stage.followed->add(stage.begin, stage.end, threshold_);
        return stages.front().end;
    }

    // Takes the piece through the texts from `text` on until one cuts it, or leaves nothing of it when nothing more can
    // come of it. Gives the end of the texts over which that is known.
    std::uint32_t follow(Piece& piece, std::uint32_t& text, const Followed& followed)
    {
        std::vector<std::uint32_t> copied_until; // for each character, the copy with its run of digits collapsed
        for (; text < count_; ++text) {
            if (is_hopeless(piece))
                return give_up(piece, count_);
            if (const std::uint32_t known = followed.end_of_known(text, threshold_); known > 0)
                return give_up(piece, known);
            const std::size_t length = best_match(piece, text, copied_until);
            if (length == piece.text.size())
                continue;
            if (is_hopeless(piece))
                return give_up(piece, count_);
            lower_bounds(text);
            piece.cut(length);
            return ++text;
        }
        take_if_longer(piece);
        return give_up(piece, count_);
    }

    static std::uint32_t give_up(Piece& piece, std::uint32_t end)
    {
        piece.cut(0);
        return end;
    }

    [[nodiscard]] bool is_hopeless(const Piece& piece) const
    {
        return std::min(piece.weight(), bounds_[start_]) <= threshold_;
    }

    void take_if_longer(const Piece& piece)
    {
        if (piece.weight() <= threshold_)
            return;
        best_ = piece.text;
        best_weight_ = piece.weight();
        best_start_ = start_;
        threshold_ = best_weight_;
    }

    // How many characters of the piece, from its front, match best in the text; any number when a copy has made the
    // piece hopeless.
    std::size_t best_match(const Piece& piece, std::uint32_t index, std::vector<std::uint32_t>& copied_until)
    {
        texts_.load_ahead(index);
        const std::u16string_view text = texts_[index];
        count_reading();
        std::size_t best = 0;
        const char16_t first = piece.text.front();
        for (std::size_t start = next_start(first, text, 0); start < text.size();
             start = next_start(first, text, start + 1)) {
            const auto [length, end] = match_at(piece.text, text, start);
            if (length == piece.text.size())
                return length;
            best = std::max(best, length);
            if (end < text.size() && is_digit(text[end]) && is_digit(piece.text[length])) {
                follow_copy(piece, length, index, copied_until);
                if (is_hopeless(piece))
                    return 0;
            }
        }
        return best;
    }

    void follow_copy(const Piece& piece, std::size_t digit, std::uint32_t text,
                     std::vector<std::uint32_t>& copied_until)
    {
        copied_until.resize(piece.text.size());
        if (copied_until[digit] > text)
            return;
        Piece copy = piece;
        copy.collapse(digit);
        const std::uint32_t until = refine(std::move(copy), text);
        const auto run = copied_until.begin() + static_cast<std::ptrdiff_t>(start_of_digits(piece.text, digit));
        const auto run_end = copied_until.begin() + static_cast<std::ptrdiff_t>(end_of_digits(piece.text, digit));
        std::fill(run, run_end, until);
    }

    // True when the highest bound is lower now.
    bool lower_bounds(std::size_t text)
    {
        if (has_lowered_[text])
            return false;
        has_lowered_[text] = true;
        return bounds_.lower(texts_[text]);
    }

    void count_reading()
    {
        if (++texts_read_ > usual_readings * texts_.size())
            budget_.spend(1, [this](std::size_t further) { lower_bounds(further); });
    }

    const SlicedNames& texts_;
    const CommonCharTable& table_;
    std::uint64_t held_classes_; // of which every text holds a character
    std::u16string_view reference_;
    std::uint32_t count_; // of the texts
    PlaceBounds bounds_;
    std::vector<bool> has_lowered_; // for each text
    std::vector<bool> is_tried_; // for each place of the reference
    BoundingBudget budget_;
    std::size_t texts_read_ = 0;
    std::unordered_map<std::u16string, Followed> followed_;

    std::u16string best_;
    std::uint32_t best_weight_ = 0;
    std::size_t best_start_ = nowhere;
    std::size_t start_ = 0; // where the pieces that are being followed begin
    std::uint32_t threshold_ = 0; // a piece that does not end longer changes nothing
};

} // namespace

std::u16string longest_common_number_run(const SlicedNames& texts, std::size_t reference, const CommonCharTable& table,
                                         std::uint64_t held_classes)
{
    return NumberRunSearch(texts, reference, table, held_classes).result();
}

Occurrence find_number_run(std::u16string_view run, std::u16string_view text) noexcept
{
    for (std::size_t start = next_start(run.front(), text, 0); start < text.size();
         start = next_start(run.front(), text, start + 1)) {
        const Match match = match_at(run, text, start);
        if (match.length == run.size())
            return {start, match.end};
    }
    return {};
}

} // namespace multirename
