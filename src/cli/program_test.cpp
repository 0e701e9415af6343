#include "cli/program.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "cli/testing/fake_console.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

// Everything that needs no files: the names come in through standard input.
class ProgramTest : public testing::Test {
protected:
    ExitStatus run(const Words& words)
    {
        console.output.clear();
        console.errors.clear();
        return run_program(words, console, Batches(fs::temp_directory_path() / "multirename-no-batches-here"));
    }

    std::string preview(const std::string& names, Words words)
    {
        console.input = names;
        words.insert(words.begin(), {"preview", "--names", "-", "--format", "tsv"});
        run(words);
        return console.output.substr(console.output.find('\n') + 1);
    }

    FakeConsole console;
};

TEST_F(ProgramTest, ListsOfNamesGiveTheSamePlanOnEverySystem)
{
    EXPECT_EQ(preview("IMG_7.jpg\nIMG_8.jpg\n", {"--text", "1=trip_", "--digits", "2=2"}),
              "IMG_7.jpg\ttrip_07.jpg\t\t2\ttrue\ttrue\nIMG_8.jpg\ttrip_08.jpg\t\t2\ttrue\ttrue\n");
    EXPECT_EQ(preview("a:b 1\na:b 2\n", {"--text", "3=!"}),
              "a:b 1\ta:b 1!\t\t2\ttrue\ttrue\na:b 2\ta:b 2!\t\t2\ttrue\ttrue\n");
    EXPECT_EQ(preview("\xFF 1\n\xFF 2\n", {"--text", "3=!"}),
              "\xFF 1\t\xFF 1!\t\t2\ttrue\ttrue\n\xFF 2\t\xFF 2!\t\t2\ttrue\ttrue\n");
    EXPECT_EQ(preview("a1\nb1\nA2\n", {"--text", "3=x"}).substr(0, 3), "a1\t");
}

TEST_F(ProgramTest, LinesForScriptsHaveStrayBytesAsTheyAreAndHalvesOfPairsAsEscapes)
{
    const std::string first = "\xF0\x9F\x98\x80"; // these two share their first half
    const std::string second = "\xF0\x9F\x98\x81";
    EXPECT_EQ(preview(first + "\n" + second + "\n", {"--text", "1=\xFF"}),
              first + "\t\xFF\\ude00\t\t2\ttrue\ttrue\n" + second + "\t\xFF\\ude01\t\t2\ttrue\ttrue\n");
}

TEST_F(ProgramTest, TellsOfProblemsInTheDialogsWordsWithoutItsLineEnds)
{
    preview("a1\na2\n", {"--clear", "2"});
    EXPECT_EQ(console.errors, "Unable to rename files:\n2 files are being renamed to the same name.\n");
    EXPECT_EQ(run({"preview", "--names", "-", "--clear", "2"}), ExitStatus::Refused);
}

TEST_F(ProgramTest, ShowsThroughThePagerOnlyWhatGoesToATerminal)
{
    console.input = "a1\na2\n";
    run({"preview", "--names", "-", "--pager"});
    EXPECT_TRUE(console.piped.empty());
    console.is_terminal = true;
    run({"preview", "--names", "-", "--pager"});
    console.variables["PAGER"] = "more";
    run({"pattern", "--names", "-", "--pager"});
    ASSERT_EQ(console.piped.size(), 2U);
    EXPECT_EQ(console.piped[0].first, "less -R");
    EXPECT_EQ(console.piped[1].first, "more");
    EXPECT_THAT(console.piped[1].second, StartsWith("Pattern: a#\n"));
}

TEST_F(ProgramTest, ALongListOfWarningsIsCut)
{
    std::string names;
    for (int i = 100; i < 130; ++i) // parts take numbers of at most 260 digits
        names += "a" + std::string(300, '1') + std::to_string(i) + "\n";
    console.input = names;
    run({"preview", "--names", "-"});
    std::size_t warnings = 0;
    for (std::size_t at = 0; (at = console.errors.find("does not fit", at)) != std::string::npos; ++at)
        ++warnings;
    EXPECT_EQ(warnings, 10U);
    EXPECT_THAT(console.errors, HasSubstr("the same is true of 20 more."));
}

TEST_F(ProgramTest, ErrorsDoNothingToATerminal)
{
    EXPECT_EQ(run({"preview", "\x1b]0;title\x07\nx"}), ExitStatus::WrongCommandLine);
    EXPECT_THAT(console.errors, HasSubstr("\\x1b]0;title\\x07\\nx"));
    EXPECT_EQ(std::ranges::count(console.errors, '\n'), 1);
}

TEST_F(ProgramTest, AnEditThatIsWrongIsSaidInOneLineAndNothingElseIs)
{
    console.input = "a\nb\n";
    EXPECT_EQ(run({"preview", "--names", "-", "--extensions", "--numbers-as-text", "--text", "9=x"}),
              ExitStatus::WrongCommandLine);
    EXPECT_EQ(std::ranges::count(console.errors, '\n'), 1);
    EXPECT_EQ(console.output, "");
}

TEST_F(ProgramTest, AnEmptyListIsNoFailure)
{
    EXPECT_EQ(run({"preview", "--names", "-"}), ExitStatus::Done);
    EXPECT_EQ(console.output, "Old name  New name  Status\n\n0 files: 0 to rename.\n");
    EXPECT_EQ(run({"pattern", "--names", "-", "--format", "json"}), ExitStatus::Done);
    EXPECT_THAT(console.output, StartsWith("{\"pattern\":\"\",\"extension\":\"\""));
}

} // namespace
} // namespace multirename
