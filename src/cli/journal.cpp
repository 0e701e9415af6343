// multirename journal 1 NUL
// seconds since 1970 NUL, number of entries NUL
// then for each entry
//     state (one byte), folder NUL, old name NUL, new name NUL, sum in 16 hexadecimal digits, line feed
// An empty folder is that of the entry before. The sum goes over everything from the start of the file except the
// states, which change.

#include "cli/journal.h"

#include <array>
#include <charconv>

namespace multirename {

namespace {

constexpr std::string_view head("multirename journal 1\0", 22);
constexpr std::size_t sum_length = 16;

// FNV-1a: against damage, not against forgery.
class Sum {
public:
    void add(std::string_view bytes) noexcept
    {
        for (const char byte : bytes)
            value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }

    [[nodiscard]] std::array<char, sum_length> digits() const noexcept
    {
        std::array<char, sum_length> text{};
        for (std::size_t i = 0; i < sum_length; ++i)
            text[i] = "0123456789abcdef"[value_ >> (4 * (sum_length - 1 - i)) & 0xFU];
        return text;
    }

private:
    std::uint64_t value_ = 0xCBF29CE484222325U;
};

// Takes what stands before the next NUL off the front; nothing when there is no NUL.
std::optional<std::string_view> take_field(std::string_view& rest)
{
    const std::size_t end = rest.find('\0');
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return field;
}

template <class Number>
bool read_number(std::optional<std::string_view> field, Number& number)
{
    if (!field)
        return false;
    const auto [end, error] = std::from_chars(field->data(), field->data() + field->size(), number);
    return error == std::errc() && end == field->data() + field->size();
}

std::optional<EntryState> state_of(char byte)
{
    switch (const auto state = static_cast<EntryState>(byte)) {
    case EntryState::Planned:
    case EntryState::Renamed:
    case EntryState::Failed:
    case EntryState::Restored: return state;
    }
    return std::nullopt;
}

// Takes one entry off the front; false when it is cut or not what was written.
bool take_entry(std::string_view& rest, Sum& sum, Journal& journal, std::size_t offset)
{
    if (rest.empty())
        return false;
    const std::optional<EntryState> state = state_of(rest.front());
    rest.remove_prefix(1);
    const std::string_view start = rest;
    const auto folder = take_field(rest);
    const auto old_name = take_field(rest);
    const auto new_name = take_field(rest);
    if (!state || !new_name || rest.size() < sum_length + 1)
        return false;
    sum.add(start.substr(0, start.size() - rest.size()));
    const auto digits = sum.digits();
    if (rest.substr(0, sum_length) != std::string_view(digits.data(), digits.size()) || rest[sum_length] != '\n')
        return false;
    rest.remove_prefix(sum_length + 1);
    if (folder->empty() && journal.entries.empty())
        return false;
    JournalEntry entry{std::string(*folder), std::string(*old_name), std::string(*new_name)};
    if (entry.folder.empty())
        entry.folder = journal.entries.back().folder;
    journal.entries.push_back(std::move(entry));
    journal.states.push_back(*state);
    journal.state_offsets.push_back(offset);
    return true;
}

} // namespace

JournalText journal_text(std::span<const JournalEntry> entries, std::int64_t created)
{
    JournalText text;
    text.bytes = head;
    text.bytes.append(std::to_string(created)).push_back('\0');
    text.bytes.append(std::to_string(entries.size())).push_back('\0');
    text.state_offsets.reserve(entries.size());
    Sum sum;
    sum.add(text.bytes);
    std::string_view folder;
    for (const JournalEntry& entry : entries) {
        text.state_offsets.push_back(text.bytes.size());
        text.bytes.push_back(static_cast<char>(EntryState::Planned));
        const std::size_t start = text.bytes.size();
        text.bytes.append(entry.folder == folder ? std::string_view() : entry.folder).push_back('\0');
        text.bytes.append(entry.old_name).push_back('\0');
        text.bytes.append(entry.new_name).push_back('\0');
        sum.add(std::string_view(text.bytes).substr(start));
        const auto digits = sum.digits();
        text.bytes.append(digits.data(), digits.size()).push_back('\n');
        folder = entry.folder;
    }
    return text;
}

std::optional<Journal> read_journal(std::string_view bytes)
{
    if (!bytes.starts_with(head))
        return std::nullopt;
    std::string_view rest = bytes.substr(head.size());
    Journal journal;
    if (!read_number(take_field(rest), journal.created) || !read_number(take_field(rest), journal.planned))
        return std::nullopt;
    Sum sum;
    sum.add(bytes.substr(0, bytes.size() - rest.size()));
    while (journal.entries.size() < journal.planned && take_entry(rest, sum, journal, bytes.size() - rest.size())) { }
    return journal;
}

} // namespace multirename
