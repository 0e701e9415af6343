#include "pattern/new_name.h"

#include <algorithm>
#include <vector>

#include "fileset/tags.h"
#include "pattern/match_name.h"
#include "pattern/number_part.h"
#include "text/bounded_text.h"

namespace multirename {

namespace {

using Captures = std::vector<PartCapture>;

std::vector<CapturedText> captured_texts(const Captures& captures)
{
    std::vector<CapturedText> texts;
    texts.reserve(captures.size());
    for (const PartCapture& capture : captures)
        texts.push_back({capture.text, capture.part->kind != NamePartKind::Text || !capture.part->text.empty()});
    return texts;
}

void append_text(std::u16string& name, const NamePart& part, const Filename& entry, const Captures& captures)
{
    if (part.text.find(u'<') == std::u16string::npos) {
        name += std::u16string_view(part.text).substr(0, BoundedText::capacity);
        return;
    }
    const std::vector<CapturedText> texts = captured_texts(captures);
    BoundedText expanded;
    for (std::size_t position = 0; position < part.text.size();) {
        const char16_t unit = part.text[position++];
        if (unit == u'<')
            expand_tag(part.text, position, &entry, texts, expanded);
        else
            expanded.append(unit);
    }
    name += expanded.view();
}

void append_replaced(BoundedText& output, const NamePart& part, std::u16string_view text)
{
    while (true) {
        const std::size_t found = text.find(part.findText);
        output.append(text.substr(0, found));
        if (found == std::u16string_view::npos)
            return;
        output.append(part.replaceText);
        text.remove_prefix(found + part.findText.size());
    }
}

void append_wild(std::u16string& name, const NamePart& part, std::u16string_view text)
{
    BoundedText replaced;
    if (!part.findText.empty()) {
        append_replaced(replaced, part, text);
        text = replaced.view();
    }
    if (part.truncate)
        text = text.substr(0, static_cast<std::size_t>(std::max(part.length, 0)));
    if (part.caseStyle == CaseStyle::Unchanged)
        name += text;
    else
        name += ApplyCaseStyle(part.caseStyle, text);
}

void append_formatted(std::u16string& name, const PartCapture& capture, const Filename& entry, const Captures& captures)
{
    const NamePart& part = *capture.part;
    switch (part.kind) {
    case NamePartKind::Text:
        if (part.keepMatched)
            name += capture.text;
        else
            append_text(name, part, entry, captures);
        break;
    case NamePartKind::Number: name += formatNumberPart(part, capture.text); break;
    case NamePartKind::Wild: append_wild(name, part, capture.text); break;
    }
}

} // namespace

void makeNewName(const NamePattern& pattern, Filename& entry)
{
    const std::u16string_view described = described_name(pattern, entry.name);
    const Captures captures = matchName(described, pattern.parts).captures;
    std::u16string name;
    for (const PartCapture& capture : captures)
        append_formatted(name, capture, entry, captures);
    name += std::u16string_view(entry.name).substr(described.size());
    entry.new_name = std::move(name);
}

} // namespace multirename
