#include "platform/console.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <langinfo.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <csignal>
#include <cstdlib>

#include "platform/testing/posix_child.h"
#include "platform/testing/scoped_variable.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {

namespace {

void set_variable(const std::string& name, const std::optional<std::string>& value)
{
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
}

} // namespace

ScopedVariable::ScopedVariable(std::string name, const std::optional<std::string>& value) : name_(std::move(name))
{
    if (const char* before = std::getenv(name_.c_str()))
        before_ = before;
    set_variable(name_, value);
}
ScopedVariable::~ScopedVariable() { set_variable(name_, before_); }

namespace {

class PosixConsoleTest : public testing::Test {
protected:
    /// In a child: whatever is written to `stream` goes into the file.
    [[nodiscard]] bool redirect(int stream, const std::string& path) const
    {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        return file >= 0 && dup2(file, stream) == stream;
    }
    [[nodiscard]] std::string path(const std::string& name) const { return temporary_.path() / name; }

    TemporaryFolder temporary_;
};

TEST_F(PosixConsoleTest, WritesToStandardOutputAndStandardError)
{
    EXPECT_EQ(status_in_child([this] {
                  if (!redirect(STDOUT_FILENO, path("out")) || !redirect(STDERR_FILENO, path("err")))
                      return 1;
                  Console& console = system_console();
                  const bool is_written = console.write("a\n") && console.write(std::string_view("\0\xFF", 2));
                  console.write_error("error\n");
                  return is_written && !console.output_is_terminal() && !console.errors_are_terminal() ? 0 : 2;
              }),
              0);
    EXPECT_EQ(temporary_.content("out"), std::string("a\n\0\xFF", 4));
    EXPECT_EQ(temporary_.content("err"), "error\n");
}

TEST_F(PosixConsoleTest, AReaderWhoHasGoneAwayIsNoFailure)
{
    EXPECT_EQ(status_in_child([] {
                  std::array<int, 2> ends{};
                  std::signal(SIGPIPE, SIG_DFL);
                  if (pipe(ends.data()) != 0 || dup2(ends[1], STDOUT_FILENO) < 0 || close(ends[0]) != 0)
                      return 1;
                  static_cast<void>(system_console());
                  std::signal(SIGPIPE, SIG_IGN); // the console was made before, in the process that this one came from
                  return system_console().write("unread") ? 0 : 2;
              }),
              0);
}

TEST_F(PosixConsoleTest, AFullDiskIsAFailure)
{
    EXPECT_EQ(status_in_child([this] {
                  if (!redirect(STDOUT_FILENO, "/dev/full"))
                      return 1;
                  return system_console().write("text") ? 2 : 0;
              }),
              0);
}

TEST_F(PosixConsoleTest, ReadsAllOfStandardInput)
{
    const std::string expected = std::string("a\0\n\xFF", 4) + std::string(200'000, 'x');
    temporary_.write("in", expected);
    EXPECT_EQ(status_in_child([&] {
                  const int file = open(path("in").c_str(), O_RDONLY | O_CLOEXEC);
                  if (file < 0 || dup2(file, STDIN_FILENO) < 0)
                      return 1;
                  return system_console().read_input() == expected ? 0 : 2;
              }),
              0);
}

TEST_F(PosixConsoleTest, AFileHas80Columns)
{
    EXPECT_EQ(status_in_child(
                  [this] { return redirect(STDOUT_FILENO, path("out")) && system_console().columns() == 80 ? 0 : 1; }),
              0);
}

TEST_F(PosixConsoleTest, RunsACommandOnAFileWhateverItIsCalled)
{
    for (const std::string name :
         {"plain", "two words", "it's \"quoted\"", "$HOME `id` $(id) \\ * ;&|<>", "-n", "new\nline"}) {
        temporary_.write(name, "before ");
        EXPECT_EQ(system_console().run_on_file("printf after >>", path(name)), 0) << name;
        EXPECT_EQ(temporary_.content(name), "before after") << name;
    }
}

TEST_F(PosixConsoleTest, TakesTheCommandApartAsTheShellDoes)
{
    const ScopedVariable text("MULTIRENAME_TEST", "from a variable");
    EXPECT_EQ(system_console().run_on_file("printf '%s|%s' 'one word' \"$MULTIRENAME_TEST\" >", path("out")), 0);
    EXPECT_EQ(temporary_.content("out"), "one word|from a variable");
}

TEST_F(PosixConsoleTest, GivesTheExitStatusOfACommand)
{
    EXPECT_EQ(system_console().run_on_file("exit 3;", "ignored"), 3);
    EXPECT_EQ(system_console().run_on_file("multirename-no-such-command 2> /dev/null", "ignored"), 127);
    EXPECT_EQ(system_console().run_on_file("kill -TERM $$;", "ignored"), 128 + SIGTERM);
}

TEST_F(PosixConsoleTest, PipesATextToACommandAndWaitsForIt)
{
    const std::string text = std::string("a\0\n\xFF", 4) + std::string(200'000, 'x');
    EXPECT_TRUE(system_console().pipe_to("cat > '" + path("piped") + "'", text));
    EXPECT_EQ(temporary_.content("piped"), text);
}

TEST_F(PosixConsoleTest, ACommandNeedNotReadAllOfTheText)
{
    EXPECT_TRUE(system_console().pipe_to("true", std::string(1'000'000, 'x')));
}

TEST_F(PosixConsoleTest, KeysThatEndAProgramAreForTheCommandAlone)
{
    // The command sends this process what the terminal would send to both of them.
    const auto status_of = [](auto run) {
        return status_in_child([&] {
            std::signal(SIGINT, SIG_DFL);
            std::signal(SIGQUIT, SIG_DFL);
            run();
            return std::signal(SIGINT, SIG_DFL) == SIG_DFL && std::signal(SIGQUIT, SIG_DFL) == SIG_DFL ? 0 : 1;
        });
    };
    const std::string signals = "kill -INT $PPID; kill -QUIT $PPID;";
    EXPECT_EQ(status_of([&] { static_cast<void>(system_console().run_on_file("sleep 0.2; " + signals, "true")); }), 0);
    EXPECT_EQ(status_of([&] { system_console().pipe_to("cat > /dev/null; sleep 0.2; " + signals, "text"); }), 0);
}

TEST_F(PosixConsoleTest, ACommandIsEndedByTheKeysThatThisProgramLeavesToIt)
{
    EXPECT_EQ(system_console().run_on_file("kill -INT $$;", "ignored"), 128 + SIGINT);
}

TEST(PosixConsole, TheLocaleIsTheUsersOrKnowsAllCharacters)
{
    for (const char* name : {"C", "no_such_locale", "C.UTF-8"}) {
        EXPECT_EQ(status_in_child([name] {
                      setenv("LC_ALL", name, 1);
                      use_locale_of_user();
                      return std::string_view(nl_langinfo(CODESET)) == "UTF-8" ? 0 : 1;
                  }),
                  0)
            << name;
    }
}

TEST(PosixConsole, TheWordsOfTheCommandLineAreThoseBehindTheProgram)
{
    std::string program = "multirename";
    std::string word = "stray\xFF";
    std::array<char*, 4> words = {program.data(), word.data(), word.data(), nullptr};
    EXPECT_EQ(command_line_words(3, words.data()), (std::vector<std::string>{word, word}));
    EXPECT_TRUE(command_line_words(1, words.data()).empty());
    EXPECT_TRUE(command_line_words(0, words.data() + 3).empty());
}

} // namespace
} // namespace multirename
