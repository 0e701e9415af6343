#include "cli/command_line.h"

#include <gmock/gmock.h>

#include "cli/failure.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Words = std::vector<std::string>;

TEST(CommandLine, EditsKeepTheOrderInWhichTheyStandWhateverTheirOptions)
{
    const Request request = parse_command_line({"rename", "--text", "1=a", "x", "--clear=2", "y", "--text", "3=b=c"});
    EXPECT_EQ(request.command, CommandId::Rename);
    EXPECT_THAT(request.selection.paths, ElementsAre("x", "y"));
    EXPECT_THAT(request.edits,
                ElementsAre(Edit{OptionId::Text, "1=a"}, Edit{OptionId::Clear, "2"}, Edit{OptionId::Text, "3=b=c"}));
}

TEST(CommandLine, EveryWordBehindTwoDashesIsAPath)
{
    const Request request = parse_command_line({"preview", "-0", "--from", "-", "--", "--text", "-x", "--"});
    EXPECT_THAT(request.selection.paths, ElementsAre("--text", "-x", "--"));
    EXPECT_EQ(request.selection.from, "-");
    EXPECT_TRUE(request.selection.nul_ended);
    EXPECT_TRUE(request.edits.empty());
}

TEST(CommandLine, NoWordIsTakenForAListOfWords)
{
    const Request request =
        parse_command_line({"preview", "[a,b]", "{}", "%%", "a,b", "[", "\x01[x]", "--text", "[1]", "--text=[2,3]"});
    EXPECT_THAT(request.selection.paths, ElementsAre("[a,b]", "{}", "%%", "a,b", "[", "\x01[x]"));
    EXPECT_THAT(request.edits, ElementsAre(Edit{OptionId::Text, "[1]"}, Edit{OptionId::Text, "[2,3]"}));
}

TEST(CommandLine, NamesOfCommandsArePathsBehindACommand)
{
    EXPECT_THAT(parse_command_line({"rename", "undo", "rename", "pattern"}).selection.paths,
                ElementsAre("undo", "rename", "pattern"));
}

TEST(CommandLine, AValueMayLookLikeAnOption)
{
    EXPECT_THAT(parse_command_line({"rename", "x", "--text", "1=-v", "--replace", "2=-a-b-"}).edits,
                ElementsAre(Edit{OptionId::Text, "1=-v"}, Edit{OptionId::Replace, "2=-a-b-"}));
    EXPECT_EQ(parse_command_line({"rename", "--in", "--folder"}).selection.in, "--folder");
}

TEST(CommandLine, ASlashBeginsAPathOnEverySystem)
{
    EXPECT_THAT(parse_command_line({"rename", "/text", "/x:y"}).selection.paths, ElementsAre("/text", "/x:y"));
}

TEST(CommandLine, OfOneOptionTheLastValueCounts)
{
    const Request request =
        parse_command_line({"preview", "--in", "a", "--in", "b", "--format", "tsv", "--format", "json"});
    EXPECT_EQ(request.selection.in, "b");
    EXPECT_EQ(request.format, OutputFormat::Json);
}

TEST(CommandLine, HelpIsHelpWhateverElseIsMissing)
{
    EXPECT_EQ(parse_command_line({"--help"}).kind, Request::Kind::Help);
    EXPECT_EQ(parse_command_line({"-h"}).command, std::nullopt);
    const Request request = parse_command_line({"edit", "--help"});
    EXPECT_EQ(request.kind, Request::Kind::Help);
    EXPECT_EQ(request.command, CommandId::Edit);
    EXPECT_EQ(parse_command_line({"--help", "undo"}).command, CommandId::Undo);
    EXPECT_EQ(parse_command_line({"--version"}).kind, Request::Kind::Version);
}

TEST(CommandLine, UndoTakesABatchOrNone)
{
    EXPECT_EQ(parse_command_line({"undo"}).batch, std::nullopt);
    EXPECT_EQ(parse_command_line({"undo", "20240305-140709-001"}).batch, "20240305-140709-001");
    EXPECT_TRUE(parse_command_line({"undo", "--list"}).list);
}

TEST(CommandLine, EveryOptionOfTheTableIsUnderstoodByItsCommandsAndByNoOther)
{
    for (const CommandInfo& command : all_commands()) {
        for (const OptionInfo& option : all_options()) {
            Words words = {std::string(command.name), "--" + std::string(option.name), "--help"};
            if (!option.value.empty())
                words.insert(words.begin() + 2, option.id == OptionId::Format ? "tsv" : "1=x");
            if (takes_option(command, option.id))
                EXPECT_EQ(parse_command_line(words).kind, Request::Kind::Help) << command.name << option.name;
            else
                EXPECT_THROW((void)parse_command_line(words), WrongCommandLine) << command.name << option.name;
        }
    }
}

TEST(CommandLine, WhatIsWrongIsSaidInOneLine)
{
    for (const Words& words : {Words{"rename", "x", "--colour"}, Words{"frobnicate"}, Words{"rename", "x", "--text"}}) {
        try {
            (void)parse_command_line(words);
            ADD_FAILURE() << words.back();
        } catch (const WrongCommandLine& wrong) {
            EXPECT_THAT(wrong.what(), HasSubstr(words.back()));
            EXPECT_EQ(std::string(wrong.what()).find('\n'), std::string::npos);
        }
    }
}

} // namespace
} // namespace multirename
