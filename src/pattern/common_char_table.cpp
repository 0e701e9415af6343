// Only what the first text holds can be common. Its characters are numbered, so that those of a further text are
// collected in one word of bits, and what is common is what is left when these words are combined. A text of more
// characters than a word has bits is judged in several goes.

#include "pattern/common_char_table.h"

#include <algorithm>
#include <array>
#include <string>

#include "pattern/number_mark.h"
#include "text/decimal.h"

namespace multirename {

namespace {

constexpr std::size_t unit_count = 0x10000;
constexpr std::size_t narrow_count = 0x100;

// The classes of the finished table.
constexpr std::uint8_t class_count = 60;
constexpr std::uint8_t high_class = 61; // of the characters that no text was asked for
constexpr std::uint8_t digit_class = 62;

// The bits while texts are judged: one for each candidate, by its number, and one for having a digit at all.
constexpr std::uint8_t no_candidate = 0;
constexpr std::uint8_t most_candidates = 62;
constexpr std::uint8_t mere_digit = 63;
constexpr std::uint64_t digit_bit = std::uint64_t{1} << mere_digit;

bool is_narrow(char16_t unit) { return unit < narrow_count; }

std::uint64_t bit(std::size_t number) { return std::uint64_t{1} << number; }

std::u16string distinct_units(std::u16string_view text)
{
    std::u16string units(text);
    std::sort(units.begin(), units.end());
    units.erase(std::unique(units.begin(), units.end()), units.end());
    return units;
}

} // namespace

CommonCharTable::CommonCharTable(const SlicedNames& texts, bool number_mode)
{
    const std::u16string candidates = distinct_units(texts[0]);
    class_of_.resize(unit_count, no_candidate);
    Candidates common;
    for (std::size_t first = 0; first == 0 || first < candidates.size(); first += most_candidates) {
        const auto group = std::u16string_view(candidates).substr(first, most_candidates);
        const Candidates survivors = surviving(texts, group, number_mode && first == 0);
        common.insert(common.end(), survivors.begin(), survivors.end());
    }
    if (!is_empty_)
        classify(common, candidates.empty() || is_narrow(candidates.back()));
}

// Which of the candidates all texts hold; also finds out whether all of them have a digit.
CommonCharTable::Candidates CommonCharTable::surviving(const SlicedNames& texts, std::u16string_view candidates,
                                                       bool number_mode)
{
    std::array<std::uint64_t, 64> bits_of{}; // for each class
    std::uint64_t alive = 0;
    std::uint64_t high_ones = 0;
    for (std::size_t digit = u'0'; number_mode && digit <= u'9'; ++digit)
        class_of_[digit] = mere_digit;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        class_of_[candidates[i]] = static_cast<std::uint8_t>(i + 1);
        bits_of[i + 1] = bit(i + 1) | (number_mode && is_digit(candidates[i]) ? digit_bit : 0);
        alive |= bit(i + 1);
        high_ones |= is_narrow(candidates[i]) ? 0 : bit(i + 1);
    }
    if (number_mode) {
        bits_of[mere_digit] = digit_bit;
        alive |= digit_bit;
    }

    std::uint64_t no_longer_judged = 0;
    for (std::size_t i = 0; i < texts.size() && (alive & ~no_longer_judged) != 0; ++i) {
        texts.load_ahead(i);
        const std::u16string_view text = texts[i];
        if ((high_ones & ~no_longer_judged) != 0 && std::all_of(text.begin(), text.end(), is_narrow))
            no_longer_judged = high_ones;
        // Most texts show soon that they hold what those before them share.
        std::uint64_t missing = alive & ~no_longer_judged;
        for (auto unit = text.begin(); missing != 0 && unit != text.end(); ++unit)
            missing &= ~bits_of[class_of_[*unit]];
        alive &= ~missing;
    }

    is_empty_ = is_empty_ && (alive & ~no_longer_judged) == 0;
    digits_common_ = digits_common_ || (alive & digit_bit) != 0;
    Candidates survivors;
    for (const char16_t unit : candidates) {
        if ((alive & bit(class_of_[unit])) != 0)
            survivors.push_back(unit);
        class_of_[unit] = no_candidate;
    }
    return survivors;
}

// One character, and the only one of its class.
bool CommonCharTable::is_known_in_all(std::u16string_view run, std::uint64_t held_classes) const noexcept
{
    if (run.size() != 1 || !is_narrow(run.front()) || run.front() == number_mark || classes_are_shared_)
        return false;
    const std::uint8_t character_class = class_of(run.front());
    return character_class <= class_count && (held_classes & bit(character_class) & ~bit(no_candidate)) != 0;
}

void CommonCharTable::classify(const Candidates& common, bool are_high_ones_common)
{
    classes_are_shared_ = common.size() > class_count;
    std::fill(class_of_.begin(), class_of_.begin() + narrow_count, no_candidate);
    if (are_high_ones_common)
        std::fill(class_of_.begin() + narrow_count, class_of_.end(), high_class);
    for (std::size_t i = 0; i < common.size(); ++i)
        class_of_[common[i]] = static_cast<std::uint8_t>(1 + i % class_count);
    if (!digits_common_)
        return;
    std::fill_n(class_of_.begin() + u'0', 10, digit_class);
    if (class_of_[number_mark] != 0)
        class_of_[number_mark] = digit_class;
}

} // namespace multirename
