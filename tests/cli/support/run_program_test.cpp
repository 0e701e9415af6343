#include "support/run_program.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <system_error>

#include "support/descriptor.h"
#include "support/snapshot.h"
#include "support/temporary_folder.h"
#include "support/test_programs.h"

namespace multirename {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

ProgramResult run_shell(const std::string& script) { return run_program({.arguments = shell(script)}); }

// Bytes that repeat in no short circle, so that a lost or doubled block shows.
std::string some_megabytes()
{
    constexpr std::size_t size = 5'000'000;
    std::string text;
    while (text.size() < size)
        text += std::to_string(text.size()) + '\n';
    return text;
}

TEST(RunProgramTest, TellsOutputErrorsAndStatusApart)
{
    const ProgramResult result = run_shell("printf out; printf err >&2; exit 7");
    EXPECT_EQ(result.output, "out");
    EXPECT_EQ(result.errors, "err");
    EXPECT_EQ(result.exit_status, 7);
}

TEST(RunProgramTest, HandsArgumentsOverAsTheyAre)
{
    const ProgramResult result = run_program({.arguments = {"printf", "<%s>", "", "a b", "$HOME", "\xFF\n"}});
    EXPECT_EQ(result.output, "<><a b><$HOME><\xFF\n>");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(RunProgramTest, KeepsBytesAsTheyAre)
{
    EXPECT_EQ(run_shell(R"(printf 'a\0b\377\r\n')").output, std::string("a\0b\xFF\r\n", 6));
}

TEST(RunProgramTest, SaysASignalAsAShellDoes)
{
    EXPECT_EQ(run_shell("kill -KILL $$").exit_status, 137);
    EXPECT_EQ(run_shell("kill -TERM $$").exit_status, 143);
}

TEST(RunProgramTest, StartsWithSignalsAsTheyAreByDefault)
{
    const auto old_interrupt = std::signal(SIGINT, SIG_IGN);
    const auto old_pipe = std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(run_shell("kill -INT $$; exit 0").exit_status, 130);
    EXPECT_EQ(run_shell("kill -PIPE $$; exit 0").exit_status, 141);
    std::signal(SIGINT, old_interrupt);
    std::signal(SIGPIPE, old_pipe);
}

TEST(RunProgramTest, HasAnEmptyInputByDefault) { EXPECT_EQ(run_program({.arguments = {"cat"}}).output, ""); }

TEST(RunProgramTest, PassesMegabytesThrough)
{
    const std::string text = some_megabytes();
    const ProgramResult result = run_program({.arguments = {"cat"}, .input = text});
    EXPECT_TRUE(result.output == text) << result.output.size() << " bytes of " << text.size();
    EXPECT_EQ(result.exit_status, 0);
}

TEST(RunProgramTest, PassesMegabytesThroughBothOutputs)
{
    const std::string text = some_megabytes();
    const ProgramResult result = run_program({.arguments = {"tee", "/dev/stderr"}, .input = text});
    EXPECT_TRUE(result.output == text) << result.output.size() << " bytes of " << text.size();
    EXPECT_TRUE(result.errors == text) << result.errors.size() << " bytes of " << text.size();
}

TEST(RunProgramTest, TakesMegabytesWrittenBeforeTheInputIsRead)
{
    const std::string text = some_megabytes();
    const ProgramResult result = run_program(
        {.arguments = shell("head -c 3000000 /dev/zero; head -c 3000000 /dev/zero >&2; wc -c"), .input = text});
    EXPECT_EQ(result.output.size(), 3'000'000 + std::to_string(text.size()).size() + 1);
    EXPECT_EQ(result.errors.size(), 3'000'000U);
}

TEST(RunProgramTest, WritesOnAfterBothOutputsAreClosed)
{
    const TemporaryFolder folder;
    const std::string text = some_megabytes();
    static_cast<void>(
        run_program({.arguments = shell("exec >file 2>&-; wc -c"), .input = text, .folder = folder.path()}));
    EXPECT_EQ(snapshot_of(folder.path()).entries.at("file").content, std::to_string(text.size()) + "\n");
}

TEST(RunProgramTest, DropsInputThatNobodyReads)
{
    const ProgramResult result = run_program({.arguments = shell("printf done"), .input = some_megabytes()});
    EXPECT_EQ(result.output, "done");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(RunProgramTest, SetsAndUnsetsVariablesOnTopOfItsOwn)
{
    setenv("CLI_SUPPORT_KEPT", "kept", 1);
    setenv("CLI_SUPPORT_GONE", "here", 1);
    setenv("CLI_SUPPORT_SET", "old", 1);
    const ProgramResult result = run_program(
        {.arguments = shell("echo $CLI_SUPPORT_KEPT ${CLI_SUPPORT_GONE-unset} $CLI_SUPPORT_SET ${CLI_SUPPORT_NEW}"),
         .environment = {{"CLI_SUPPORT_GONE", std::nullopt}, {"CLI_SUPPORT_SET", "set"}, {"CLI_SUPPORT_NEW", "new"}}});
    EXPECT_EQ(result.output, "kept unset set new\n");
    EXPECT_STREQ(std::getenv("CLI_SUPPORT_GONE"), "here");
}

TEST(RunProgramTest, TellsAnEmptyVariableFromNone)
{
    const ProgramResult result = run_program(
        {.arguments = shell("echo ${CLI_SUPPORT_EMPTY-unset}."), .environment = {{"CLI_SUPPORT_EMPTY", ""}}});
    EXPECT_EQ(result.output, ".\n");
}

TEST(RunProgramTest, RunsInTheFolderItIsTold)
{
    const TemporaryFolder folder;
    const std::string inner = folder.make_folder("a\nb\xFF");
    EXPECT_EQ(run_program({.arguments = {"/bin/pwd"}, .folder = inner}).output, inner + "\n");
}

TEST(RunProgramTest, LooksForARelativeProgramInThatFolder)
{
    const TemporaryFolder folder;
    chmod(folder.write("script", "#!/bin/sh\necho here\n").c_str(), 0755);
    EXPECT_EQ(run_program({.arguments = {"./script"}, .folder = folder.path()}).output, "here\n");
}

TEST(RunProgramTest, RunsAsAnotherUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    const TemporaryFolder folder;
    const ProgramResult result = run_program({.arguments = shell("id -u; id -g; id -G; echo x >/dev/stderr; echo >new"),
                                              .folder = folder.path(),
                                              .user = nobody});
    EXPECT_THAT(result.output, "65534\n65534\n65534\n");
    EXPECT_THAT(result.errors, AllOf(HasSubstr("x\n"), HasSubstr("new")));
    EXPECT_THAT(names_in(folder.path()), ElementsAre());
}

TEST(RunProgramTest, RunsASanitizedProgramAsAnotherUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    const TemporaryFolder folder;
    folder.write("a", "");
    const ProgramResult result =
        run_program({.arguments = exact_calls({"rename", "a", "b"}), .folder = folder.path(), .user = nobody});
    EXPECT_EQ(result.output, "rename EACCES\n");
    EXPECT_EQ(result.exit_status, 0) << result.errors;
    chmod(folder.path().c_str(), 0777);
    EXPECT_EQ(
        run_program({.arguments = exact_calls({"rename", "a", "b"}), .folder = folder.path(), .user = nobody}).output,
        "rename 0\n");
}

TEST(RunProgramTest, HasNoTerminalByDefault)
{
    EXPECT_EQ(run_shell("test -t 0 || test -t 1 || test -t 2 || echo none").output, "none\n");
}

TEST(RunProgramTest, GivesOutputAndErrorsOneTerminal)
{
    const ProgramResult result = run_program(
        {.arguments = shell(
             "test -t 1 && test -t 2 && printf 'yes\\n'; printf 'err\\n' >&2; stty size <&1; stty size </dev/tty"),
         .terminal = true});
    EXPECT_EQ(result.output, "yes\nerr\n24 80\n24 80\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(RunProgramTest, PassesMegabytesThroughATerminal)
{
    const std::string text = some_megabytes();
    const ProgramResult result = run_program({.arguments = {"cat"}, .input = text, .terminal = true});
    EXPECT_TRUE(result.output == text) << result.output.size() << " bytes of " << text.size();
}

TEST(RunProgramTest, GivesAnotherUserATerminal)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    const ProgramResult result =
        run_program({.arguments = shell("test -t 1 && echo yes >/dev/stdout"), .user = nobody, .terminal = true});
    EXPECT_EQ(result.output, "yes\n");
}

TEST(RunProgramTest, ClosesOutputBeforeTheProgramWrites)
{
    const ProgramResult killed = run_program({.arguments = {"/bin/echo", "text"}, .closed_output = true});
    EXPECT_EQ(killed.exit_status, 128 + SIGPIPE);
    const ProgramResult told = run_program({.arguments = shell("trap '' PIPE; /bin/echo text"), .closed_output = true});
    EXPECT_THAT(told.errors, HasSubstr("Broken pipe"));
    EXPECT_EQ(told.exit_status, 1);
    EXPECT_EQ(told.output, "");
}

TEST(RunProgramTest, ClosesOutputBesideATerminal)
{
    const ProgramResult result =
        run_program({.arguments = shell("trap '' PIPE; test -t 2 && printf tty >&2; /bin/echo text 2>&-"),
                     .terminal = true,
                     .closed_output = true});
    EXPECT_EQ(result.output, "tty");
    EXPECT_EQ(result.exit_status, 1);
}

TEST(RunProgramTest, HandsOverNoFilesOfItsOwn)
{
    constexpr int number = 50;
    const Descriptor open_across_exec(fcntl(STDERR_FILENO, F_DUPFD, number));
    ASSERT_GE(open_across_exec.get(), number);
    const std::string file = "/proc/$$/fd/" + std::to_string(open_across_exec.get());
    EXPECT_EQ(run_shell("test -e /proc/$$/fd/2 && ! test -e " + file + " && echo none").output, "none\n");
}

TEST(RunProgramTest, WorksWhereTheTestsHaveNoInput)
{
    const int kept = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    close(STDIN_FILENO);
    const ProgramResult result = run_program({.arguments = shell("cat; cat >&2 <&-; echo out"), .input = "in\n"});
    if (kept != -1) {
        dup2(kept, STDIN_FILENO);
        close(kept);
    }
    EXPECT_EQ(result.output, "in\nout\n");
}

TEST(RunProgramTest, SaysWhatCannotBeStarted)
{
    const TemporaryFolder folder;
    const auto error_of = [](const ProgramRun& run) {
        try {
            static_cast<void>(run_program(run));
        } catch (const std::system_error& error) {
            return error.code().value();
        }
        return 0;
    };
    EXPECT_EQ(error_of({.arguments = {folder.path_of("none")}}), ENOENT);
    EXPECT_NE(error_of({.arguments = {"no-program-of-this-name"}}), 0);
    EXPECT_EQ(error_of({.arguments = {folder.write("file", "")}}), EACCES);
    EXPECT_EQ(error_of({.arguments = {"true"}, .folder = folder.path_of("none")}), ENOENT);
    EXPECT_EQ(error_of({}), EINVAL);
}

} // namespace
} // namespace multirename
