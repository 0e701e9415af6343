#include "pattern/match_name_reference.h"

#include "fileset/testing/step_budget.h"

namespace multirename {

namespace {

class PlainMatcher {
public:
    explicit PlainMatcher(std::uint64_t most_steps) : budget_(most_steps) { }

    bool match(std::u16string_view text, std::span<const NamePart> parts, std::vector<std::u16string>& captures)
    {
        for (std::size_t k = 0; k < parts.size(); ++k) {
            if (!budget_.step())
                return false;
            const NamePart& part = parts[k];
            if (part.kind == NamePartKind::Wild)
                return match_wild(text, parts.subspan(k), captures);
            const std::optional<std::size_t> length = length_taken(part, text);
            if (!length)
                return false;
            captures.emplace_back(text.substr(0, *length));
            text.remove_prefix(*length);
        }
        return text.empty();
    }

    [[nodiscard]] bool gave_up() const { return budget_.gave_up(); }

private:
    static std::optional<std::size_t> length_taken(const NamePart& part, std::u16string_view text)
    {
        if (part.kind == NamePartKind::Text)
            return text.starts_with(part.matchText) ? std::optional(part.matchText.size()) : std::nullopt;
        std::size_t run = 0;
        while (run < text.size() && run < 260 && text[run] >= u'0' && text[run] <= u'9')
            ++run;
        return run > 0 ? std::optional(run) : std::nullopt;
    }

    bool match_wild(std::u16string_view text, std::span<const NamePart> parts, std::vector<std::u16string>& captures)
    {
        const NamePart& wild = parts.front();
        if (wild.mustStartWithDot && !text.starts_with(u'.'))
            return false;
        const std::size_t captured_before = captures.size();
        for (auto length = static_cast<std::size_t>(wild.minLength); length <= text.size(); ++length) {
            captures.emplace_back(text.substr(0, length));
            if (match(text.substr(length), parts.subspan(1), captures))
                return true;
            captures.resize(captured_before);
            if (wild.fixedLength || gave_up())
                return false;
        }
        return false;
    }

    StepBudget budget_;
};

} // namespace

std::optional<ReferenceMatch> reference_match(std::u16string_view text, std::span<const NamePart> parts,
                                              std::uint64_t most_steps)
{
    PlainMatcher matcher(most_steps);
    ReferenceMatch match;
    match.matched = matcher.match(text, parts, match.captures);
    return matcher.gave_up() ? std::nullopt : std::optional(match);
}

} // namespace multirename
