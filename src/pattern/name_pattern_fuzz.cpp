// Pattern text, whatever it is: one line that says how names are taken apart, one with the extension text, and the
// pattern text.

#include "fuzz_input.h"
#include "pattern/name_pattern.h"

namespace multirename {

namespace {

bool is_marker(const NamePart& part) { return part.kind != NamePartKind::Text; }

void require_well_formed(const NamePattern& pattern)
{
    const std::vector<NamePart>& parts = pattern.parts;
    require(!parts.empty() && !is_marker(parts.front()), "The parts begin with a text part.");
    for (std::size_t i = 1; i < parts.size(); ++i)
        require(is_marker(parts[i]) != is_marker(parts[i - 1]) || parts[i].mustStartWithDot,
                "Texts and markers take turns.");
    require(!is_marker(parts.back()) || parts.back().mustStartWithDot,
            "Only an extension wild is last in place of a text part.");
}

// The text that gives these parts.
std::u16string text_of(const NamePattern& pattern)
{
    std::u16string text;
    for (const NamePart& part : pattern.parts) {
        if (part.kind == NamePartKind::Number)
            text += u'#';
        if (part.kind == NamePartKind::Wild)
            text += u'*';
        for (const char16_t unit : part.matchText) {
            if (std::u16string_view(u"*#\\").find(unit) != std::u16string_view::npos)
                text += u'\\';
            text += unit;
        }
    }
    return text;
}

bool are_same(const NamePattern& a, const NamePattern& b)
{
    const auto same = [](const NamePart& x, const NamePart& y) {
        return x.kind == y.kind && x.matchText == y.matchText && x.mustStartWithDot == y.mustStartWithDot;
    };
    return std::equal(a.parts.begin(), a.parts.end(), b.parts.begin(), b.parts.end(), same);
}

} // namespace

void check_input(FuzzInput input)
{
    const auto mode = static_cast<NameMode>(input.next_choice(3));
    const std::u16string extension = input.next_text();
    const std::u16string text = input.rest_text();
    const NamePattern pattern = parsePattern(text, extension, mode);
    require_well_formed(pattern);

    const NamePattern whole = parsePattern(text, u"", NameMode::WholeName);
    require_well_formed(whole);
    require(whole.patternText == text, "The text is kept as it is.");
    require(are_same(parsePattern(text_of(whole), u"", NameMode::WholeName), whole),
            "The text of some parts gives these parts.");
    require(text.find(u'\\') != std::u16string::npos || !has_number_marker(escape_hashes(text)),
            "Hashes that are escaped make no number parts.");

    NamePattern carried = whole;
    carryPartSettings(carried, pattern);
    require(are_same(carried, whole), "Settings that are carried over change nothing that is matched.");
    static_cast<void>(has_number_marker(text));
    static_cast<void>(isValidPartText(text));
}

} // namespace multirename
