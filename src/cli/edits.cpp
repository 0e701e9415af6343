#include "cli/edits.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "cli/failure.h"
#include "cli/joined.h"
#include "cli/report.h"
#include "run/part_menu.h"
#include "run/pasted_names.h"
#include "text/decimal.h"
#include "text/surrogates.h"

namespace multirename {

namespace {

// Wider numbers would be no names any more, and take all memory long before that is said.
constexpr std::int64_t most_digits = 9999;

// A number of digits alone, at most the largest that there is; nothing for all other text.
std::optional<std::int64_t> read_digits(const std::string& text)
{
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    return read_decimal(std::u16string(text.begin(), text.end()));
}

// One edit on its way into the run: says what is wrong in terms of the words that were typed.
class EditWords {
public:
    EditWords(const Edit& edit, const RenameRun& run) : edit_(edit)
    {
        const std::string& argument = edit.argument;
        const std::size_t equals = argument.find('=');
        const std::string number = argument.substr(0, equals);
        const bool wants_value = option_info(edit.option).value.find('=') != std::string_view::npos;
        if (wants_value && equals == std::string::npos)
            fail("it is written " + std::string(option_info(edit.option).value) + ", with the number of a part as K.");
        if (!wants_value && equals != std::string::npos)
            fail("it takes the number of a part and nothing else.");
        if (wants_value)
            value_ = argument.substr(equals + 1);
        const std::optional<std::int64_t> read = read_digits(number);
        if (!read)
            fail("\"" + number + "\" is not the number of a part.");
        const std::size_t count = run.pattern().parts.size();
        if (*read < 1 || static_cast<std::uint64_t>(*read) > count)
            fail("the pattern has " + std::to_string(count) + (count == 1 ? " part" : " parts") +
                 "; \"multirename pattern\" prints them with their numbers.");
        part_ = static_cast<std::size_t>(*read) - 1;
    }

    [[nodiscard]] std::size_t part() const noexcept { return part_; }
    [[nodiscard]] const std::string& value() const noexcept { return value_; }

    void need_kind(const RenameRun& run, std::initializer_list<NamePartKind> kinds) const
    {
        const NamePartKind kind = run.pattern().parts[part_].kind;
        if (std::ranges::find(kinds, kind) == kinds.end())
            fail("part " + std::to_string(part_ + 1) + " is " + (kind == NamePartKind::Number ? "a " : "") +
                 std::string(kind_word(kind)) + ", and this option is for " + wanted(kinds) + ".");
    }

    /// The value as a number from 0 on, at most `limit`.
    [[nodiscard]] std::int64_t number(std::int64_t limit) const
    {
        const std::optional<std::int64_t> read = read_digits(value_);
        if (!read)
            fail("\"" + value_ + "\" is not a number.");
        return std::min(*read, limit);
    }

    [[noreturn]] void fail(const std::string& reason) const
    {
        throw WrongCommandLine("--" + std::string(option_info(edit_.option).name) + " " + edit_.argument + ": " +
                               reason);
    }

private:
    static std::string wanted(std::initializer_list<NamePartKind> kinds)
    {
        std::vector<std::string_view> words;
        for (const NamePartKind kind : kinds)
            words.push_back(kind_word(kind));
        return joined(words, " and ") + " parts";
    }

    const Edit& edit_;
    std::size_t part_ = 0;
    std::string value_;
};

CaseStyle style_named(const EditWords& words)
{
    const auto found = std::ranges::find(style_names(), words.value());
    if (found == style_names().end())
        words.fail("the styles are " + joined(style_names(), ", ") + ".");
    return static_cast<CaseStyle>(found - style_names().begin());
}

struct Replacement {
    std::u16string find;
    std::u16string with;
};

Replacement replacement_of(const EditWords& words, const NameBorder& border)
{
    const std::u16string typed = border.typed(words.value());
    std::u16string_view rest = typed;
    const bool is_pair = is_pair_at(rest, 0);
    const std::u16string_view separator = rest.substr(0, is_pair ? 2 : 1);
    rest.remove_prefix(separator.size());
    const std::size_t middle = separator.empty() ? std::u16string_view::npos : rest.find(separator);
    const std::size_t end =
        middle == std::u16string_view::npos ? middle : rest.find(separator, middle + separator.size());
    if (end == std::u16string_view::npos || end + separator.size() != rest.size())
        words.fail("it is written K=/FIND/WITH/, with any character that stands in neither in place of \"/\".");
    Replacement replacement{std::u16string(rest.substr(0, middle)),
                            std::u16string(rest.substr(middle + separator.size(), end - middle - separator.size()))};
    if (replacement.find.empty())
        words.fail("there is nothing to find.");
    if (holds_forbidden_character(replacement.with))
        words.fail("names cannot hold any of the characters \\ / : * ? \" < > |.");
    return replacement;
}

// Parts are changed here in the run's pattern; the names are made once, when all edits are in.
void apply(RenameRun& run, const Edit& edit, const NameBorder& border)
{
    using enum NamePartKind;
    const EditWords words(edit, run);
    NamePart& part = run.part(words.part());
    switch (edit.option) {
    case OptionId::Text:
        words.need_kind(run, {Text});
        run.change_part_text(words.part(), border.typed(words.value()));
        break;
    case OptionId::Case:
        words.need_kind(run, {Wild});
        part.caseStyle = style_named(words);
        break;
    case OptionId::Truncate:
        words.need_kind(run, {Wild});
        part.length = static_cast<std::int32_t>(words.number(std::numeric_limits<std::int32_t>::max()));
        part.truncate = true;
        break;
    case OptionId::Replace: {
        words.need_kind(run, {Wild});
        Replacement replacement = replacement_of(words, border);
        part.findText = std::move(replacement.find);
        part.replaceText = std::move(replacement.with);
        break;
    }
    case OptionId::Renumber:
        words.need_kind(run, {Number});
        part.startNumber = words.number(std::numeric_limits<std::int64_t>::max());
        part.renumber = true;
        break;
    case OptionId::Digits:
        words.need_kind(run, {Number});
        if (words.number(std::numeric_limits<std::int64_t>::max()) > most_digits)
            words.fail("a number can have at most " + std::to_string(most_digits) + " digits.");
        part.length = static_cast<std::int32_t>(words.number(most_digits));
        part.leadingZeros = LeadingZerosMode::FixedDigits;
        break;
    case OptionId::StripZeros:
        words.need_kind(run, {Number});
        part.leadingZeros = LeadingZerosMode::RemoveZeros;
        break;
    case OptionId::Clear:
        words.need_kind(run, {Wild, Number});
        choose(PartCommand::ClearText, part, nullptr);
        break;
    default: assert(false && "an option that edits no part");
    }
}

} // namespace

void apply_edits(RenameRun& run, std::span<const Edit> edits, const NameBorder& border)
{
    for (const Edit& edit : edits)
        apply(run, edit, border);
    run.refresh_names();
}

} // namespace multirename
