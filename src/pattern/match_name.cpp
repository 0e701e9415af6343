// Parts are matched one after the other. A wild part first takes as little as the part behind it allows; whenever
// something behind it fails, the last wild part takes more and everything behind it is tried again. The wild parts
// before it need not be tried again: with more text for them, what stands between two wild parts never ends earlier,
// and what the last one can still take includes all that would be left to it then.

#include "pattern/match_name.h"

#include <algorithm>

#include "fileset/filename.h"
#include "text/decimal.h"
#include "text/find_text.h"
#include "text/shared_front.h"

namespace multirename {

namespace {

constexpr std::size_t most_digits = 260;

constexpr std::size_t nowhere = SIZE_MAX;

} // namespace

NameMatcher::NameMatcher(const std::vector<NamePart>& parts) : steps_(parts.size())
{
    std::size_t length = 0;
    for (std::size_t i = parts.size(); i-- > 0;) {
        const NamePart& part = parts[i];
        Step& step = steps_[i];
        step.part = &part;
        step.kind = part.kind;
        step.can_take_more = part.kind == NamePartKind::Wild && !part.fixedLength;
        step.must_start_with_dot = part.mustStartWithDot;
        step.shortest = static_cast<std::size_t>(std::max(part.minLength, 0));
        step.text = part.matchText;
        step.length_behind = length;
        if (part.kind != NamePartKind::Text)
            length = unknown;
        else if (length != unknown)
            length += part.matchText.size();
    }
    match_.captures.reserve(parts.size());
}

const NameMatch& NameMatcher::match(std::u16string_view text)
{
    match_.text = text_ = text;
    part_ = 0;
    place_ = 0;
    first_wild_ = steps_.size();
    last_wild_.part = steps_.size();
    match_.captures.resize(steps_.size());
    match_.matched = match_onwards();
    while (!match_.matched && lengthen_last_wild())
        match_.matched = match_onwards();
    if (!match_.matched)
        match_.captures.resize(std::min(part_, first_wild_));
    return match_;
}

// From the present part and place to the end of both, or to the first part that does not fit.
bool NameMatcher::match_onwards()
{
    std::size_t place = place_;
    for (; part_ < steps_.size(); ++part_) {
        const std::size_t end = end_of(part_, place);
        if (end == nowhere)
            return false;
        match_.captures[part_] = {steps_[part_].part, {text_.data() + place, end - place}};
        place = end;
    }
    return place == text_.size();
}

// Where the part ends that begins at `place`, a wild part as soon as it may; nowhere when the part does not fit.
std::size_t NameMatcher::end_of(std::size_t part, std::size_t place)
{
    const Step& step = steps_[part];
    const std::size_t left = text_.size() - place;
    if (step.kind == NamePartKind::Text) {
        const std::size_t length = step.text.size();
        const bool fits = length <= left && shared_front(step.text, text_.substr(place)) == length;
        return fits ? place + length : nowhere;
    }
    if (step.kind == NamePartKind::Number) {
        const std::size_t end = std::min(end_of_digits(text_, place), place + most_digits);
        return end > place ? end : nowhere;
    }
    return end_of_wild(part, place);
}

std::size_t NameMatcher::end_of_wild(std::size_t part, std::size_t place)
{
    const Step& step = steps_[part];
    const std::size_t left = text_.size() - place;
    const bool fits = step.shortest <= left && (!step.must_start_with_dot || (left > 0 && text_[place] == u'.'));
    if (!fits)
        return nowhere;
    first_wild_ = std::min(first_wild_, part);
    std::size_t end = place + step.shortest;
    if (!step.can_take_more)
        return end;
    end = first_end_worth_trying(part, end);
    last_wild_ = {part, place, std::min(end, text_.size())};
    return end;
}

// Sets part and place behind the last wild part, which takes more than it did; false when it can take no more.
bool NameMatcher::lengthen_last_wild()
{
    OpenWild& wild = last_wild_;
    if (wild.part == steps_.size() || wild.end == text_.size())
        return false;
    wild.end = first_end_worth_trying(wild.part, wild.end + 1);
    if (wild.end == nowhere)
        return false;
    match_.captures[wild.part].text = text_.substr(wild.start, wild.end - wild.start);
    part_ = wild.part + 1;
    place_ = wild.end;
    return true;
}

// Where a wild part may end, from `place` on, as far as what stands behind it tells that at once; nowhere when there is
// no such place.
std::size_t NameMatcher::first_end_worth_trying(std::size_t part, std::size_t place) const
{
    if (const std::size_t behind = steps_[part].length_behind; behind != unknown)
        return behind <= text_.size() && text_.size() - behind >= place ? text_.size() - behind : nowhere;
    const Step& next = steps_[part + 1];
    if (next.kind == NamePartKind::Text && !next.text.empty())
        return find_text(next.text, text_, place);
    if (next.kind == NamePartKind::Text && steps_[part + 2].kind == NamePartKind::Number) {
        const auto from = text_.begin() + static_cast<std::ptrdiff_t>(place);
        const auto digit = std::find_if(from, text_.end(), is_digit);
        return digit == text_.end() ? nowhere : static_cast<std::size_t>(digit - text_.begin());
    }
    return place;
}

RememberedMatches::RememberedMatches(const std::vector<NamePart>& parts) : matcher_(parts)
{
    for (const NamePart& part : parts)
        bytes_per_name_ += part.kind == NamePartKind::Text ? 0U : 1U;
    match_.matched = true;
    match_.captures.resize(parts.size());
    for (std::size_t part = 0; part < parts.size(); ++part)
        match_.captures[part].part = &parts[part];
}

const NameMatch& RememberedMatches::next(std::u16string_view text)
{
    if (next_ == lengths_.size()) {
        const NameMatch& match = matcher_.match(text);
        remember(match, text.size());
        next_ = lengths_.size();
        return match;
    }
    const std::uint8_t* known = &lengths_[next_];
    next_ += bytes_per_name_;
    if (*known++ == 0)
        return matcher_.match(text);
    match_.text = text;
    for (PartCapture& capture : match_.captures) {
        const bool is_text = capture.part->kind == NamePartKind::Text;
        const std::size_t length = is_text ? capture.part->matchText.size() : *known++;
        capture.text = text.substr(0, length);
        text.remove_prefix(length);
    }
    return match_;
}

// What does not match, or is too long for bytes, is matched each time.
void RememberedMatches::remember(const NameMatch& match, std::size_t text_length)
{
    const bool is_known = match.matched && text_length <= UINT8_MAX;
    const std::size_t start = lengths_.size();
    lengths_.resize(start + bytes_per_name_);
    if (!is_known)
        return;
    std::uint8_t* place = &lengths_[start];
    *place++ = 1;
    for (const PartCapture& capture : match.captures) {
        if (capture.part->kind != NamePartKind::Text)
            *place++ = static_cast<std::uint8_t>(capture.text.size());
    }
}

NameMatch matchName(std::u16string_view text, const std::vector<NamePart>& parts)
{
    return NameMatcher(parts).match(text);
}

std::u16string_view described_name(const NamePattern& pattern, std::u16string_view name) noexcept
{
    return pattern.includesExtension ? name : base_name(name);
}

} // namespace multirename
