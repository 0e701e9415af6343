#include "fileset/scope_filter_reference.h"

#include <algorithm>

#include "fileset/testing/step_budget.h"

namespace multirename {

namespace {

class PlainScopeMatcher {
public:
    explicit PlainScopeMatcher(std::uint64_t most_steps) : budget_(most_steps) { }

    bool matches(std::u16string_view pattern, std::u16string_view text)
    {
        if (!budget_.step())
            return false;
        if (text.empty())
            return pattern.find_first_not_of(u"*/") == std::u16string_view::npos;
        if (pattern.empty())
            return false;
        const char16_t first = pattern.front();
        const std::u16string_view rest = pattern.substr(1);
        switch (first) {
        case u'*': return matches_behind_any(rest, text);
        case u'/': return matches(rest, text);
        case u'?': return matches(rest, text.substr(1));
        case u'#': {
            const std::size_t run = std::min(text.find_first_not_of(u"0123456789"), text.size());
            return run > 0 && matches(rest, text.substr(run));
        }
        case u'\\': return rest.front() == text.front() && matches(rest.substr(1), text.substr(1));
        default: return first == text.front() && matches(rest, text.substr(1));
        }
    }

    [[nodiscard]] bool gave_up() const { return budget_.gave_up(); }

private:
    bool matches_behind_any(std::u16string_view rest, std::u16string_view text)
    {
        if (rest.empty())
            return true;
        for (; !text.empty() && !gave_up(); text.remove_prefix(1)) {
            if (matches(rest, text))
                return true;
        }
        return false;
    }

    StepBudget budget_;
};

} // namespace

std::optional<bool> reference_matches_scope_pattern(std::u16string_view pattern, std::u16string_view text,
                                                    std::uint64_t most_steps)
{
    PlainScopeMatcher matcher(most_steps);
    const bool matches = matcher.matches(pattern, text);
    return matcher.gave_up() ? std::nullopt : std::optional(matches);
}

bool ends_within_escape(std::u16string_view pattern) noexcept
{
    const std::size_t other = pattern.find_last_not_of(u'\\');
    const std::size_t backslashes = pattern.size() - (other == std::u16string_view::npos ? 0 : other + 1);
    return backslashes % 2 == 1;
}

} // namespace multirename
