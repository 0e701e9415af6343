// Words, a line each, up to an empty line, then standard input.

#include "cli/command_line.h"

#include <filesystem>

#include "cli/escapes.h"
#include "cli/failure.h"
#include "cli/printable.h"
#include "cli/program.h"
#include "cli/selection.h"
#include "cli/testing/fake_console.h"
#include "fuzz_input.h"
#include "text/posix_name.h"
#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::size_t most_words = 24;

std::vector<std::string> next_words(FuzzInput& input)
{
    std::vector<std::string> words;
    while (words.size() < most_words && !input.rest_bytes().empty()) {
        const std::string_view word = input.next_bytes();
        if (word.empty())
            break;
        words.emplace_back(word);
    }
    return words;
}

// A name in a file of names comes through the border unharmed.
void check_items(std::string_view bytes)
{
    for (const bool nul_ended : {false, true}) {
        for (const std::string& item : items_of(bytes, nul_ended)) {
            require(!item.empty(), "No item is empty.");
            require(item.find(nul_ended ? '\0' : '\n') == std::string::npos, "An item ends where it ends.");
            require(to_bytes(from_bytes(item)) == item, "Bytes come back as they were.");
            std::string name = item;
            std::erase(name, '/');
            require(bytes_from_name(name_from_bytes(name)) == name, "A name's bytes come back as they were.");
            for (const char16_t unit : from_bytes(printable(item)))
                require(!is_control(unit), "What is printed only prints.");
        }
    }
}

bool touches_no_disk(const Request& request)
{
    const Selection& selection = request.selection;
    return request.kind != Request::Kind::Command ||
        ((request.command == CommandId::Pattern || request.command == CommandId::Preview) && selection.names == "-" &&
         selection.paths.empty() && !selection.from && !selection.in && (!selection.listed || selection.listed == "-"));
}

void run_on_names(const std::vector<std::string>& words, std::string_view input)
{
    FakeConsole console;
    console.input = input;
    console.is_terminal = true;
    static_cast<void>(run_program(words, console, Batches(std::filesystem::path("/nonexistent"))));
    for (const char16_t unit : from_bytes(console.output + console.errors))
        require(unit == u'\n' || unit == u'\t' || unit == u'\x1b' || !is_control(unit),
                "Nothing that controls a terminal comes out.");
}

} // namespace

void check_input(FuzzInput input)
{
    const std::vector<std::string> words = next_words(input);
    const std::string_view standard_input = input.rest_bytes();
    check_items(standard_input);
    try {
        if (touches_no_disk(parse_command_line(words)))
            run_on_names(words, standard_input);
    } catch (const Failure& failure) {
        require(*failure.what() != '\0', "Every refusal says why.");
        require(failure.status == ExitStatus::WrongCommandLine, "Words that are wrong are the command line's fault.");
    }
}

} // namespace multirename
