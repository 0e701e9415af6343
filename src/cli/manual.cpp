// Sections that list facts of the command table are made from it; the others are the page's own source. Texts of the
// table get their fonts here: options are bold, and the words that name an option's value are italic.

#include "cli/manual.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <vector>

#include "cli/command_table.h"
#include "cli/help.h"
#include "cli/joined.h"

namespace multirename {

namespace {

constexpr std::string_view page_date = "2026-11-21"; // of the last change of what the page says

bool is_capital(char c) { return c >= 'A' && c <= 'Z'; }

// Characters that are to be read as they stand, whatever the formatter would make of them.
std::string literal(std::string_view text)
{
    std::string source;
    for (const char c : text) {
        switch (c) {
        case '\\': source += "\\e"; break;
        case '-': source += "\\-"; break;
        case '\'': source += "\\(aq"; break;
        case '`': source += "\\(ga"; break;
        case '^': source += "\\(ha"; break;
        case '~': source += "\\(ti"; break;
        default: source.push_back(c);
        }
    }
    return source;
}

std::string bold(std::string_view text) { return "\\fB" + literal(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + literal(text) + "\\fR"; }

// Runs of capitals name what the user puts there: K=TEXT, [BATCH], PATH...
std::string with_values_in_italics(std::string_view text)
{
    std::string source;
    while (!text.empty()) {
        const bool is_value = is_capital(text.front());
        const auto end = std::ranges::find_if(text, [is_value](char c) { return is_capital(c) != is_value; });
        const std::string_view run = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        source += is_value ? italic(run) : literal(run);
        text.remove_prefix(run.size());
    }
    return source;
}

bool is_value_word(std::string_view word, std::string_view value)
{
    const std::size_t place = word.empty() ? std::string_view::npos : value.find(word);
    const auto ends_there = [value](std::size_t i) { return i >= value.size() || !is_capital(value[i]); };
    return place != std::string_view::npos && std::ranges::all_of(word, is_capital) &&
        (place == 0 || ends_there(place - 1)) && ends_there(place + word.size());
}

std::string prose_word(std::string_view word, std::string_view value)
{
    const std::size_t end = word.find_last_not_of(".,;:") + 1;
    const std::string_view core = word.substr(0, end);
    const std::string_view tail = word.substr(end);
    if (core.starts_with('-'))
        return bold(core).append(tail);
    if (is_value_word(core, value))
        return italic(core).append(tail);
    // Hyphens of prose stay hyphens, and apostrophes apostrophes.
    std::string source;
    for (const char c : word)
        source += c == '\\' ? std::string("\\e") : std::string(1, c);
    return source.starts_with('.') ? "\\&" + source : source;
}

// One line for each sentence. `value` holds the words that stand for what the user types.
std::string prose(std::string_view text, std::string_view value = {})
{
    std::string source;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        source += prose_word(word, value);
        source.push_back(word.ends_with('.') || text.empty() ? '\n' : ' ');
    }
    return source;
}

// A text of the table, which has neither capital nor period, as a sentence.
std::string sentence(std::string_view text, std::string_view value = {})
{
    std::string whole(text);
    whole.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(whole.front())));
    return prose(whole + ".", value);
}

std::string section(std::string_view title) { return ".SH " + std::string(title) + "\n"; }

std::string item(std::string_view source, std::string_view meaning)
{
    return std::string(".TP\n").append(source).append("\n").append(meaning);
}

std::string head()
{
    return ".\\\" Made from the table of commands and options; changes belong there.\n"
           ".TH MULTIRENAME 1 " +
        std::string(page_date) + " \"" + std::string(program_name) + " " + std::string(program_version) +
        "\" \"User Commands\"\n";
}

std::string synopsis()
{
    std::string source = section("SYNOPSIS");
    const std::string name(program_name);
    for (const CommandInfo& command : all_commands())
        source += bold(name + " " + std::string(command.name)) + " [" + italic("OPTION") + "...] " +
            with_values_in_italics(command.operands) + "\n.br\n";
    return source + bold(name) + " [" + italic("COMMAND") + "] " + bold("--help") + "\n.br\n" + bold(name) + " " +
        bold("--version") + "\n";
}

constexpr std::string_view description = R"(.SH DESCRIPTION
.B multirename
gives many files better names at once.
It looks at all the names together and finds the one pattern that they share.
A pattern consists of parts:
.TP
text
What all the names have in common, such as
.BR IMG_ .
It can be replaced by another text, in which tags may stand; see
.BR TAGS .
.TP
.B *
A wild part: what differs from name to name.
It can be given another case style, be cut, have text in it replaced, or be left out.
.TP
.B #
A number part: digits that differ from name to name.
It can be counted anew, be given a number of digits, or be left out.
.PP
Parts are numbered from 1 on, and those texts at the ends that are still empty count too: text put there stands in
front of every name, or behind it.
The command
.B pattern
prints the parts with their numbers.
The extension is no part of the pattern, and every file keeps its own, unless
.B \-\-extensions
takes it in.
.PP
Before anything is renamed all the new names are checked: that no two are the same, that none belongs to another file,
and that each is a name that a file may have.
When one has a problem, nothing is renamed at all.
No file is ever overwritten, and every batch of renames can be taken back.
)";

std::string commands()
{
    std::string source = section("COMMANDS");
    for (const CommandInfo& command : all_commands())
        source += item(bold(command.name) + " " + with_values_in_italics(command.operands), prose(command.description));
    return source;
}

using Names = std::vector<std::string_view>;

// The commands that take any option of the group.
Names commands_of(OptionGroup group)
{
    Names names;
    for (const CommandInfo& command : all_commands()) {
        if (std::ranges::any_of(command.options, [group](OptionId id) { return option_info(id).group == group; }))
            names.push_back(command.name);
    }
    return names;
}

std::string goes_with(const Names& names, std::string_view end)
{
    std::vector<std::string> all;
    for (const std::string_view name : names)
        all.push_back(bold(name));
    return joined(all, ", ", " and ").append(end);
}

std::string choices_of(const OptionInfo& option)
{
    if (option.choices.empty())
        return {};
    std::vector<std::string> all;
    for (const std::string_view choice : option.choices)
        all.push_back(bold(choice));
    const std::string_view value = option.value.substr(option.value.find('=') + 1);
    return italic(value) + " is one of " + joined(all, ", ", " and ") + ".\n";
}

// What is said of an option only where it is not so of its whole group.
std::string who_takes(const OptionInfo& option)
{
    const Names names = names_of_commands_that_take(option.id);
    const bool stands_alone = std::ranges::find(program_options(), option.id) != program_options().end();
    if (names.empty())
        return "Without a command.\n";
    if (names != commands_of(option.group))
        return "Only with " + goes_with(names, ".\n");
    return stands_alone ? "Without a command it shows that of the program.\n" : "";
}

std::string option_head(const OptionInfo& option)
{
    std::string source = option.letter == 0 ? std::string() : bold(std::string("-") + option.letter) + ", ";
    source += bold("--" + std::string(option.name));
    return option.value.empty() ? source : source + " " + with_values_in_italics(option.value);
}

std::string options()
{
    std::string source = section("OPTIONS");
    source += "An option that takes a value can be written with a blank or with = before it.\n"
              "Later options on the same part win over earlier ones.\n"
              "What begins with \\- and is no option is written behind \\fB\\-\\-\\fR.\n";
    const OptionInfo* last = nullptr;
    for (const OptionInfo& option : all_options()) {
        if (last == nullptr || last->group != option.group) {
            source += ".SS \"" + std::string(group_title(option.group)) + "\"\n";
            const Names names = commands_of(option.group);
            if (names.size() < all_commands().size())
                source += "With " + goes_with(names, ":\n");
        }
        last = &option;
        source +=
            item(option_head(option), sentence(option.help, option.value) + choices_of(option) + who_takes(option));
    }
    return source;
}

// Capitals in tags are to be typed; only a format is for the user to choose.
std::string tag_head(const TagInfo& tag)
{
    constexpr std::string_view value = "FORMAT";
    const std::size_t place = tag.forms.find(value);
    if (place == std::string_view::npos)
        return bold(tag.forms);
    return bold(tag.forms.substr(0, place)) + italic(value) + bold(tag.forms.substr(place + value.size()));
}

std::string tags()
{
    std::string source = section("TAGS");
    source += "In the text of a text part a tag stands for something that differs from file to file.\n"
              "Tags may be written in small letters or in capitals.\n"
              "A tag that is not well formed is refused, for names may not hold < and >.\n";
    for (const TagInfo& tag : all_tags())
        source += item(tag_head(tag), sentence(tag.meaning, tag.forms));
    return source;
}

constexpr std::string_view dates = R"(.PP
The
.I FORMAT
of a date is made of these keywords, in lower case; all else in it stands for itself.
Without a format it is
.BR yyyymmdd .
.TP
.BR yyyy ", " yy ", " y
The year: all of it, its last two digits, without zeros in front.
.TP
.BR month ", " mmm ", " mm ", " m
The month: its name, its short name, two digits, without a zero in front.
.TP
.BR day ", " ddd
The day of the week: its name, its short name.
.TP
.BR dd ", " d
The day of the month: two digits, without a zero in front.
.TP
.BR timehms ", " time
Hours, minutes and seconds, or hours and minutes, each with two digits.
.TP
.BR hour ", " min ", " sec
One of these, with two digits.
)";

constexpr std::string_view exit_status = R"(.SH EXIT STATUS
.TP
.B 0
All was done, or there was nothing to change.
.TP
.B 1
A file has a problem, the editor failed, or there is no batch to take back, and nothing was renamed.
.B preview
ends so too when a file has a problem.
.TP
.B 2
The command line is wrong, and nothing was renamed.
.TP
.B 3
The system refused part of the work.
What was done and what was not is listed, and
.B undo
takes back what was done.
)";

constexpr std::string_view output_formats = R"(.SH OUTPUT FORMATS
Messages go to standard error, and only what was asked for to standard output.
.SS table
For people; its form may change.
What a terminal would obey instead of showing it, such as a line break in a name, is written as an escape:
.BR \en ,
.BR \ex1b .
So is a byte that is not UTF-8,
.BR \exff ,
and a half of a surrogate pair,
.BR \eud83d ;
a pattern can hold one where two characters share their first half.
When a terminal is written to, what differs between an old and a new name has a colour.
After a rename that went well there is one line with the number of the batch.
.SS tsv
A line with the names of the columns, then one for each row, with a tab between two fields.
In a field
.B \et
stands for a tab,
.B \en
for a line break,
.B \er
for a carriage return and
.B \e\e
for a backslash.
Bytes that are not UTF-8 stand as they are, and other control characters and halves of surrogate pairs as their
numbers:
.BR \eu001b ,
.BR \eud83d .
.TP
.B pattern
.BR part ", " kind " (text, number or wild), " text ", " smallest
(of a number).
.TP
.BR preview ", " rename ", " edit
.BR old ", " new ", " folder ", " status ", " inScope ", " matched .
.TP
.B undo \-\-list
.BR batch ", " time ", " names ", " folder .
.TP
.B undo
.BR folder ", " old ", " new ", " reason :
what could not be taken back.
.SS json
One object, UTF-8, with its keys in this order.
A half of a surrogate pair is written as its escape, such as
.BR \eud83d ,
and a byte that is not UTF-8 as that of the half that stands for it,
.B \eudc80
to
.BR \eudcff .
.TP
.B pattern
.BR pattern ,
the pattern's text;
.BR extension ,
the extension that the names share;
.B numbersAsText
and
.BR extensions ,
whether these options are in effect;
.BR parts ,
a list of objects with
.BR part ,
its number,
.BR kind ,
which is text, number or wild, and, by its kind,
.BR text ,
.B smallest
or
.BR mustStartWithDot .
.TP
.BR preview ", " rename ", " edit
.BR pattern ;
.BR files ,
a list of objects with
.BR old ,
.BR new ,
.BR folder ,
.BR status ,
.B inScope
and
.BR matched ;
.BR problems ,
an object with the numbers of files of each problem:
.BR sameName ,
.BR existing ,
.BR empty ,
.BR spaceOrPeriod ,
.BR tooLong ,
.BR forbidden ;
.BR renamed ,
how many files were renamed;
.BR batch ,
what
.B undo
takes, or null.
.TP
.B undo \-\-list
.BR batches ,
a list of objects with
.BR batch ,
.B time
(UTC),
.B names
(how many can be taken back) and
.B folder
(of the first).
.TP
.B undo
.BR batch ;
.BR restored ,
how many names were taken back;
.BR left ,
a list of objects with
.BR folder ,
.BR old ,
.B new
and
.BR reason .
.PP
.B inScope
is false for a file that the pattern does not cover; it keeps its name.
.B matched
is false for one whose old name does not fit the parts, so that its new name holds only what was read until there.
.B status
is a number:
.B 2
the file has, or had, a new name to get;
.B 3
the new name is the old one;
.B 4
another file gets the same name;
.B 5
the name belongs to another file;
.B 6
the name is empty;
.B 7
it begins with a space, or ends with a space or a period;
.B 8
it is too long;
.B 9
it holds a character that names may not hold.
)";

constexpr std::string_view environment = R"(.SH ENVIRONMENT
.TP
.BR VISUAL ", " EDITOR
The editor of the command
.BR edit ;
the first that is set counts, and it may have options.
.TP
.B PAGER
What
.B \-\-pager
shows the output through.
.TP
.B NO_COLOR
When it is set and not empty, nothing has a colour.
.TP
.B XDG_STATE_HOME
The folder in which the folder of the journals is made; by default
.IR \(ti/.local/state .
.TP
.B TMPDIR
The folder of the file that the editor opens.
.TP
.BR LC_ALL ", " LC_CTYPE ", " LC_TIME ", " LANG
What letters are and which case they have, and the names of months and days.
Names are UTF-8 in every locale.
.TP
.B TZ
The time zone in which dates are told.
)";

constexpr std::string_view files = R"(.SH FILES
.TP
.I $XDG_STATE_HOME/multirename/*.journal
One journal for each batch, written before its first rename.
It is named after the moment in UTC, as the batch is, and goes when all of the batch was taken back, or after 90 days.
A journal that belongs to another user is not followed, nor a link.
On Windows the folder is
.I multirename
in the local application data.
.TP
.I *.damaged
A journal that could be read in part only, after what could be read of it was taken back.
)";

constexpr std::string_view notes = R"(.SH NOTES
.SS Names that only some systems have
Names on disk may hold any of the characters
.BR "\e : * ? \(dq < > |" ,
where the system has such names, and bytes that are not UTF-8.
They are taken, and what is kept of such a name comes through unharmed.
Text that is typed may not hold these characters; an editor's line may keep those that were in the name.
Names are compared as the file system compares them.
.SS What undo can do
.B undo
takes back what was renamed and nothing else; it does so also for a batch that was broken off, by Ctrl-C or because the
machine was switched off.
A file that has had yet another name since, or that is gone, cannot be found any more, and one whose old name now
belongs to another file keeps its new one.
They are listed, and
.B undo
can be tried again once the way is free.
.SS Systems
A rename never replaces a file, not even one that appeared after the checks.
Where a file system has no such rename, files are renamed through a second link, and folders after another look; a note
says so.
On Windows the shell's own rename is used, in one operation, and its own undo takes that back too.
)";

// The first steps, then all others.
std::string examples()
{
    std::string source = section("EXAMPLES");
    Names known;
    const auto add = [&source, &known](const Example& example) {
        if (std::ranges::find(known, example.words) != known.end())
            return;
        known.push_back(example.words);
        source +=
            item(bold(std::string(program_name).append(" ").append(example.words)), sentence(example.explanation));
    };
    std::ranges::for_each(program_examples(), add);
    for (const CommandInfo& command : all_commands())
        std::ranges::for_each(command.examples, add);
    return source;
}

} // namespace

std::string manual_page()
{
    std::string source =
        head() + section("NAME") + literal(program_name) + " \\- " + literal(program_summary) + "\n" + synopsis();
    source.append(description).append(commands()).append(options()).append(tags()).append(dates);
    source.append(exit_status).append(output_formats).append(environment).append(files).append(notes);
    return source + examples();
}

} // namespace multirename
