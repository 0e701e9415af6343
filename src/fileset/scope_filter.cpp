// A failed try goes back to the last "*", which then gives its rest one unit less. The "*" before it need not be tried
// again: with more text for them, what stands between two "*" never ends earlier, and what the last one has tried
// includes all that would be left to it then.

#include "fileset/scope_filter.h"

#include <optional>

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

// With nothing behind it but "*" and a last "/", a "*" can only stand where the text is used up: its rest is tried
// while a unit is left, and then the "/" leaves that over.
bool wants_the_end(std::u16string_view pattern, std::size_t position)
{
    return pattern.ends_with(u'/') && is_used_up(pattern, position);
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
    std::optional<Cursor> retry; // just behind the last "*" that was passed, and where its rest was last tried
    Cursor at;
    while (true) {
        bool fits = false;
        if (at.text == text.size()) {
            if (is_used_up(pattern, at.pattern))
                return true;
        } else if (at.pattern < pattern.size() && pattern[at.pattern] == u'*') {
            if (++at.pattern == pattern.size())
                return true;
            fits = !wants_the_end(pattern, at.pattern);
            if (fits)
                retry = at;
        } else if (at.pattern < pattern.size()) {
            fits = take_one(pattern, text, at);
        }
        if (fits)
            continue;
        if (!retry || ++retry->text >= text.size())
            return false;
        at = *retry;
    }
}

} // namespace multirename
