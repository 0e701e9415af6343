#include "win32/launcher/arguments.h"

#include <gmock/gmock.h>

#include "text/utf8.h"

namespace multirename {

void PrintTo(const PathWord& word, std::ostream* out)
{
    *out << (word.is_list_file ? "list " : "path ") << testing::PrintToString(word.path);
}

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Words = std::vector<std::u16string>;

CommandLine understood(const Words& words)
{
    const OrProblem<CommandLine> parsed = parse_arguments(words);
    EXPECT_TRUE(std::holds_alternative<CommandLine>(parsed));
    return std::holds_alternative<CommandLine>(parsed) ? std::get<CommandLine>(parsed) : CommandLine{};
}

std::string problem_of(const Words& words)
{
    const OrProblem<CommandLine> parsed = parse_arguments(words);
    EXPECT_TRUE(std::holds_alternative<Problem>(parsed));
    return std::holds_alternative<Problem>(parsed) ? to_bytes(std::get<Problem>(parsed).text) : std::string();
}

struct TaskRow {
    const char* sentence;
    Words words;
    Task task;
};
class ArgumentsTask : public testing::TestWithParam<TaskRow> { };
TEST_P(ArgumentsTask, IsUnderstood)
{
    const CommandLine line = understood(GetParam().words);
    EXPECT_EQ(line.task, GetParam().task);
    EXPECT_THAT(line.paths, testing::IsEmpty());
}
INSTANTIATE_TEST_SUITE_P(All, ArgumentsTask,
                         testing::Values(TaskRow{"NoWordsLeaveTheChoiceToTheUser", {}, Task::Rename},
                                         TaskRow{"TheEndOfOptionsAloneDoesToo", {u"--"}, Task::Rename},
                                         TaskRow{"Installing", {u"--install-sendto"}, Task::InstallSendTo},
                                         TaskRow{"Uninstalling", {u"--uninstall-sendto"}, Task::UninstallSendTo},
                                         TaskRow{"Help", {u"--help"}, Task::ShowHelp},
                                         TaskRow{"Version", {u"--version"}, Task::ShowVersion},
                                         TaskRow{"HelpAmongPaths", {u"a", u"--help", u"-x"}, Task::ShowHelp}),
                         [](const auto& row) { return std::string(row.param.sentence); });

TEST(Arguments, PathsAndListFilesKeepTheirOrder)
{
    EXPECT_THAT(understood({u"b", u"@list.txt", u"a", u"@C:\\more lists\\2.txt"}).paths,
                ElementsAre(PathWord{u"b"}, PathWord{u"list.txt", true}, PathWord{u"a"},
                            PathWord{u"C:\\more lists\\2.txt", true}));
}

TEST(Arguments, BehindTheEndOfOptionsEveryWordIsAPath)
{
    EXPECT_THAT(understood({u"a", u"--", u"@b", u"--help", u"--", u"-c", u"@"}).paths,
                ElementsAre(PathWord{u"a"}, PathWord{u"@b"}, PathWord{u"--help"}, PathWord{u"--"}, PathWord{u"-c"},
                            PathWord{u"@"}));
}

TEST(Arguments, SignsWithinAWordAreOrdinaryLetters)
{
    EXPECT_THAT(understood({u"a@b", u"a--b", u".\\-c"}).paths,
                ElementsAre(PathWord{u"a@b"}, PathWord{u"a--b"}, PathWord{u".\\-c"}));
}

TEST(Arguments, AnUnknownOptionIsNamed)
{
    EXPECT_THAT(problem_of({u"a", u"--frob", u"--brof"}), HasSubstr("\"--frob\" is not an option"));
    EXPECT_THAT(problem_of({u"-"}), HasSubstr("\"-\" is not an option"));
    EXPECT_THAT(problem_of({u"--Help"}), HasSubstr("\"--Help\" is not an option"));
}

TEST(Arguments, WhatScriptsAskForStandsAlone)
{
    EXPECT_THAT(problem_of({u"--install-sendto", u"a"}), HasSubstr("--install-sendto stands alone"));
    EXPECT_THAT(problem_of({u"a", u"--uninstall-sendto"}), HasSubstr("--uninstall-sendto stands alone"));
    EXPECT_THAT(problem_of({u"--install-sendto", u"--install-sendto"}), HasSubstr("stands alone"));
}

TEST(Arguments, AListFileNeedsAName) { EXPECT_THAT(problem_of({u"@"}), HasSubstr("lacks the name")); }

TEST(Arguments, AnEmptyPathIsAMistakeEvenBehindTheEndOfOptions)
{
    EXPECT_THAT(problem_of({u"a", u""}), HasSubstr("empty"));
    EXPECT_THAT(problem_of({u"--", u""}), HasSubstr("empty"));
}

TEST(Arguments, TheHelpNamesEveryOption)
{
    for (const char* option :
         {"--install-sendto\n", "--uninstall-sendto\n", "--help\n", "--version\n", "@LIST.TXT\n", "--\n"})
        EXPECT_THAT(to_bytes(help_text()), HasSubstr(option));
}

} // namespace
} // namespace multirename
