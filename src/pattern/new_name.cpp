#include "pattern/new_name.h"

#include <algorithm>

#include "fileset/rename_folder.h"
#include "pattern/number_part.h"
#include "text/bounded_text.h"

namespace multirename {

namespace {

constexpr std::size_t none = std::u16string_view::npos;

bool holds_tags(const NamePart& part) { return part.text.find(u'<') != none; }

bool reads_details(const NamePart& part) { return tags_read_details(part.text); }

void append_replaced(BoundedText& output, const NamePart& part, std::u16string_view text)
{
    while (true) {
        const std::size_t found = text.find(part.findText);
        output.append(text.substr(0, found));
        if (found == none)
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

} // namespace

NewNameMaker::NewNameMaker(const NamePattern& pattern) :
    reads_details_(std::ranges::any_of(pattern.parts, reads_details))
{
    actions_.reserve(pattern.parts.size());
    for (const NamePart& part : pattern.parts)
        actions_.push_back(action_of(part));
    keeps_names_ = std::ranges::count(actions_, Action::Keep) == std::ssize(actions_);
}

NewNameMaker::Action NewNameMaker::action_of(const NamePart& part)
{
    switch (part.kind) {
    case NamePartKind::Text:
        if (part.keepMatched)
            return Action::Keep;
        if (holds_tags(part))
            return Action::Expand;
        return part.text == part.matchText && part.text.size() <= BoundedText::capacity ? Action::Keep : Action::Put;
    case NamePartKind::Number: {
        const bool is_as_it_was = !part.clearText && !part.renumber && part.leadingZeros == LeadingZerosMode::Unchanged;
        return is_as_it_was ? Action::Keep : Action::Number;
    }
    case NamePartKind::Wild: {
        const bool is_as_it_was = part.findText.empty() && !part.truncate && part.caseStyle == CaseStyle::Unchanged;
        return is_as_it_was ? Action::Keep : Action::Wild;
    }
    }
    return Action::Keep;
}

void NewNameMaker::make(Filename& entry, const NameMatch& match, TextStore& texts)
{
    if (keeps_names_ && match.matched) {
        entry.new_name = entry.name;
        return;
    }
    if (reads_details_ && entry.folder != nullptr)
        entry.folder->read_details(entry);
    name_.clear();
    for (std::size_t i = 0; i < match.captures.size(); ++i) {
        const auto& [part, taken] = match.captures[i];
        if (actions_[i] == Action::Keep) {
            keep(taken);
            continue;
        }
        put_kept();
        switch (actions_[i]) {
        case Action::Keep: break;
        case Action::Put: name_ += std::u16string_view(part->text).substr(0, BoundedText::capacity); break;
        case Action::Expand: put_expanded(*part, entry, match); break;
        case Action::Number: append_number(name_, *part, taken); break;
        case Action::Wild: append_wild(name_, *part, taken); break;
        }
    }
    keep(entry.name.substr(match.text.size()));
    put_kept();
    entry.new_name = name_ == entry.name ? entry.name : texts.add(name_);
}

// What is kept of the old name is mostly one stretch, taken by several parts.
void NewNameMaker::keep(std::u16string_view taken)
{
    if (taken.data() != kept_.data() + kept_.size())
        put_kept();
    if (kept_.empty())
        kept_ = taken;
    else
        kept_ = {kept_.data(), kept_.size() + taken.size()};
}

void NewNameMaker::put_kept()
{
    name_ += kept_;
    kept_ = {};
}

void NewNameMaker::put_expanded(const NamePart& part, const Filename& entry, const NameMatch& match)
{
    captured_.clear();
    for (const PartCapture& capture : match.captures)
        captured_.push_back({capture.text, capture.part->kind != NamePartKind::Text || !capture.part->text.empty()});
    BoundedText expanded;
    for (std::size_t position = 0; position < part.text.size();) {
        const char16_t unit = part.text[position++];
        if (unit == u'<')
            expand_tag(part.text, position, &entry, captured_, expanded);
        else
            expanded.append(unit);
    }
    name_ += expanded.view();
}

void makeNewName(const NamePattern& pattern, Filename& entry, TextStore& texts)
{
    const NameMatch match = matchName(described_name(pattern, entry.name), pattern.parts);
    NewNameMaker(pattern).make(entry, match, texts);
}

} // namespace multirename
