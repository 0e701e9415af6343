// A failed try goes back to the last "*", which then gives its rest one unit less. Whether that rest fits from a place
// does not depend on how the place was reached, so a rest that failed once is never tried there again.

#include "fileset/scope_filter.h"

#include <vector>

#include "text/decimal.h"

namespace multirename {

namespace {

struct Cursor {
    std::size_t pattern = 0;
    std::size_t text = 0;
};

bool is_used_up(std::u16string_view pattern, std::size_t position)
{
    return pattern.find_first_not_of(u"*/", position) == std::u16string_view::npos;
}

// Takes one pattern character other than "*" and what it stands for in the text, of which something is left. False when
// they do not agree.
bool take_one(std::u16string_view pattern, std::u16string_view text, Cursor& at)
{
    const char16_t unit = pattern[at.pattern++];
    if (unit == u'/')
        return true;
    if (unit == u'#') {
        const std::size_t start = at.text;
        at.text = end_of_digits(text, start);
        return at.text > start;
    }
    const bool is_escape = unit == u'\\';
    if (is_escape && at.pattern == pattern.size())
        return false;
    const char16_t literal = is_escape ? pattern[at.pattern++] : unit;
    const bool is_any = unit == u'?';
    return text[at.text++] == literal || is_any;
}

} // namespace

bool matches_scope_pattern(std::u16string_view pattern, std::u16string_view text)
{
    std::vector<Cursor> retries; // for each "*" passed: just after it, and where its rest was last tried
    std::vector<bool> failed; // by pattern and text position: a rest that does not fit
    const auto slot = [&](Cursor rest) { return rest.pattern * text.size() + rest.text; };
    const auto has_failed = [&](Cursor rest) { return !failed.empty() && failed[slot(rest)]; };
    Cursor at;
    while (true) {
        bool fits = false;
        if (at.text == text.size()) {
            if (is_used_up(pattern, at.pattern))
                return true;
        } else if (at.pattern < pattern.size() && pattern[at.pattern] == u'*') {
            if (++at.pattern == pattern.size())
                return true;
            fits = !has_failed(at);
            if (fits)
                retries.push_back(at);
        } else if (at.pattern < pattern.size()) {
            fits = take_one(pattern, text, at);
        }
        if (fits)
            continue;
        failed.resize(pattern.size() * text.size());
        while (!retries.empty()) {
            failed[slot(retries.back())] = true;
            if (++retries.back().text < text.size() && !has_failed(retries.back()))
                break;
            if (retries.back().text == text.size())
                retries.pop_back();
        }
        if (retries.empty())
            return false;
        at = retries.back();
    }
}

} // namespace multirename
