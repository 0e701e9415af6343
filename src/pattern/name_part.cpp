#include "pattern/name_part.h"

#include "fileset/tags.h"

namespace multirename {

NamePart NamePart::make_text(std::u16string_view text)
{
    NamePart part;
    part.matchText = text;
    part.setText(text);
    return part;
}

NamePart NamePart::make_empty_text()
{
    NamePart part;
    part.keepMatched = true;
    return part;
}

NamePart NamePart::make_number()
{
    NamePart part;
    part.kind = NamePartKind::Number;
    part.length = 4;
    return part;
}

NamePart NamePart::make_wild()
{
    NamePart part;
    part.kind = NamePartKind::Wild;
    part.length = 8;
    return part;
}

void NamePart::setText(std::u16string_view new_text)
{
    text = new_text;
    keepMatched = false;
    invalid = !isValidPartText(text);
}

bool isValidPartText(std::u16string_view text)
{
    constexpr std::u16string_view forbidden = u"\"*:?\\|/>";
    BoundedText nothing;
    for (std::size_t position = 0; position < text.size();) {
        const char16_t unit = text[position++];
        if (forbidden.find(unit) != std::u16string_view::npos)
            return false;
        if (unit == u'<' && !expand_tag(text, position, nullptr, {}, nothing))
            return false;
    }
    return true;
}

} // namespace multirename
