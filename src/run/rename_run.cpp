#include "run/rename_run.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <utility>

#include "pattern/match_name.h"
#include "pattern/new_name.h"
#include "platform/name_key.h"
#include "rename/check_folder.h"
#include "run/pasted_names.h"
#include "text/bounded_text.h"
#include "text/decimal.h"

namespace multirename {

namespace {

StatusImage image_of(Status status)
{
    switch (status) {
    case Status::Pending:
    case Status::NotMade: return StatusImage::Pending;
    case Status::Ready: return StatusImage::Ready;
    case Status::Unchanged: return StatusImage::Unchanged;
    case Status::SameName: return StatusImage::SameName;
    case Status::ExistingName: return StatusImage::ExistingName;
    case Status::Empty: return StatusImage::Empty;
    case Status::SpaceOrPeriod:
    case Status::TooLong:
    case Status::Forbidden: return StatusImage::Invalid;
    }
    return StatusImage::Pending;
}

bool holds_invalid_text(const NamePattern& pattern)
{
    return std::ranges::any_of(pattern.parts, [](const NamePart& part) { return part.invalid; });
}

} // namespace

RenameRun::RenameRun(FileSet& files, RememberedBoxes& remembered, MessageSource texts) :
    files_(files), remembered_(remembered), texts_(texts), rows_(files.listed)
{
    allow_extension_changes_.checked = is_whole_name_mode() || remembered.allow_extension_changes;
    numbers_as_text_.checked = remembered.numbers_as_text;
    compute_patterns();
    mark_scope();
    number_rows();
    refresh_names();
}

std::size_t RenameRun::pattern_index() const noexcept
{
    return ModePatterns::index(numbers_as_text_.checked, allow_extension_changes_.checked);
}

void RenameRun::compute_patterns()
{
    matches_.reset();
    modes_ = computeModePatterns(files_, is_whole_name_mode());
    allow_extension_changes_.enabled = true;
    numbers_as_text_.enabled = true;
    if (modes_.extension_text.empty())
        allow_extension_changes_ = {false, false};
    const std::size_t with_numbers = ModePatterns::index(false, false);
    if (!has_number_marker(modes_.patterns[with_numbers].patternText))
        numbers_as_text_ = {false, false};
}

void RenameRun::mark_scope()
{
    matches_.reset();
    const NamePattern& current = pattern();
    files_.mark_scope(
        {current.patternText, name_key(current.patternText), is_whole_name_mode() || current.includesExtension});
}

void RenameRun::number_rows()
{
    files_.reset_counters();
    std::uint32_t position = 0;
    for (Filename* entry : rows_) {
        entry->sequence = position++;
        entry->folder_sequence = static_cast<std::uint32_t>(entry->folder->next_sequence++);
    }
}

std::u16string_view RenameRun::part_label(std::size_t part) const
{
    const NamePart& shown = pattern().parts[part];
    switch (shown.kind) {
    case NamePartKind::Text: return shown.text;
    case NamePartKind::Number: return u"#";
    case NamePartKind::Wild: return u"*";
    }
    return {};
}

std::u16string RenameRun::part_description(std::size_t part) const
{
    const auto& parts = pattern().parts;
    const NamePartKind kind = parts[part].kind;
    const auto upto = std::span(parts).first(part + 1);
    const auto place = std::ranges::count(upto, kind, &NamePart::kind);
    std::u16string_view noun;
    switch (kind) {
    case NamePartKind::Text: noun = u"Text part "; break;
    case NamePartKind::Number: noun = u"Number part "; break;
    case NamePartKind::Wild: noun = u"Wild part "; break;
    }
    return std::u16string(noun).append(decimal_text(place));
}

bool RenameRun::set_part_text(std::size_t part, std::u16string_view text)
{
    const bool is_new = change_part_text(part, text);
    if (is_new)
        refresh_names();
    return is_new;
}

bool RenameRun::change_part_text(std::size_t part, std::u16string_view text)
{
    NamePart& edited = this->part(part);
    assert(edited.kind == NamePartKind::Text);
    text = text.substr(0, BoundedText::capacity);
    if (text == edited.text)
        return false;
    edited.setText(text);
    return true;
}

void RenameRun::refresh_names()
{
    if (!matches_)
        matches_.emplace(pattern().parts);
    matches_->start_round();
    files_.made_names.clear();
    NewNameMaker maker(pattern());
    files_.for_each_entry([&](Filename& entry) {
        entry.status = Status::Ready;
        if (!entry.in_scope)
            return;
        const NameMatch& match = matches_->next(described_name(pattern(), entry.name));
        if (!entry.manual_name)
            maker.make(entry, match, files_.made_names);
    });
    if (holds_invalid_text(pattern()))
        files_.mark_all_invalid();
    else
        check_all(files_);
}

bool RenameRun::set_allow_extension_changes(bool checked)
{
    return click(allow_extension_changes_, checked, remembered_.allow_extension_changes);
}

bool RenameRun::set_numbers_as_text(bool checked)
{
    return click(numbers_as_text_, checked, remembered_.numbers_as_text);
}

bool RenameRun::click(CheckBox& box, bool checked, bool& remembered)
{
    if (!box.enabled || !pattern_controls_enabled_)
        return false;
    remembered = checked;
    const std::size_t previous = pattern_index();
    box.checked = checked;
    change_mode(previous);
    return true;
}

void RenameRun::change_mode(std::size_t previous_index)
{
    matches_.reset();
    const std::size_t index = pattern_index();
    if (index != previous_index)
        carryPartSettings(modes_.patterns[index], modes_.patterns[previous_index]);
    refresh_names();
}

void RenameRun::reset()
{
    const std::size_t previous = pattern_index();
    compute_patterns();
    files_.for_each_entry([](Filename& entry) { entry.manual_name = false; });
    pattern_controls_enabled_ = true;
    change_mode(previous);
}

RowView RenameRun::row(std::size_t row) const
{
    const Filename& entry = *rows_[row];
    return {entry.name, entry.new_name, entry.folder->path, image_of(entry.status), entry.manual_name};
}

bool RenameRun::fits_pattern(std::size_t row) const
{
    return matchName(described_name(pattern(), rows_[row]->name), pattern().parts).matched;
}

std::optional<Message> RenameRun::remove_rows(std::span<const std::size_t> rows)
{
    std::vector<Filename*> removed;
    for (const std::size_t row : rows)
        removed.push_back(rows_[row]);
    std::ranges::sort(removed);
    const auto is_removed = [&removed](Filename* entry) { return std::ranges::binary_search(removed, entry); };
    if (std::ranges::all_of(rows_, is_removed))
        return message(MessageId::CannotRemoveAll);
    std::erase_if(rows_, is_removed);
    for (Filename* entry : removed) {
        entry->not_listed = true;
        entry->in_scope = false;
        entry->manual_name = false;
        entry->new_name = {};
    }
    if (all_names_are_pasted())
        pattern_controls_enabled_ = false;
    matches_.reset();
    refresh_base_numbers(files_, modes_);
    number_rows();
    refresh_names();
    return std::nullopt;
}

void RenameRun::reset_names(std::span<const std::size_t> rows)
{
    for (const std::size_t row : rows) {
        if (std::exchange(rows_[row]->manual_name, false))
            pattern_controls_enabled_ = true;
    }
    refresh_names();
}

bool RenameRun::all_names_are_pasted() const
{
    return std::ranges::all_of(rows_, [](const Filename* entry) { return entry->manual_name; });
}

std::vector<std::size_t> RenameRun::all_rows() const
{
    std::vector<std::size_t> rows(rows_.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    return rows;
}

std::u16string RenameRun::copied_names() const { return copied_names(all_rows()); }

std::u16string RenameRun::copied_names(std::span<const std::size_t> rows) const
{
    std::u16string text;
    for (const std::size_t row : rows)
        text.append(rows_[row]->new_name).push_back(u'\n');
    return text;
}

Message RenameRun::copied_message() const { return message(MessageId::NamesCopied, MessageIcon::Information); }

std::optional<Message> RenameRun::paste_names(std::u16string_view text)
{
    auto problem = paste_lines(text, all_rows());
    if (!problem)
        pattern_controls_enabled_ = false;
    return problem;
}

std::optional<Message> RenameRun::paste_names(std::u16string_view text, std::span<const std::size_t> rows)
{
    auto problem = paste_lines(text, rows);
    if (!problem && all_names_are_pasted())
        pattern_controls_enabled_ = false;
    return problem;
}

std::optional<Message> RenameRun::paste_lines(std::u16string_view text, std::span<const std::size_t> rows)
{
    constexpr std::size_t longest_first_line = 255; // later ones are taken as they are, and their names judged
    if (holds_forbidden_character(text))
        return message(MessageId::PasteForbidden);
    const std::vector<std::u16string_view> lines = pasted_lines(text);
    if (!lines.empty() && lines.front().size() > longest_first_line)
        return message(MessageId::PasteTooLong);
    if (lines.size() != rows.size()) {
        Message problem = message(MessageId::PasteCount);
        problem.text = with_inserts(problem.text, {std::ssize(rows), std::ssize(lines)});
        return problem;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (lines[i].empty())
            continue;
        Filename& entry = *rows_[rows[i]];
        entry.new_name = files_.pasted_names.add(pasted_name(lines[i], entry.name, allow_extension_changes_.checked));
        entry.manual_name = true;
    }
    refresh_names();
    return std::nullopt;
}

Message RenameRun::message(MessageId id, MessageIcon icon) const { return {texts_(id), icon}; }

std::u16string RenameRun::problem_text(const ProblemCounts& counts) const
{
    struct Line {
        std::uint32_t count;
        MessageId one;
        MessageId many;
        std::optional<MessageId> explanation;
    };
    const Line lines[] = {
        {counts.same_name, MessageId::SameNameOne, MessageId::SameNameMany, {}},
        {counts.existing_name, MessageId::ExistingNameOne, MessageId::ExistingNameMany, {}},
        {counts.empty, MessageId::EmptyNameOne, MessageId::EmptyNameMany, {}},
        {counts.space_or_period, MessageId::SpaceOrPeriodOne, MessageId::SpaceOrPeriodMany,
         MessageId::SpacesAndPeriods},
        {counts.too_long, MessageId::TooLongOne, MessageId::TooLongMany, {}},
        {counts.forbidden, MessageId::ForbiddenOne, MessageId::ForbiddenMany, MessageId::ForbiddenCharacters},
    };
    std::u16string text = texts_(MessageId::UnableToRename);
    for (const Line& line : lines) {
        if (line.count == 0)
            continue;
        text.append(u"\r\n").append(decimal_text(line.count));
        text.append(u" ").append(texts_(line.count == 1 ? line.one : line.many));
        if (line.explanation)
            text.append(u" ").append(texts_(*line.explanation));
    }
    return text;
}

Verdict RenameRun::judge()
{
    files_.summarise();
    if (files_.summary_status != Status::Ready)
        return {Verdict::Kind::Refuse, {problem_text(files_.count_problems()), MessageIcon::Exclamation}};
    if (!files_.any_change)
        return {Verdict::Kind::NothingToDo, message(MessageId::NoChanges, MessageIcon::Information)};
    return {};
}

Verdict RenameRun::judge_for_rename()
{
    check_for_names_that_appeared(files_);
    return judge();
}

} // namespace multirename
