// multirename journal 2 NUL
// seconds since 1970 NUL, number of entries NUL
// the state of each entry, one byte each
// then for each entry
//     folder NUL, old name NUL, new name NUL, sum in 16 hexadecimal digits, line feed
// An empty folder is that of the entry before. The sum goes over everything from the start of the file except the
// states, which change, and the sums themselves. The states stand together, so that few pages of the file change.
//
// Journals of version 1, which differ in the sum and have each state in front of its entry, are read as well: batches
// outlive updates of the program.

#include "cli/journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>

#include "platform/native_text.h"

namespace multirename {

namespace {

constexpr std::string_view head("multirename journal 2\0", 22);
constexpr std::string_view head_of_version_1("multirename journal 1\0", 22);
constexpr std::size_t sum_length = 16;
constexpr std::size_t shortest_entry = 3 + sum_length + 1;
constexpr std::size_t piece_length = 1U << 18U;

using Digits = std::array<char, sum_length>;

Digits digits_of(std::uint64_t value) noexcept
{
    Digits text{};
    for (std::size_t i = 0; i < sum_length; ++i)
        text[i] = "0123456789abcdef"[value >> (4 * (sum_length - 1 - i)) & 0xFU];
    return text;
}

// Against damage, not against forgery. Takes eight bytes at a time; whatever happens to one of them alone shows, for
// nothing that is done to the value loses any of it.
class Sum {
public:
    void add(std::string_view bytes) noexcept
    {
        take(bytes.size());
        for (; bytes.size() >= word_length; bytes.remove_prefix(word_length))
            take(word(bytes.data(), word_length));
        if (!bytes.empty())
            take(word(bytes.data(), bytes.size()));
    }

    [[nodiscard]] Digits digits() const noexcept { return digits_of(value_); }

private:
    static constexpr std::size_t word_length = 8;

    static std::uint64_t word(const char* bytes, std::size_t length) noexcept
    {
        std::uint64_t joined = 0;
        for (std::size_t i = 0; i < length; ++i)
            joined |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
        return joined;
    }

    void take(std::uint64_t word) noexcept
    {
        value_ = (value_ ^ word) * 0x9E3779B97F4A7C15U;
        value_ ^= value_ >> 32U;
    }

    std::uint64_t value_ = 0x243F6A8885A308D3U;
};

// FNV-1a, byte by byte.
class SumOfVersion1 {
public:
    void add(std::string_view bytes) noexcept
    {
        for (const char byte : bytes)
            value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }

    [[nodiscard]] Digits digits() const noexcept { return digits_of(value_); }

private:
    std::uint64_t value_ = 0xCBF29CE484222325U;
};

std::string head_text(std::size_t entries, std::int64_t created)
{
    std::string text(head);
    text.append(std::to_string(created)).push_back('\0');
    text.append(std::to_string(entries)).push_back('\0');
    return text;
}

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

} // namespace

class JournalReader {
public:
    explicit JournalReader(std::string bytes) { journal_.text_ = std::move(bytes); }

    std::optional<Journal> read()
    {
        const std::string_view text = journal_.text_;
        rest_ = text;
        const bool is_version_1 = text.starts_with(head_of_version_1);
        if (!is_version_1 && !text.starts_with(head))
            return std::nullopt;
        rest_.remove_prefix(head.size());
        if (!read_number(take_field(rest_), journal_.created) || !read_number(take_field(rest_), journal_.planned))
            return std::nullopt;
        const std::string_view whole_head = text.substr(0, place());
        if (!is_version_1) {
            journal_.first_state_ = place();
            rest_.remove_prefix(std::min(rest_.size(), journal_.planned));
        }
        const std::size_t most = std::min(journal_.planned, rest_.size() / shortest_entry);
        journal_.places_.reserve(most);
        journal_.states.reserve(most);
        if (is_version_1)
            read_entries<SumOfVersion1>(whole_head);
        else
            read_entries<Sum>(whole_head);
        return std::move(journal_);
    }

private:
    [[nodiscard]] std::size_t place() const { return journal_.text_.size() - rest_.size(); }

    template <class AnySum>
    void read_entries(std::string_view whole_head)
    {
        AnySum sum;
        sum.add(whole_head);
        while (journal_.places_.size() < journal_.planned && take_entry(sum)) { }
    }

    // Takes one entry off the front; false when it is cut or not what was written.
    template <class AnySum>
    bool take_entry(AnySum& sum)
    {
        if (rest_.empty())
            return false;
        if constexpr (std::same_as<AnySum, SumOfVersion1>)
            rest_.remove_prefix(1);
        const std::string_view start = rest_;
        Journal::Place entry{place(), place()};
        const auto folder = take_field(rest_);
        const auto old_name = take_field(rest_);
        const auto new_name = take_field(rest_);
        if (!folder || !old_name || !new_name || rest_.size() < sum_length + 1)
            return false;
        sum.add(start.substr(0, start.size() - rest_.size()));
        if (!std::ranges::equal(rest_.substr(0, sum_length), sum.digits()) || rest_[sum_length] != '\n')
            return false;
        rest_.remove_prefix(sum_length + 1);
        // Names that lead out of their folder were never written by this program, whatever the sum says.
        if (!is_native_name(*old_name) || !is_native_name(*new_name) || (folder->empty() && journal_.places_.empty()))
            return false;
        if (folder->empty())
            entry.folder = journal_.places_.back().folder;
        journal_.places_.push_back(entry);
        const auto state = state_of(journal_.text_[journal_.state_offset(journal_.places_.size() - 1)]);
        if (!state) {
            journal_.places_.pop_back();
            return false;
        }
        journal_.states.push_back(*state);
        return true;
    }

    Journal journal_;
    std::string_view rest_;
};

Journal Journal::begun(std::size_t entries, std::int64_t created)
{
    Journal journal;
    journal.created = created;
    journal.planned = entries;
    journal.states.assign(entries, EntryState::Planned);
    journal.first_state_ = head_text(entries, created).size();
    return journal;
}

std::optional<Journal> Journal::read(std::string bytes) { return JournalReader(std::move(bytes)).read(); }

// Every field ends in a NUL, which has been looked for.
void Journal::get(std::size_t index, JournalEntry& move) const
{
    const Place& entry = places_[index];
    move.folder = text_.c_str() + entry.folder;
    const std::size_t own_folder = entry.fields == entry.folder ? move.folder.size() : 0;
    move.old_name = text_.c_str() + entry.fields + own_folder + 1;
    move.new_name = text_.c_str() + entry.fields + own_folder + 1 + move.old_name.size() + 1;
}

std::size_t Journal::state_offset(std::size_t entry) const
{
    return first_state_ ? *first_state_ + entry : places_[entry].fields - 1;
}

std::error_code write_journal(const MoveList& moves, std::int64_t created, const JournalSink& sink)
{
    std::string piece = head_text(moves.size(), created);
    piece.reserve(piece_length);
    Sum sum;
    sum.add(piece);
    const auto pass_on = [&piece, &sink](std::size_t more) {
        std::error_code error;
        if (piece.size() + more > piece_length) {
            error = sink(piece);
            piece.clear();
        }
        return error;
    };
    for (std::size_t left = moves.size(); left > 0;) {
        const std::size_t length = std::min(left, piece_length / 2);
        if (const std::error_code error = pass_on(length))
            return error;
        piece.append(length, static_cast<char>(EntryState::Planned));
        left -= length;
    }
    JournalEntry move;
    std::string folder;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        moves.get(i, move);
        const std::size_t fields = move.folder.size() + move.old_name.size() + move.new_name.size() + 3;
        if (const std::error_code error = pass_on(fields + sum_length + 1))
            return error;
        const std::size_t start = piece.size();
        if (move.folder != folder)
            piece.append(folder = move.folder);
        piece.push_back('\0');
        piece.append(move.old_name).push_back('\0');
        piece.append(move.new_name).push_back('\0');
        sum.add(std::string_view(piece).substr(start));
        const Digits digits = sum.digits();
        piece.append(digits.data(), digits.size()).push_back('\n');
    }
    return sink(piece);
}

} // namespace multirename
