// Parts are matched one after the other. A wild part first takes as little as it may; whenever something behind it
// fails, the last wild part takes one more unit and everything behind it is tried again. Whether the rest matches from
// a place does not depend on what was taken before, so a rest that failed once is never tried again: that keeps many
// wild parts from multiplying their choices.

#include "pattern/match_name.h"

#include <algorithm>
#include <optional>

#include "fileset/filename.h"
#include "text/decimal.h"

namespace multirename {

namespace {

constexpr std::size_t most_digits = 260;

class Matcher {
public:
    Matcher(std::u16string_view text, const std::vector<NamePart>& parts) : text_(text), parts_(parts) { }

    NameMatch run()
    {
        captures_.reserve(parts_.size());
        bool fits = match_onwards();
        while (!fits && !open_wilds_.empty()) {
            if (lengthen_last_wild())
                fits = match_onwards();
            else
                open_wilds_.pop_back();
        }
        return {fits, std::move(captures_)};
    }

private:
    struct OpenWild {
        std::size_t part;
        std::size_t start;
        std::size_t end;
    };

    // From the present part and place to the end of both, or to the first part that does not fit.
    bool match_onwards()
    {
        for (; part_ < parts_.size(); ++part_) {
            const NamePart& part = parts_[part_];
            const std::optional<std::size_t> length = length_taken(part);
            if (!length)
                return false;
            if (part.kind == NamePartKind::Wild) {
                open_wilds_.push_back({part_, place_, place_ + *length});
                if (has_failed(part_, place_ + *length))
                    return false;
            }
            captures_.push_back({&part, text_.substr(place_, *length)});
            place_ += *length;
        }
        return place_ == text_.size();
    }

    [[nodiscard]] std::optional<std::size_t> length_taken(const NamePart& part) const
    {
        const std::u16string_view rest = text_.substr(place_);
        switch (part.kind) {
        case NamePartKind::Text:
            if (rest.starts_with(part.matchText))
                return part.matchText.size();
            return std::nullopt;
        case NamePartKind::Number: {
            const std::size_t digits = std::min(end_of_digits(rest, 0), most_digits);
            return digits > 0 ? std::optional(digits) : std::nullopt;
        }
        case NamePartKind::Wild: {
            const auto shortest = static_cast<std::size_t>(std::max(part.minLength, 0));
            if ((part.mustStartWithDot && !rest.starts_with(u'.')) || rest.size() < shortest)
                return std::nullopt;
            return shortest;
        }
        }
        return std::nullopt;
    }

    // Sets part and place behind the last wild part, which takes more than it did; false when it can take no more.
    bool lengthen_last_wild()
    {
        OpenWild& wild = open_wilds_.back();
        captures_.resize(wild.part);
        remember_failed(wild.part, wild.end);
        if (parts_[wild.part].fixedLength || wild.end == text_.size())
            return false;
        ++wild.end;
        // Whoever found that the rest fails from here has gone on to the end of the text.
        if (has_failed(wild.part, wild.end))
            return false;
        captures_.push_back({&parts_[wild.part], text_.substr(wild.start, wild.end - wild.start)});
        part_ = wild.part + 1;
        place_ = wild.end;
        return true;
    }

    // What is remembered of a wild part and a place: that nothing behind the part matches from there on.
    [[nodiscard]] std::size_t slot(std::size_t part, std::size_t place) const
    {
        return part * (text_.size() + 1) + place;
    }
    [[nodiscard]] bool has_failed(std::size_t part, std::size_t place) const
    {
        return !failed_.empty() && failed_[slot(part, place)];
    }
    void remember_failed(std::size_t part, std::size_t place)
    {
        if (failed_.empty())
            failed_.resize(parts_.size() * (text_.size() + 1));
        failed_[slot(part, place)] = true;
    }

    std::u16string_view text_;
    const std::vector<NamePart>& parts_;
    std::size_t part_ = 0;
    std::size_t place_ = 0;
    std::vector<PartCapture> captures_; // one for each part before part_
    std::vector<OpenWild> open_wilds_;
    std::vector<bool> failed_;
};

} // namespace

NameMatch matchName(std::u16string_view text, const std::vector<NamePart>& parts) { return Matcher(text, parts).run(); }

std::u16string_view described_name(const NamePattern& pattern, std::u16string_view name) noexcept
{
    return pattern.includesExtension ? name : base_name(name);
}

} // namespace multirename
