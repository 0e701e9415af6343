#include "cli/command_table.h"

#include <algorithm>

namespace multirename {

namespace {

constexpr std::string_view styles[] = {"unchanged", "upper", "lower",       "title", "sentence",   "camel",
                                       "pascal",    "snake", "snake-upper", "kebab", "kebab-upper"};
// In the order of OutputFormat.
constexpr std::string_view formats[] = {"table", "tsv", "json"};

constexpr OptionInfo options[] = {
    {OptionId::From,
     OptionGroup::Files,
     "from",
     0,
     "FILE",
     ValueKind::File,
     {},
     "reads the paths from FILE, one a line; - is standard input"},
    {OptionId::NulEnded,
     OptionGroup::Files,
     "null",
     '0',
     "",
     ValueKind::None,
     {},
     "in the files that are read NUL ends each path or name, so that names may hold line breaks"},
    {OptionId::In, OptionGroup::Files, "in", 0, "DIR", ValueKind::Folder, {}, "takes every file of DIR, in name order"},
    {OptionId::Folders, OptionGroup::Files, "folders", 0, "", ValueKind::None, {}, "with --in: takes the folders too"},
    {OptionId::Hidden,
     OptionGroup::Files,
     "hidden",
     0,
     "",
     ValueKind::None,
     {},
     "with --in: takes the hidden files too"},
    {OptionId::Names,
     OptionGroup::Files,
     "names",
     0,
     "FILE",
     ValueKind::File,
     {},
     "touches no disk: FILE holds the bare names of a whole folder, one a line"},
    {OptionId::Listed,
     OptionGroup::Files,
     "listed",
     0,
     "FILE",
     ValueKind::File,
     {},
     "with --names: FILE says which of the names are to change, and in which order; the others only stand in the way"},
    {OptionId::NumbersAsText,
     OptionGroup::Modes,
     "numbers-as-text",
     0,
     "",
     ValueKind::None,
     {},
     "takes digits for letters like all others, so that no part is a number"},
    {OptionId::Extensions,
     OptionGroup::Modes,
     "extensions",
     0,
     "",
     ValueKind::None,
     {},
     "makes the extension a part of the pattern; otherwise every file keeps its own"},
    {OptionId::Text,
     OptionGroup::Edits,
     "text",
     0,
     "K=TEXT",
     ValueKind::Text,
     {},
     "gives a text part another text, in which tags may stand"},
    {OptionId::Case, OptionGroup::Edits, "case", 0, "K=STYLE", ValueKind::PartAndChoice, styles,
     "gives a wild part a case style"},
    {OptionId::Truncate,
     OptionGroup::Edits,
     "truncate",
     0,
     "K=N",
     ValueKind::Text,
     {},
     "cuts a wild part to N characters"},
    {OptionId::Replace,
     OptionGroup::Edits,
     "replace",
     0,
     "K=/FIND/WITH/",
     ValueKind::Text,
     {},
     "writes WITH for every FIND in a wild part; another character can take the place of the slashes"},
    {OptionId::Renumber,
     OptionGroup::Edits,
     "renumber",
     0,
     "K=START",
     ValueKind::Text,
     {},
     "counts a number part anew, so that its smallest number becomes START"},
    {OptionId::Digits,
     OptionGroup::Edits,
     "digits",
     0,
     "K=N",
     ValueKind::Text,
     {},
     "makes a number part N digits wide, with leading zeros"},
    {OptionId::StripZeros,
     OptionGroup::Edits,
     "strip-zeros",
     0,
     "K",
     ValueKind::Text,
     {},
     "removes the leading zeros of a number part"},
    {OptionId::Clear,
     OptionGroup::Edits,
     "clear",
     0,
     "K",
     ValueKind::Text,
     {},
     "leaves a wild or a number part out of the new names"},
    {OptionId::Format, OptionGroup::Output, "format", 0, "FORMAT", ValueKind::Choice, formats,
     "prints a table for people, which is the default, lines with tabs between their fields (tsv), or json"},
    {OptionId::Pager,
     OptionGroup::Output,
     "pager",
     0,
     "",
     ValueKind::None,
     {},
     "shows the output through $PAGER, by default less, when it goes to a terminal"},
    {OptionId::List,
     OptionGroup::Undo,
     "list",
     0,
     "",
     ValueKind::None,
     {},
     "lists the batches that can be taken back, the last one first, and takes none back"},
    {OptionId::Help, OptionGroup::Other, "help", 'h', "", ValueKind::None, {}, "shows this help"},
    {OptionId::Version, OptionGroup::Other, "version", 0, "", ValueKind::None, {}, "shows the version"},
};

constexpr TagInfo tags[] = {
    {"<D>, <D:FORMAT>", "the date of the last change; FORMAT is one such as yyyy-mm-dd or timehms"},
    {"<C>, <C:FORMAT>", "the date of creation, likewise"},
    {"<S>, <S:6K>, <S:A>", "the size in bytes, in kilobytes with six digits or more, in the unit that fits it best"},
    {"<F>", "the name of the file's folder"},
    {"<N:2>", "what the second part took from the old name, where text parts without text do not count"},
    {"<1>, <10,5:3>, <1:2F>",
     "a running number: from 1 on; from 10 on in steps of 5, with three digits; from 1 on in each folder, with two"},
};

constexpr OptionId options_without_command[] = {OptionId::Help, OptionId::Version};

constexpr Example first_steps[] = {
    {"pattern *.jpg", "the pattern that the names share, and its parts with their numbers"},
    {"preview *.jpg --text 1=Iceland_ --digits 2=4", "what the files would be called"},
    {"rename *.jpg --text 1=Iceland_ --digits 2=4", "calls them so"},
    {"undo", "gives them their old names again"},
};

constexpr OptionId pattern_options[] = {
    OptionId::From,       OptionId::NulEnded, OptionId::In,     OptionId::Folders,
    OptionId::Hidden,     OptionId::Names,    OptionId::Listed, OptionId::NumbersAsText,
    OptionId::Extensions, OptionId::Format,   OptionId::Pager,  OptionId::Help,
};
constexpr OptionId preview_options[] = {
    OptionId::From,       OptionId::NulEnded, OptionId::In,     OptionId::Folders,
    OptionId::Hidden,     OptionId::Names,    OptionId::Listed, OptionId::NumbersAsText,
    OptionId::Extensions, OptionId::Text,     OptionId::Case,   OptionId::Truncate,
    OptionId::Replace,    OptionId::Renumber, OptionId::Digits, OptionId::StripZeros,
    OptionId::Clear,      OptionId::Format,   OptionId::Pager,  OptionId::Help,
};
constexpr OptionId rename_options[] = {
    OptionId::From,          OptionId::NulEnded,   OptionId::In,     OptionId::Folders,    OptionId::Hidden,
    OptionId::NumbersAsText, OptionId::Extensions, OptionId::Text,   OptionId::Case,       OptionId::Truncate,
    OptionId::Replace,       OptionId::Renumber,   OptionId::Digits, OptionId::StripZeros, OptionId::Clear,
    OptionId::Format,        OptionId::Help,
};
constexpr OptionId undo_options[] = {OptionId::List, OptionId::Format, OptionId::Help};

constexpr Example pattern_examples[] = {
    {"pattern *.jpg", "the pattern of some photos, such as IMG_#, and its parts"},
    {"pattern --in . --extensions --format json", "the same of a whole folder, for a script"},
};
constexpr Example preview_examples[] = {
    {"preview *.jpg --text 1=Iceland_", "how the photos would be called with another first part"},
    {"preview --in scans --renumber 2=1 --digits 2=3", "numbers from 001 on"},
    {"preview --names names.txt --case 2=title --format tsv", "new names for a list of names, without a disk"},
};
constexpr Example rename_examples[] = {
    {"rename *.jpg --text '1=<C:yyyy-mm-dd> '", "puts the day on which each photo was made in front of its number"},
    {"rename --in episodes --replace '2=/./ /' --case 2=title", "writes the episodes' titles as people do"},
    {"rename --in scans --extensions --text 3=.tif", "changes the extension that all scans share"},
    {"rename --from - -0 --clear 2", "takes the paths of another command, such as find -print0"},
};
constexpr Example edit_examples[] = {
    {"edit *.mp3", "all names in the editor, one a line"},
    {"edit --in . --folders --extensions", "whole names, those of the folders too"},
};
constexpr Example undo_examples[] = {
    {"undo", "takes back the last batch"},
    {"undo --list", "shows which batches there are"},
    {"undo 20240305-140709-001", "takes back this batch"},
};

constexpr CommandInfo commands[] = {
    {CommandId::Pattern, "pattern", "PATH...", true, "prints the pattern that the names share",
     "Prints the one pattern that all the names share, and its parts with the numbers by which the other commands' "
     "options name them: text that all names have, * where they differ, # where their digits differ.",
     pattern_options, pattern_examples},
    {CommandId::Preview, "preview", "PATH...", true, "prints old and new names and renames nothing",
     "Prints the old name, the new name and the status of every file, those with a problem first. Nothing is renamed. "
     "The exit status tells whether rename would refuse.",
     preview_options, preview_examples},
    {CommandId::Rename, "rename", "PATH...", true, "renames the files, or none when one has a problem",
     "Checks all new names as preview does and refuses them all when one cannot be had; else renames the files. No "
     "file is ever overwritten, not even by one that appears meanwhile. The batch is written down first, so that undo "
     "can take it back, also after the machine was switched off in the middle of it.",
     rename_options, rename_examples},
    {CommandId::Edit, "edit", "PATH...", true, "opens the new names in your editor, then renames",
     "Opens the new names in $VISUAL, or $EDITOR when that is not set, one a line. When the editor has ended, its "
     "lines become the new names, and all goes on as with rename. The number of lines and their order must stay. "
     "Without --extensions each file keeps its own extension.",
     rename_options, edit_examples},
    {CommandId::Undo, "undo", "[BATCH]", false, "takes back the last batch of renames",
     "Gives the files of the last batch, or of the one that is named, their old names again, the last rename first. No "
     "file is overwritten. What cannot be taken back is listed and stays to be tried again. Batches are kept for 90 "
     "days.",
     undo_options, undo_examples},
};

} // namespace

std::span<const CommandInfo> all_commands() noexcept { return commands; }
std::span<const OptionInfo> all_options() noexcept { return options; }
std::span<const TagInfo> all_tags() noexcept { return tags; }
std::span<const OptionId> program_options() noexcept { return options_without_command; }
std::span<const Example> program_examples() noexcept { return first_steps; }

const CommandInfo& command_info(CommandId command) noexcept
{
    return *std::ranges::find(commands, command, &CommandInfo::id);
}

const OptionInfo& option_info(OptionId option) noexcept { return *std::ranges::find(options, option, &OptionInfo::id); }

bool takes_option(const CommandInfo& command, OptionId option) noexcept
{
    return std::ranges::find(command.options, option) != command.options.end();
}

std::vector<std::string_view> command_names()
{
    std::vector<std::string_view> names;
    for (const CommandInfo& command : commands)
        names.push_back(command.name);
    return names;
}

std::vector<std::string_view> names_of_commands_that_take(OptionId option)
{
    std::vector<std::string_view> names;
    for (const CommandInfo& command : commands) {
        if (takes_option(command, option))
            names.push_back(command.name);
    }
    return names;
}

std::string_view group_title(OptionGroup group) noexcept
{
    switch (group) {
    case OptionGroup::Files: return "Which files";
    case OptionGroup::Modes: return "How names are read";
    case OptionGroup::Edits: return "Edits; K is a part's number as the command pattern prints it";
    case OptionGroup::Output: return "Output";
    case OptionGroup::Undo: return "What is taken back";
    case OptionGroup::Other: return "Other";
    }
    return {};
}

std::span<const std::string_view> style_names() noexcept { return styles; }

} // namespace multirename
