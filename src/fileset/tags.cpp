#include "fileset/tags.h"

#include <algorithm>
#include <optional>

#include "fileset/rename_folder.h"
#include "platform/local_time.h"
#include "text/decimal.h"

namespace multirename {

namespace {

constexpr std::size_t none = std::u16string_view::npos;
constexpr std::u16string_view default_date_format = u"yyyymmdd";
constexpr std::int64_t most_captures = 260;

struct Keyword {
    std::u16string_view word;
    std::string_view code;
};

// In the order in which they are tried: a longer word before its own beginning.
constexpr Keyword keywords[] = {
    {u"timehms", "%H%M%S"}, {u"time", "%H%M"}, {u"hour", "%H"}, {u"min", "%M"}, {u"sec", "%S"}, {u"yyyy", "%Y"},
    {u"month", "%B"},       {u"day", "%A"},    {u"mmm", "%b"},  {u"ddd", "%a"}, {u"yy", "%y"},  {u"mm", "%m"},
    {u"dd", "%d"},          {u"y", "%#Y"},     {u"m", "%#m"},   {u"d", "%#d"},
};

bool is_letter(char16_t unit, char16_t lower_case) { return unit == lower_case || unit == lower_case - (u'a' - u'A'); }

using Captures = std::span<const CapturedText>;

// The text of one tag, read from its front. What it holds ends at the closing bracket, the next opening one, or the
// end.
class TagReader {
public:
    explicit TagReader(std::u16string_view rest) : rest_(rest) { }

    [[nodiscard]] bool at_closing_bracket() const { return rest_.starts_with(u'>'); }

    bool take(char16_t unit)
    {
        if (!rest_.starts_with(unit))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool take_letter(char16_t lower_case)
    {
        if (rest_.empty() || !is_letter(rest_.front(), lower_case))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::optional<std::int64_t> take_number()
    {
        const std::size_t end = end_of_digits(rest_, 0);
        if (end == 0)
            return std::nullopt;
        const std::int64_t number = read_decimal(rest_.substr(0, end));
        rest_.remove_prefix(end);
        return number;
    }

    /// Everything up to the closing bracket; nothing when that is missing.
    std::optional<std::u16string_view> take_to_bracket()
    {
        const std::size_t end = rest_.find_first_of(u"<>");
        if (end == none || rest_[end] == u'<')
            return std::nullopt;
        const std::u16string_view taken = rest_.substr(0, end);
        rest_.remove_prefix(end);
        return taken;
    }

private:
    std::u16string_view rest_;
};

std::u16string date_text(FileTime moment, std::u16string_view format)
{
    const std::optional<std::tm> time = local_time(moment);
    if (!time || time->tm_year < 0)
        return {};
    return format_time(*time, date_format(format));
}

bool expand_date(TagReader& tag, const Filename* entry, FileTime Filename::*moment, BoundedText& output)
{
    std::u16string_view format = default_date_format;
    if (tag.take(u':')) {
        const auto given = tag.take_to_bracket();
        if (!given || given->empty())
            return false;
        format = *given;
    }
    if (!tag.at_closing_bracket())
        return false;
    if (entry != nullptr)
        output.append(date_text(entry->*moment, format));
    return true;
}

bool expand_last_write(TagReader& tag, const Filename* entry, Captures, BoundedText& output)
{
    return expand_date(tag, entry, &Filename::other_time, output);
}

bool expand_creation(TagReader& tag, const Filename* entry, Captures, BoundedText& output)
{
    return expand_date(tag, entry, &Filename::created, output);
}

enum class SizeUnit : std::uint32_t { Bytes = 0, Kilobytes = 10, Megabytes = 20, Gigabytes = 30, Automatic };

SizeUnit take_size_unit(TagReader& tag)
{
    if (tag.take_letter(u'a'))
        return SizeUnit::Automatic;
    if (tag.take_letter(u'b') || tag.take_letter(u'k'))
        return SizeUnit::Kilobytes;
    if (tag.take_letter(u'm'))
        return SizeUnit::Megabytes;
    return tag.take_letter(u'g') ? SizeUnit::Gigabytes : SizeUnit::Bytes;
}

std::u16string size_text(std::uint64_t size, SizeUnit unit, std::int64_t digits)
{
    std::u16string_view letter;
    if (unit == SizeUnit::Automatic) {
        constexpr std::uint64_t kilobyte = 1024;
        if (size < kilobyte) {
            unit = SizeUnit::Bytes;
            letter = u"B";
        } else if (size < kilobyte * kilobyte) {
            unit = SizeUnit::Kilobytes;
            letter = u"K";
        } else if (size < kilobyte * kilobyte * kilobyte) {
            unit = SizeUnit::Megabytes;
            letter = u"M";
        } else {
            unit = SizeUnit::Gigabytes;
            letter = u"G";
        }
    }
    const auto shift = static_cast<std::uint32_t>(unit);
    const std::uint64_t whole = size >> shift;
    const bool has_rest = (whole << shift) != size;
    const std::uint64_t rounded_up = whole + (has_rest ? 1 : 0);
    constexpr std::uint64_t largest = INT64_MAX;
    return number_text(static_cast<std::int64_t>(std::min(rounded_up, largest)), digits).append(letter);
}

bool expand_size(TagReader& tag, const Filename* entry, Captures, BoundedText& output)
{
    std::int64_t digits = 0;
    SizeUnit unit = SizeUnit::Bytes;
    if (tag.take(u':')) {
        digits = tag.take_number().value_or(0);
        unit = take_size_unit(tag);
    }
    if (!tag.at_closing_bracket())
        return false;
    if (entry != nullptr)
        output.append(size_text(entry->size, unit, digits));
    return true;
}

// Between the last backslash but one and the last, which ends the path.
std::u16string_view folder_name(std::u16string_view path)
{
    const std::size_t last = path.rfind(u'\\');
    if (last == none || last == 0)
        return {};
    const std::size_t before = path.rfind(u'\\', last - 1);
    return before == none ? std::u16string_view() : path.substr(before + 1, last - before - 1);
}

bool expand_folder(TagReader& tag, const Filename* entry, Captures, BoundedText& output)
{
    if (!tag.at_closing_bracket())
        return false;
    if (entry != nullptr && entry->folder != nullptr)
        output.append(folder_name(entry->folder->path));
    return true;
}

bool expand_capture(TagReader& tag, const Filename* entry, Captures captures, BoundedText& output)
{
    if (!tag.take(u':'))
        return false;
    const auto wanted = tag.take_number();
    if (!wanted || *wanted > most_captures || !tag.at_closing_bracket())
        return false;
    if (entry == nullptr)
        return true;
    std::int64_t count = 0;
    for (const CapturedText& capture : captures) {
        if (capture.is_numbered && ++count == *wanted)
            output.append(capture.text);
    }
    return true;
}

// The number behind the sign, or `otherwise` where that does not stand; nothing when the sign has no number.
std::optional<std::int64_t> take_number_behind(TagReader& tag, char16_t sign, std::int64_t otherwise)
{
    return tag.take(sign) ? tag.take_number() : otherwise;
}

bool expand_running_number(TagReader& tag, const Filename* entry, BoundedText& output)
{
    const auto start = tag.take_number();
    if (!start)
        return false;
    const auto step = take_number_behind(tag, u',', 1);
    if (!step)
        return false;
    const auto digits = take_number_behind(tag, u':', 0);
    if (!digits)
        return false;
    const bool within_folder = tag.take_letter(u'f');
    if (!tag.at_closing_bracket())
        return false;
    if (entry != nullptr) {
        const std::int64_t index = within_folder ? entry->folder_sequence : entry->sequence;
        output.append(number_text(saturating_add(saturating_multiply(index, *step), *start), *digits));
    }
    return true;
}

struct LetterTag {
    char16_t letter; // in lower case
    bool reads_details;
    bool (*expand)(TagReader& tag, const Filename* entry, Captures captures, BoundedText& output);
};

// All tags that begin with a letter; any other can only be a running number.
constexpr LetterTag letter_tags[] = {
    {u'd', true, expand_last_write}, {u'c', true, expand_creation}, {u's', true, expand_size},
    {u'f', false, expand_folder},    {u'n', false, expand_capture},
};

bool expand(TagReader tag, const Filename* entry, Captures captures, BoundedText& output)
{
    for (const LetterTag& row : letter_tags) {
        if (tag.take_letter(row.letter))
            return row.expand(tag, entry, captures, output);
    }
    return expand_running_number(tag, entry, output);
}

} // namespace

bool expand_tag(std::u16string_view text, std::size_t& position, const Filename* entry,
                std::span<const CapturedText> captures, BoundedText& output)
{
    const bool valid = expand(TagReader(text.substr(position)), entry, captures, output);
    const std::size_t end = text.find_first_of(u"<>", position);
    if (end == none)
        position = text.size();
    else
        position = text[end] == u'>' ? end + 1 : end;
    return valid;
}

bool tags_read_details(std::u16string_view text) noexcept
{
    const auto reads_details = [](char16_t first) {
        return std::ranges::any_of(
            letter_tags, [first](const LetterTag& row) { return row.reads_details && is_letter(first, row.letter); });
    };
    for (std::size_t tag = text.find(u'<'); tag != none; tag = text.find(u'<', tag + 1)) {
        if (tag + 1 < text.size() && reads_details(text[tag + 1]))
            return true;
    }
    return false;
}

std::u16string number_text(std::int64_t value, std::int64_t digits)
{
    std::u16string text = decimal_text(value);
    if (value < 0)
        text.erase(0, 1);
    constexpr std::int64_t most_digits = 255;
    const auto wanted = static_cast<std::size_t>(std::clamp<std::int64_t>(digits, 0, most_digits));
    if (text.size() < wanted)
        text.insert(0, wanted - text.size(), u'0');
    return text;
}

std::string date_format(std::u16string_view format)
{
    std::string narrow;
    while (!format.empty()) {
        const auto starts_here = [format](const Keyword& keyword) { return format.starts_with(keyword.word); };
        const auto* const keyword = std::find_if(std::begin(keywords), std::end(keywords), starts_here);
        if (keyword != std::end(keywords)) {
            narrow += keyword->code;
            format.remove_prefix(keyword->word.size());
            continue;
        }
        // Judged after the cut to 8 bits too: U+0125 is no percent sign, but its low 8 bits are.
        const auto byte = static_cast<char>(format.front() & 0xFF);
        constexpr std::string_view dropped{"\\\"%*/:<>?|\0", 11};
        if (dropped.find(byte) == std::string_view::npos)
            narrow.push_back(byte);
        format.remove_prefix(1);
    }
    return narrow;
}

} // namespace multirename
