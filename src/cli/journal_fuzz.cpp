// A line "r" and the bytes of a journal; or a line "w", a line with a place and one with a byte, and the lines of a
// journal's moves, folder, old name and new name in turns: it is written, damaged there, and read.

#include "cli/journal.h"

#include <algorithm>

#include "cli/testing/journals.h"
#include "fuzz_input.h"
#include "platform/native_text.h"
#include "text/decimal.h"

namespace multirename {

namespace {

std::string without_nul(std::string_view bytes)
{
    std::string text(bytes);
    std::erase(text, '\0');
    return text;
}

std::string next_name(FuzzInput& input)
{
    std::string name = without_nul(input.next_bytes());
    std::erase(name, '/');
    return is_native_name(name) ? name : "name";
}

std::vector<JournalEntry> next_moves(FuzzInput& input)
{
    std::vector<JournalEntry> moves;
    while (!input.rest_bytes().empty() && moves.size() < 64) {
        JournalEntry move;
        // The folder of a first entry is never empty, for an empty one stands for that of the entry before.
        move.folder = "/" + without_nul(input.next_bytes());
        move.old_name = next_name(input);
        move.new_name = next_name(input);
        moves.push_back(std::move(move));
    }
    return moves;
}

// Everything that can be asked of a journal.
void require_readable(const Journal& journal, std::size_t file_size)
{
    require(journal.states.size() == journal.size() && journal.size() <= journal.planned,
            "No more can be read than was planned.");
    require(journal.end_of_states() <= file_size, "The states lie within the file.");
    for (std::size_t entry = 0; entry < journal.size(); ++entry) {
        JournalEntry move;
        journal.get(entry, move);
        require(journal.state_offset(entry) < file_size, "Each state lies within the file.");
        require(is_native_name(move.old_name) && is_native_name(move.new_name), "No name leads out of its folder.");
    }
}

void read_anything(std::string_view bytes)
{
    const std::optional<Journal> journal = Journal::read(std::string(bytes));
    if (journal)
        require_readable(*journal, bytes.size());
}

void read_damaged(FuzzInput& input)
{
    const std::u16string place_text = input.next_text();
    const std::size_t byte = input.next_choice(256);
    const std::vector<JournalEntry> moves = next_moves(input);
    const std::string whole = journal_bytes(ListedMoves(moves), 1'700'000'000);
    const std::optional<Journal> journal = Journal::read(whole);
    require(journal && journal->is_whole() && journal->size() == moves.size(), "What was written can be read.");
    require_readable(*journal, whole.size());
    for (std::size_t entry = 0; entry < moves.size(); ++entry) {
        JournalEntry move;
        journal->get(entry, move);
        require(move == moves[entry], "What is read is what was written.");
    }

    const auto place = static_cast<std::size_t>(read_decimal(place_text)) % (whole.size() + 1);
    for (std::string damaged : {whole.substr(0, place), whole}) {
        if (damaged.size() == whole.size() && place < whole.size())
            damaged[place] = static_cast<char>(static_cast<unsigned char>(damaged[place]) ^ byte);
        const std::optional<Journal> rest = Journal::read(damaged);
        if (!rest)
            continue;
        require_readable(*rest, damaged.size());
        for (std::size_t entry = 0; entry < std::min(rest->size(), moves.size()); ++entry) {
            JournalEntry move;
            rest->get(entry, move);
            require(move == moves[entry], "What is read of a damaged journal is what was written.");
        }
    }
}

} // namespace

void check_input(FuzzInput input)
{
    if (input.next_bytes() == "w")
        read_damaged(input);
    else
        read_anything(input.rest_bytes());
}

} // namespace multirename
