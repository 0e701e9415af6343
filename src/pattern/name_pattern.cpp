#include "pattern/name_pattern.h"

namespace multirename {

namespace {

bool is_marker(char16_t unit) { return unit == u'*' || unit == u'#'; }

// Reads a run of text from `position` up to the next marker, its escapes resolved.
std::u16string take_text(std::u16string_view pattern, std::size_t& position)
{
    std::u16string text;
    for (; position < pattern.size() && !is_marker(pattern[position]); ++position) {
        if (pattern[position] == u'\\' && ++position == pattern.size())
            break;
        text.push_back(pattern[position]);
    }
    return text;
}

bool ends_with_text(const std::vector<NamePart>& parts)
{
    return !parts.empty() && parts.back().kind == NamePartKind::Text;
}

void append_extension(NamePattern& pattern, std::u16string_view extension)
{
    if (extension == u".*") {
        NamePart wild = NamePart::make_wild();
        wild.mustStartWithDot = true;
        pattern.parts.push_back(std::move(wild));
        pattern.patternText += extension;
        return;
    }
    NamePart& last = pattern.parts.back();
    last.matchText += extension;
    last.setText(last.matchText);
    pattern.patternText += escape_hashes(extension);
}

} // namespace

NamePattern parsePattern(std::u16string_view patternText, std::u16string_view extensionText, NameMode nameMode)
{
    NamePattern pattern;
    pattern.patternText = patternText;
    pattern.includesExtension = nameMode != NameMode::BaseOnly;
    std::vector<NamePart>& parts = pattern.parts;
    for (std::size_t position = 0; position < patternText.size();) {
        const char16_t unit = patternText[position];
        if (!is_marker(unit)) {
            parts.push_back(NamePart::make_text(take_text(patternText, position)));
            continue;
        }
        if (!ends_with_text(parts))
            parts.push_back(NamePart::make_empty_text());
        parts.push_back(unit == u'*' ? NamePart::make_wild() : NamePart::make_number());
        ++position;
    }
    if (!ends_with_text(parts))
        parts.push_back(NamePart::make_empty_text());
    if (nameMode == NameMode::BaseWithExtensionPart && !extensionText.empty())
        append_extension(pattern, extensionText);
    return pattern;
}

std::u16string escape_hashes(std::u16string_view text)
{
    std::u16string escaped;
    for (const char16_t unit : text) {
        if (unit == u'#')
            escaped.push_back(u'\\');
        escaped.push_back(unit);
    }
    return escaped;
}

bool has_number_marker(std::u16string_view patternText)
{
    for (std::size_t i = 0; i < patternText.size(); ++i) {
        if (patternText[i] == u'#')
            return true;
        if (patternText[i] == u'\\')
            ++i;
    }
    return false;
}

} // namespace multirename
