#include "cli/help.h"

#include <algorithm>

#include "cli/joined.h"

namespace multirename {

namespace {

constexpr std::size_t width = 80;
constexpr std::size_t option_column = 26;
constexpr std::size_t command_column = 11;

// The text in lines of at most `width` columns, each but the first indented.
std::string wrapped(std::string_view text, std::size_t indent, std::size_t used)
{
    std::string result;
    std::size_t column = used;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const bool is_first = column == used && result.empty();
        if (!is_first && column + 1 + word.size() > width) {
            result.append("\n").append(indent, ' ');
            column = indent;
        } else if (!is_first) {
            result.push_back(' ');
            ++column;
        }
        result.append(word);
        column += word.size();
    }
    return result + "\n";
}

// A word in the first column, what it means in the second.
std::string item(std::string_view word, std::size_t column, std::string_view meaning)
{
    std::string text = "  " + std::string(word);
    if (text.size() + 1 > column)
        text.append("\n").append(column, ' ');
    else
        text.append(column - text.size(), ' ');
    return text + wrapped(meaning, column, column);
}

std::string option_items(std::span<const OptionId> ids)
{
    std::string text;
    for (const OptionId id : ids) {
        const OptionInfo& option = option_info(id);
        text += item(option_words(option), option_column, option.help);
        if (option.kind != ValueKind::PartAndChoice)
            continue;
        const std::string choices = joined(option.choices, ", ");
        text.append(option_column, ' ').append(wrapped(choices, option_column, option_column));
    }
    return text;
}

// Group by group: a command has its options in the order of the groups.
std::string options_of(const CommandInfo& command)
{
    std::string text;
    std::span<const OptionId> left = command.options;
    while (!left.empty()) {
        const OptionGroup group = option_info(left.front()).group;
        const auto end = std::ranges::find_if(left, [group](OptionId id) { return option_info(id).group != group; });
        const auto count = static_cast<std::size_t>(end - left.begin());
        text.append("\n").append(group_title(group)).append(":\n").append(option_items(left.first(count)));
        left = left.subspan(count);
    }
    return text;
}

std::string tag_items()
{
    std::string text;
    for (const TagInfo& tag : all_tags())
        text += item(tag.forms, option_column, tag.meaning);
    return text;
}

std::string example_items(std::span<const Example> examples)
{
    std::string text;
    for (const Example& example : examples) {
        text.append("  ").append(program_name).append(" ").append(example.words);
        text.append("\n      ").append(wrapped(example.explanation, 6, 6));
    }
    return text;
}

std::string help_of(const CommandInfo& command)
{
    const std::string name = std::string(program_name) + " " + std::string(command.name);
    std::string text = name + " - " + std::string(command.summary) + "\n\nUsage: " + name + " [OPTION...] " +
        std::string(command.operands) + "\n\n" + wrapped(command.description, 0, 0) + options_of(command);
    if (takes_option(command, OptionId::Text))
        text += "\nTags that may stand in the text of a part:\n" + tag_items();
    return text + "\nExamples:\n" + example_items(command.examples);
}

std::string help_of_program()
{
    const std::string name(program_name);
    std::string text = name + " - " + std::string(program_summary) + "\n\nUsage: " + name +
        " COMMAND [OPTION...] [PATH...]\n\nCommands:\n";
    for (const CommandInfo& command : all_commands())
        text += item(command.name, command_column, command.summary);
    text += "\nOptions:\n" + option_items(program_options());
    text += "\n\"" + name + " COMMAND --help\" shows the options of a command, with examples.\n";
    text += "\nFirst look at the pattern, then try edits with preview, then rename:\n";
    return text + example_items(program_examples());
}

} // namespace

std::string option_words(const OptionInfo& option)
{
    std::string words = option.letter == 0 ? std::string() : std::string("-") + option.letter + ", ";
    words.append("--").append(option.name);
    if (!option.value.empty())
        words.append(" ").append(option.value);
    return words;
}

std::string help_text(std::optional<CommandId> command)
{
    return command ? help_of(command_info(*command)) : help_of_program();
}

} // namespace multirename
