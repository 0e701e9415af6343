#include "run/part_menu.h"

namespace multirename {

namespace {

constexpr std::int64_t default_start = 1;

bool makes_digits(const ChangeNumberDlgSettings* remembered)
{
    return remembered != nullptr && remembered->mode == LeadingZerosMode::FixedDigits;
}

std::int64_t start_of(const ChangeNumberDlgSettings* remembered)
{
    return remembered != nullptr ? remembered->start : default_start;
}

std::vector<PartMenuItem> wild_menu(const NamePart& part, MessageSource texts)
{
    const bool has_settings = part.caseStyle != CaseStyle::Unchanged || part.truncate;
    const bool is_cleared = part.truncate && part.length == 0;
    return {{PartCommand::Reset, texts(MessageId::PartReset), has_settings},
            {PartCommand::ClearText, texts(MessageId::PartClearText), !is_cleared}};
}

std::u16string renumber_text(const ChangeNumberDlgSettings* remembered, MessageSource texts)
{
    if (makes_digits(remembered))
        return with_inserts(texts(MessageId::RenumberFromDigits), {remembered->start, remembered->digits});
    return with_inserts(texts(MessageId::RenumberFrom), {start_of(remembered)});
}

// The digits are compared even where no side makes fixed digits.
bool is_renumbered_as_remembered(const NamePart& part, const ChangeNumberDlgSettings* remembered)
{
    if (!part.renumber || remembered == nullptr)
        return part.renumber;
    const bool part_makes_digits = part.leadingZeros == LeadingZerosMode::FixedDigits;
    return part_makes_digits == makes_digits(remembered) && part.renumbered_base() == remembered->start &&
        part.length == remembered->digits;
}

std::vector<PartMenuItem> number_menu(const NamePart& part, const ChangeNumberDlgSettings* remembered,
                                      MessageSource texts)
{
    const bool has_settings = part.clearText || part.renumber || part.leadingZeros != LeadingZerosMode::Unchanged;
    return {{PartCommand::Reset, texts(MessageId::PartReset), has_settings},
            {PartCommand::ClearText, texts(MessageId::PartClearText), !part.clearText},
            {PartCommand::Renumber, renumber_text(remembered, texts), !is_renumbered_as_remembered(part, remembered),
             true}};
}

void choose_for_wild(PartCommand command, NamePart& part)
{
    if (command == PartCommand::Reset) {
        part.caseStyle = CaseStyle::Unchanged;
        part.truncate = false; // the length stays, for the next time that truncation is switched on
    } else if (command == PartCommand::ClearText) {
        part.truncate = true;
        part.length = 0;
    }
}

void choose_for_number(PartCommand command, NamePart& part, const ChangeNumberDlgSettings* remembered)
{
    switch (command) {
    case PartCommand::Reset:
        part.clearText = false;
        part.leadingZeros = LeadingZerosMode::Unchanged;
        part.renumber = false;
        break;
    case PartCommand::ClearText: part.clearText = true; break;
    case PartCommand::Renumber:
        part.clearText = false;
        part.renumber = true;
        part.startNumber = start_of(remembered);
        part.leadingZeros = LeadingZerosMode::Unchanged;
        if (makes_digits(remembered)) {
            part.leadingZeros = LeadingZerosMode::FixedDigits;
            part.length = remembered->digits;
        }
        break;
    }
}

} // namespace

std::vector<PartMenuItem> part_menu(const NamePart& part, const ChangeNumberDlgSettings* remembered,
                                    MessageSource texts)
{
    switch (part.kind) {
    case NamePartKind::Wild: return wild_menu(part, texts);
    case NamePartKind::Number: return number_menu(part, remembered, texts);
    case NamePartKind::Text: break;
    }
    return {};
}

void choose(PartCommand command, NamePart& part, const ChangeNumberDlgSettings* remembered)
{
    if (part.kind == NamePartKind::Wild)
        choose_for_wild(command, part);
    else if (part.kind == NamePartKind::Number)
        choose_for_number(command, part, remembered);
}

} // namespace multirename
