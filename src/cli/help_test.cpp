#include "cli/help.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <vector>

#include "cli/testing/text_lines.h"

namespace multirename {
namespace {

using testing::HasSubstr;
using testing::Not;

std::vector<std::optional<CommandId>> all_subjects()
{
    std::vector<std::optional<CommandId>> subjects{std::nullopt};
    for (const CommandInfo& command : all_commands())
        subjects.emplace_back(command.id);
    return subjects;
}

std::string name_of(std::optional<CommandId> subject)
{
    return std::string(subject ? command_info(*subject).name : program_name);
}

std::string wanted_help(std::optional<CommandId> subject)
{
    std::ifstream stream(std::string(TEST_DATA_FOLDER) + "/cli/help/" + name_of(subject) + ".txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(HelpTest, IsWordForWordWhatIsWrittenDown)
{
    for (const auto subject : all_subjects()) {
        EXPECT_EQ(help_text(subject), wanted_help(subject))
            << "in the help of " << name_of(subject) << "; scripts/update-goldens writes it down anew";
    }
}

TEST(HelpTest, FitsIntoEightyColumns)
{
    for (const auto subject : all_subjects()) {
        for (const std::string& line : lines_of(help_text(subject)))
            EXPECT_LE(line.size(), 80U) << name_of(subject) << ": " << line;
    }
}

TEST(HelpTest, NeedsNothingBeyondAscii)
{
    for (const auto subject : all_subjects()) {
        const std::string text = help_text(subject);
        EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }))
            << name_of(subject);
    }
}

TEST(HelpTest, EndsEachLineWithWhatIsSaid)
{
    for (const auto subject : all_subjects()) {
        EXPECT_THAT(help_text(subject), Not(HasSubstr(" \n"))) << name_of(subject);
        EXPECT_TRUE(help_text(subject).ends_with("\n"));
        EXPECT_FALSE(help_text(subject).ends_with("\n\n"));
    }
}

TEST(HelpTest, OfTheProgramNamesEveryCommandAndTheOptionsWithoutOne)
{
    const std::string text = help_text(std::nullopt);
    for (const CommandInfo& command : all_commands())
        EXPECT_THAT(text, HasSubstr("\n  " + std::string(command.name) + " ")) << command.name;
    for (const OptionId option : program_options())
        EXPECT_THAT(text, HasSubstr("\n  " + option_words(option_info(option)) + " "));
    for (const Example& example : program_examples())
        EXPECT_THAT(text, HasSubstr("\n  multirename " + std::string(example.words) + "\n"));
}

TEST(HelpTest, OfACommandNamesItsOptionsAndNoOthers)
{
    for (const CommandInfo& command : all_commands()) {
        const std::vector<std::string> lines = lines_of(help_text(command.id));
        for (const OptionInfo& option : all_options()) {
            const std::string start = "  " + option_words(option);
            const bool is_there = std::ranges::any_of(
                lines, [&start](const std::string& line) { return line == start || line.starts_with(start + " "); });
            EXPECT_EQ(is_there, takes_option(command, option.id)) << command.name << start;
        }
    }
}

TEST(HelpTest, OfACommandSaysAllThatTheTableSaysOfIt)
{
    for (const CommandInfo& command : all_commands()) {
        const std::string text = in_one_line(help_text(command.id));
        EXPECT_THAT(text, HasSubstr(in_one_line(command.description)));
        for (const OptionId id : command.options) {
            EXPECT_THAT(text, HasSubstr(in_one_line(option_info(id).help)));
            for (const std::string_view choice : option_info(id).choices)
                EXPECT_THAT(text, HasSubstr(std::string(choice)));
        }
        for (const Example& example : command.examples) {
            EXPECT_THAT(text, HasSubstr("multirename " + in_one_line(example.words)));
            EXPECT_THAT(text, HasSubstr(in_one_line(example.explanation)));
        }
    }
}

TEST(HelpTest, ListsTagsWhereTextCanBeGiven)
{
    for (const CommandInfo& command : all_commands()) {
        const std::string text = help_text(command.id);
        for (const TagInfo& tag : all_tags())
            EXPECT_EQ(text.find("\n  " + std::string(tag.forms)) != std::string::npos,
                      takes_option(command, OptionId::Text))
                << command.name << " " << tag.forms;
    }
}

TEST(HelpTest, WritesTheShortFormOfAnOptionFirst)
{
    EXPECT_EQ(option_words(option_info(OptionId::NulEnded)), "-0, --null");
    EXPECT_EQ(option_words(option_info(OptionId::Case)), "--case K=STYLE");
    EXPECT_EQ(option_words(option_info(OptionId::Folders)), "--folders");
}

} // namespace
} // namespace multirename
