// Prints the plans of the program for random lists of names and random edits: the words, all that the program writes
// and its exit status. Built for every system, so that what it prints can be compared:
//     cli_print_plans SEED COUNT FILE
// No file but FILE is touched; the names come in through standard input.

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "cli/program.h"
#include "cli/testing/fake_console.h"

namespace {

using namespace multirename;

// Stands for the library's distributions, which give other numbers on other systems.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : engine_(seed) { }

    std::size_t below(std::size_t limit) { return engine_() % limit; }
    bool once_in(std::size_t times) { return below(times) == 0; }
    template <class Range>
    const auto& one_of(const Range& range)
    {
        return range[below(std::size(range))];
    }

private:
    std::mt19937 engine_;
};

constexpr std::string_view words[] = {
    "IMG", "DSC", "scan", "Episode", "episode", "The Long Way",       "holiday", "Track",
    "a",   "b",   "A",    "B",       "x",       "report of the year", "Copy of"};
constexpr std::string_view joints[] = {"_", "-", " ", " - ", ".", "", "#", " (", ")", "S01E", "\\", "\t"};
constexpr std::string_view extensions[] = {".jpg", ".jpg", ".JPG", ".png", ".tar.gz", ".", "", ".mkv"};
// Letters beyond ASCII, and what is no letter at all. Not those few, such as the dotless i, of which the runtimes have
// different cases: styles follow the runtime.
constexpr std::string_view rarities[] = {"\xC3\xA9",
                                         "\xC3\x89",
                                         "\xC3\x9F",
                                         "\xC7\x86",
                                         "\xCE\xA3",
                                         "\xD0\x96",
                                         "\xD0\xB6",
                                         "\xEF\xBC\xA1",
                                         "\xEF\xBD\x81",
                                         "\xE6\xBC\xA2",
                                         "\xF0\x9F\x98\x80",
                                         "\xF0\x9F\x98\x81",
                                         "\xF0\x90\x90\x80",
                                         "\xF0\x90\x90\xA8",
                                         "e\xCC\x81",
                                         "\xD9\xA3",
                                         "\xEF\xBC\x97",
                                         "\xC2\xA0",
                                         "\xE2\x80\xAE",
                                         "\xFF",
                                         "\xC3",
                                         "\xED\xA0\xBD",
                                         "\xEF\x80\xBA",
                                         ":",
                                         "*",
                                         "?",
                                         "\"",
                                         "<",
                                         ">",
                                         "|",
                                         "\x01",
                                         "\x7F"};

std::string number(Dice& dice)
{
    std::string digits = std::to_string(dice.below(dice.once_in(3) ? 2000 : 12));
    if (dice.once_in(2))
        digits.insert(0, dice.below(5), '0');
    if (dice.once_in(200))
        digits.append(dice.below(300), '7');
    return digits;
}

// The shape that all names of a list share: what stays the same in each place, and where there is a number.
struct Shape {
    std::vector<std::string> fixed;
    std::vector<std::size_t> numbers;
};

std::string piece(Dice& dice) { return std::string(dice.once_in(6) ? dice.one_of(rarities) : dice.one_of(words)); }

std::string name(Dice& dice, const Shape& shape)
{
    std::string text;
    for (std::size_t place = 0; place < shape.fixed.size(); ++place) {
        if (shape.numbers[place] == 1)
            text += number(dice);
        else if (shape.numbers[place] == 2)
            text += piece(dice);
        else
            text += shape.fixed[place];
        if (dice.once_in(25))
            text += dice.one_of(joints);
    }
    return text;
}

std::string names(Dice& dice)
{
    Shape shape;
    for (std::size_t places = 1 + dice.below(5); places > 0; --places) {
        shape.fixed.push_back(piece(dice) + std::string(dice.one_of(joints)));
        shape.numbers.push_back(dice.below(4));
    }
    const std::string_view extension = dice.one_of(extensions);
    const bool mixes_extensions = dice.once_in(4);
    std::string list;
    for (std::size_t count = 1 + dice.below(dice.once_in(10) ? 40 : 6); count > 0; --count) {
        list += name(dice, shape);
        list += mixes_extensions ? dice.one_of(extensions) : extension;
        list += '\n';
    }
    return list;
}

std::string edit_value(Dice& dice)
{
    constexpr std::string_view values[] = {"new ",
                                           "",
                                           " ",
                                           "x.",
                                           "<1:3>",
                                           "<S>",
                                           "<C>",
                                           "<N:1>",
                                           "<N:2>",
                                           "<F>",
                                           "a<",
                                           "b/c",
                                           "upper",
                                           "lower",
                                           "title",
                                           "sentence",
                                           "camel",
                                           "pascal",
                                           "snake",
                                           "snake-upper",
                                           "kebab",
                                           "kebab-upper",
                                           "0",
                                           "1",
                                           "2",
                                           "7",
                                           "300",
                                           "99999999999999999999",
                                           "/a/b/",
                                           "/e//",
                                           "|\xC3\xA9|E|",
                                           "/0/O/",
                                           "-1",
                                           "x:y"};
    return dice.once_in(8) ? std::string(dice.one_of(rarities)) : std::string(dice.one_of(values));
}

void add_edit(Dice& dice, std::vector<std::string>& line)
{
    constexpr std::string_view options[] = {"--text",     "--text",   "--case",        "--truncate", "--replace",
                                            "--renumber", "--digits", "--strip-zeros", "--clear"};
    const std::string_view option = dice.one_of(options);
    std::string value = std::to_string(1 + dice.below(6));
    if (option != "--strip-zeros" && option != "--clear")
        value += "=" + edit_value(dice);
    line.emplace_back(option);
    line.push_back(value);
}

std::vector<std::string> command_line(Dice& dice)
{
    std::vector<std::string> line = {dice.once_in(5) ? "pattern" : "preview", "--names", "-"};
    if (dice.once_in(3))
        line.emplace_back("--extensions");
    if (dice.once_in(4))
        line.emplace_back("--numbers-as-text");
    for (std::size_t edits = line.front() == "pattern" ? 0 : dice.below(3); edits > 0; --edits)
        add_edit(dice, line);
    line.emplace_back("--format");
    line.emplace_back(dice.once_in(8) ? "table" : dice.once_in(8) ? "tsv" : "json");
    return line;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "cli_print_plans SEED COUNT FILE\n";
        return EXIT_FAILURE;
    }
    use_locale_of_user();
    Dice dice(static_cast<std::uint32_t>(std::stoul(argv[1])));
    std::ofstream out(argv[3], std::ios::binary);
    for (unsigned long count = std::stoul(argv[2]); count > 0; --count) {
        FakeConsole console;
        console.input = names(dice);
        const std::vector<std::string> line = command_line(dice);
        const ExitStatus status = run_program(line, console, Batches(std::filesystem::path()));
        for (const std::string& word : line)
            out << word << ' ';
        out << "\n" << console.input << console.output << console.errors << static_cast<int>(status) << "\n\n";
    }
    out.close();
    return out.good() ? EXIT_SUCCESS : EXIT_FAILURE;
}
