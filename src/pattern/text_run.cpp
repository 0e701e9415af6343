// Every text bounds how long the run from each place of the reference can be. Bounds from few texts are mostly sharp
// already, so the guess is what they allow, and only the place of the guess is looked for in the other texts. The
// further guesses go before they fail, the more texts bound all places.

#include "pattern/text_run.h"

#include <algorithm>
#include <cstdint>

namespace multirename {

namespace {

RunBounds::Classes classes_of(std::u16string_view text, const CommonCharTable& table)
{
    RunBounds::Classes classes;
    for (const char16_t unit : text)
        classes.push_back(table.class_of(unit));
    return classes;
}

// How much of `run`, from its front, stands somewhere in the text.
std::size_t length_found(std::u16string_view run, std::u16string_view text)
{
    std::size_t longest = 0;
    for (std::size_t at = 0; at + longest < text.size(); ++at) {
        const auto end =
            std::mismatch(run.begin(), run.end(), text.begin() + static_cast<std::ptrdiff_t>(at), text.end()).first;
        longest = std::max(longest, static_cast<std::size_t>(end - run.begin()));
    }
    return longest;
}

} // namespace

TextRunSearch::TextRunSearch(const SlicedNames& texts, std::size_t reference, const CommonCharTable& table) :
    texts_(texts),
    table_(table),
    reference_(texts[reference]),
    bounds_(classes_of(reference_, table)),
    budget_(texts.size(), reference_.size())
{
    budget_.begin([this](std::size_t text) { return lower_bounds(text); });
}

std::u16string_view TextRunSearch::guess() const
{
    const std::size_t start = bounds_.highest();
    return reference_.substr(start, bounds_[start]);
}

void TextRunSearch::reject(std::size_t text)
{
    // Bounds by the classes of characters may leave the guess as it is.
    const std::size_t start = bounds_.highest();
    bounds_.lower(start, static_cast<std::uint32_t>(length_found(guess(), texts_[text])));
    lower_bounds(text);
    budget_.spend(text + 1, [this](std::size_t further) { lower_bounds(further); });
}

bool TextRunSearch::lower_bounds(std::size_t text)
{
    const std::uint32_t highest = bounds_[bounds_.highest()];
    // A place that stands in every text but one is not worth the time.
    if (highest <= 1)
        return false;
    classes_.clear();
    for (const char16_t unit : texts_[text])
        classes_.push_back(table_.class_of(unit));
    bounds_.lower(classes_);
    return bounds_[bounds_.highest()] < highest;
}

} // namespace multirename
