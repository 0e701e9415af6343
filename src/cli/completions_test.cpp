#include "cli/completions.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "cli/command_table.h"
#include "cli/testing/text_lines.h"

namespace multirename {
namespace {

using testing::HasSubstr;

std::string line_with(const std::string& script, const std::string& text)
{
    const std::vector<std::string> lines = lines_of(script);
    const auto found =
        std::ranges::find_if(lines, [&text](const std::string& line) { return line.find(text) != std::string::npos; });
    return found == lines.end() ? std::string() : *found;
}

bool has_word(const std::string& text, const std::string& word)
{
    const auto ends = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '-'; };
    for (std::size_t i = 0; (i = text.find(word, i)) != std::string::npos; ++i) {
        const std::size_t end = i + word.size();
        if ((i == 0 || ends(text[i - 1])) && (end == text.size() || ends(text[end])))
            return true;
    }
    return false;
}

std::string options_in_bash(const CommandInfo& command)
{
    return line_with(bash_completion(), " " + std::string(command.name) + ") options=");
}

std::string options_in_zsh(const CommandInfo& command)
{
    const std::string script = zsh_completion();
    const std::size_t start = script.find("\n    " + std::string(command.name) + ")\n");
    return script.substr(start, script.find(";;", start) - start);
}

std::string option_in_fish(const CommandInfo& command, const OptionInfo& option)
{
    std::string found;
    for (const std::string& line : lines_of(fish_completion())) {
        const bool is_for_command = has_word(line.substr(0, line.find(" -l ")), std::string(command.name));
        if (is_for_command && line.find(" -l " + std::string(option.name) + " ") != std::string::npos)
            found = line;
    }
    return found;
}

TEST(CompletionsTest, KnowEveryOptionOfEveryCommandAndNoOther)
{
    for (const CommandInfo& command : all_commands()) {
        const std::string bash = options_in_bash(command);
        const std::string zsh = options_in_zsh(command);
        for (const OptionInfo& option : all_options()) {
            const std::string name = "--" + std::string(option.name);
            const bool is_taken = takes_option(command, option.id);
            EXPECT_EQ(has_word(bash, name), is_taken) << command.name << " " << name;
            EXPECT_EQ(zsh.find(name + (option.value.empty() ? "" : "=") + "[") != std::string::npos ||
                          zsh.find("," + name + "}") != std::string::npos,
                      is_taken)
                << command.name << " " << name;
            EXPECT_EQ(!option_in_fish(command, option).empty(), is_taken) << command.name << " " << name;
        }
    }
}

TEST(CompletionsTest, KnowTheOptionsWithoutACommand)
{
    for (const OptionId id : program_options()) {
        const std::string name(option_info(id).name);
        EXPECT_TRUE(has_word(line_with(bash_completion(), "'') options="), "--" + name));
        EXPECT_THAT(zsh_completion(), HasSubstr("--" + name));
        EXPECT_FALSE(line_with(fish_completion(), "-n 'not __multirename_command'").empty());
        EXPECT_THAT(fish_completion(), HasSubstr(" -l " + name + " -d"));
    }
}

TEST(CompletionsTest, KnowEveryCommandAndChoice)
{
    for (const std::string& script : {bash_completion(), zsh_completion(), fish_completion()}) {
        for (const CommandInfo& command : all_commands())
            EXPECT_TRUE(has_word(script, std::string(command.name))) << command.name << " in\n" << script;
        for (const OptionInfo& option : all_options()) {
            for (const std::string_view choice : option.choices)
                EXPECT_TRUE(has_word(script, std::string(choice))) << choice << " in\n" << script;
        }
    }
}

TEST(CompletionsTest, DescribeOptionsInTheWordsOfTheTable)
{
    for (const CommandInfo& command : all_commands()) {
        for (const OptionId id : command.options) {
            const std::string help(option_info(id).help);
            EXPECT_THAT(options_in_zsh(command), HasSubstr("[" + help + "]"));
            EXPECT_THAT(option_in_fish(command, option_info(id)), HasSubstr(" -d '" + help + "'"));
        }
    }
}

TEST(CompletionsTest, HaveEveryGapFilled)
{
    for (const std::string& script : {bash_completion(), zsh_completion(), fish_completion()}) {
        for (std::size_t i = 0; (i = script.find('@', i)) != std::string::npos; ++i)
            EXPECT_FALSE(std::isupper(static_cast<unsigned char>(script[i + 1]))) << script.substr(i, 20);
        EXPECT_TRUE(script.ends_with("\n"));
    }
}

TEST(CompletionsTest, AreFoundByTheirShells)
{
    EXPECT_TRUE(zsh_completion().starts_with("#compdef multirename\n"));
    EXPECT_THAT(bash_completion(), HasSubstr("\ncomplete -F _multirename multirename\n"));
}

} // namespace
} // namespace multirename
