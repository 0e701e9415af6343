#include <chrono>
#include <thread>

#include "story.h"

namespace multirename {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Output : public Story {
protected:
    [[nodiscard]] ProgramResult on_terminal(const Words& words, const std::string& variable = {},
                                            const std::string& value = {}) const
    {
        ProgramRun shown = program(words);
        shown.terminal = true;
        if (!variable.empty())
            shown.environment[variable] = value;
        return run_program(shown);
    }
};

TEST_F(Output, ATableHasItsColumnsUnderEachOtherWhateverTheNamesAreMadeOf)
{
    write({"a1", "caf\xC3\xA9 2", "\xE6\xBC\xA2\xE5\xAD\x97 3", "x4"});
    EXPECT_EQ(run({"preview", "--in", ".", "--text", "1=new "}).output,
              "Old name  New name    Status\n"
              "a1        new a1      rename\n"
              "caf\xC3\xA9 2    new caf\xC3\xA9 2  rename\n"
              "x4        new x4      rename\n"
              "\xE6\xBC\xA2\xE5\xAD\x97 3    new \xE6\xBC\xA2\xE5\xAD\x97 3  rename\n"
              "\n"
              "4 files: 4 to rename.\n");
}

TEST_F(Output, ATablePutsProblemsFirstAndCountsEverything)
{
    write({"a1", "a2", "a3", "b2"});
    EXPECT_EQ(run({"preview", "a1", "a2", "a3", "--text", "1=b"}).output,
              "Old name  New name  Status\n"
              "a2        b2        name exists\n"
              "a1        b1        rename\n"
              "a3        b3        rename\n"
              "\n"
              "3 files: 2 to rename, 1 with a problem.\n");
}

TEST_F(Output, ATableNamesTheFoldersWhereThereAreSeveral)
{
    write({"one/a1", "two/a2"});
    EXPECT_EQ(run({"preview", "one/a1", "two/a2", "--text", "1=b"}).output,
              "Old name  New name  Folder" + std::string(folder.path().size() + 5 - 6, ' ') + "  Status\n" +
                  "a1        b1        " + folder.path() + "/one/  rename\n" + "a2        b2        " + folder.path() +
                  "/two/  rename\n\n2 files: 2 to rename.\n");
}

TEST_F(Output, AFileThatThePatternDoesNotCoverIsSaidInWords)
{
    folder.write("names", "a.b\nx\nfoo.\n");
    EXPECT_THAT(run({"preview", "--names", "names", "--extensions"}).output,
                HasSubstr("not covered by the pattern, stays\n"));
    std::size_t not_covered = 0;
    const Json told = json({"preview", "--names", "names", "--extensions"});
    for (const Json& file : told["files"]) {
        if (file["inScope"].get<bool>())
            continue;
        EXPECT_EQ(file["new"], "");
        EXPECT_EQ(file["status"], 2);
        ++not_covered;
    }
    EXPECT_EQ(not_covered, 1U);
}

TEST_F(Output, OnATerminalTheChangedStretchOfEachNameStandsOut)
{
    write({"IMG_1.jpg", "IMG_2.jpg"});
    const ProgramResult result = on_terminal({"preview", "--in", ".", "--text", "1=IMAGE_"});
    EXPECT_THAT(result.output, HasSubstr("IM\x1b[31mG\x1b[0m_1.jpg  IM\x1b[32mAGE\x1b[0m_1.jpg  rename\n"));
}

TEST_F(Output, WithoutATerminalOrWithNoColorThereAreNoColours)
{
    write({"IMG_1.jpg", "IMG_2.jpg"});
    EXPECT_THAT(run({"preview", "--in", ".", "--text", "1=x"}).output, Not(HasSubstr("\x1b")));
    EXPECT_THAT(on_terminal({"preview", "--in", ".", "--text", "1=x"}, "NO_COLOR", "1").output, Not(HasSubstr("\x1b")));
    EXPECT_THAT(on_terminal({"preview", "--in", ".", "--text", "1=x"}, "NO_COLOR", "").output, HasSubstr("\x1b[32m"));
}

TEST_F(Output, LongListsGoThroughThePagerOnlyWhenAskedAndOnATerminal)
{
    write({"a1", "a2"});
    const std::string pager = "sed s/^/paged:/";
    EXPECT_THAT(on_terminal({"preview", "--in", ".", "--pager"}, "PAGER", pager).output, HasSubstr("paged:Old name"));
    EXPECT_THAT(on_terminal({"preview", "--in", "."}, "PAGER", pager).output, Not(HasSubstr("paged:")));
    ProgramRun piped = program({"preview", "--in", ".", "--pager"});
    piped.environment["PAGER"] = pager;
    EXPECT_THAT(run_program(piped).output, Not(HasSubstr("paged:")));
}

TEST_F(Output, TsvIsOneLineAFileWithItsFieldsEscaped)
{
    write({"a\t1", "a\\2\n"});
    EXPECT_EQ(run({"preview", "--in", ".", "--format", "tsv", "--text", "1=b"}).output,
              "old\tnew\tfolder\tstatus\tinScope\tmatched\n"
              "a\\t1\tb\\t1\t" +
                  folder.path() +
                  "/\t2\ttrue\ttrue\n"
                  "a\\\\2\\n\tb\\\\2\\n\t" +
                  folder.path() + "/\t2\ttrue\ttrue\n");
    folder.write("names", "IMG_7.jpg\nIMG_8.jpg\n");
    EXPECT_EQ(run({"pattern", "--names", "names", "--format", "tsv", "--extensions"}).output,
              "part\tkind\ttext\tsmallest\n"
              "1\ttext\tIMG_\t\n"
              "2\tnumber\t#\t7\n"
              "3\ttext\t.jpg\t\n");
}

TEST_F(Output, JsonOfAPatternHasItsKeysInOrder)
{
    folder.write("names", "IMG_0007.jpg\nIMG_0100.jpg\n");
    EXPECT_EQ(
        run({"pattern", "--names", "names", "--format", "json", "--extensions"}).output,
        "{\"pattern\":\"IMG_#.jpg\",\"extension\":\".jpg\",\"numbersAsText\":false,\"extensions\":true,\"parts\":["
        "{\"part\":1,\"kind\":\"text\",\"text\":\"IMG_\"},{\"part\":2,\"kind\":\"number\",\"smallest\":7},"
        "{\"part\":3,\"kind\":\"text\",\"text\":\".jpg\"}]}\n");
    folder.write("mixed", "a.jpg\nb.png\n");
    EXPECT_THAT(run({"pattern", "--names", "mixed", "--format", "json", "--extensions"}).output,
                HasSubstr("\"kind\":\"wild\",\"mustStartWithDot\":true}]}"));
}

TEST_F(Output, JsonOfFilesHasItsKeysInOrder)
{
    write({"IMG_7.jpg", "IMG_8.jpg"});
    EXPECT_EQ(run({"preview", "IMG_8.jpg", "IMG_7.jpg", "--text", "1=trip_", "--format", "json"}).output,
              "{\"pattern\":\"IMG_#\",\"files\":["
              "{\"old\":\"IMG_8.jpg\",\"new\":\"trip_8.jpg\",\"folder\":\"" +
                  folder.path() +
                  "/\",\"status\":2,\"inScope\":true,\"matched\":true},"
                  "{\"old\":\"IMG_7.jpg\",\"new\":\"trip_7.jpg\",\"folder\":\"" +
                  folder.path() +
                  "/\",\"status\":2,\"inScope\":true,\"matched\":true}],"
                  "\"problems\":{\"sameName\":0,\"existing\":0,\"empty\":0,\"spaceOrPeriod\":0,\"tooLong\":0,"
                  "\"forbidden\":0},\"renamed\":0,\"batch\":null}\n");
}

TEST_F(Output, JsonGoesToStandardOutputAloneAlsoWhenTheBatchIsRefused)
{
    write({"a1", "a2", "b2"});
    const ProgramResult result = run({"rename", "a1", "a2", "--text", "1=b", "--format", "json"});
    EXPECT_EQ(result.exit_status, refused);
    const Json told = Json::parse(result.output);
    EXPECT_EQ(told["problems"]["existing"], 1);
    EXPECT_EQ(told["renamed"], 0);
    EXPECT_TRUE(told["batch"].is_null());
    EXPECT_THAT(result.errors, HasSubstr("Unable to rename files:"));
}

TEST_F(Output, OptionsThatHaveNoEffectAreNoted)
{
    write({"a", "b"});
    const ProgramResult result = run({"pattern", "a", "b", "--extensions", "--numbers-as-text", "--format", "json"});
    EXPECT_EQ(result.exit_status, done);
    EXPECT_THAT(result.errors, HasSubstr("note: --extensions has no effect"));
    EXPECT_THAT(result.errors, HasSubstr("note: --numbers-as-text has no effect"));
    EXPECT_EQ(Json::parse(result.output)["extensions"], false);
    EXPECT_EQ(Json::parse(result.output)["numbersAsText"], false);
    write({"a1.x", "a2.x"});
    EXPECT_THAT(run({"pattern", "a1.x", "a2.x", "--extensions", "--numbers-as-text"}).errors, IsEmpty());
}

TEST_F(Output, NamesThatDoNotFitThePatternAreWarnedOf)
{
    write({"xa1", "yA22"}); // the pattern is *a#
    const ProgramResult result = run({"preview", "xa1", "yA22", "--format", "json"});
    const Json told = Json::parse(result.output);
    EXPECT_EQ(told["files"][0]["matched"], true);
    EXPECT_EQ(told["files"][1]["matched"], false);
    EXPECT_THAT(result.errors, HasSubstr("warning: \"yA22\" does not fit the pattern"));
}

TEST_F(Output, CaseStylesAndMonthsFollowTheUsersLocaleAndCountAsUtf8WithoutOne)
{
    write({"\xC3\xA4 1", "\xC3\xB6 1"});
    for (const char* locale : {"C", "POSIX", "C.UTF-8", "xx_XX.nothing"}) {
        ProgramRun in_locale = program({"preview", "--in", ".", "--case", "2=upper", "--format", "tsv"});
        in_locale.environment["LC_ALL"] = locale;
        EXPECT_THAT(run_program(in_locale).output, HasSubstr("\xC3\x84 1")) << locale;
    }
}

TEST_F(Output, HelpAndVersionAreNoMistakes)
{
    EXPECT_EQ(run({"--help"}).exit_status, done);
    EXPECT_EQ(run({"rename", "--help"}).exit_status, done);
    EXPECT_THAT(run({"rename", "-h"}).output, HasSubstr("Examples:"));
    EXPECT_THAT(run({"--version"}).output, testing::MatchesRegex("multirename [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(Output, AProgressBarIsShownOnATerminalWhenTheWorkTakesMoreThanASecond)
{
    write({"a1", "a2", "a3"});
    const auto slow = [](const MoveCall& call) {
        if (call.number == 2 && !call.is_done)
            std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        return Action::Continue;
    };
    ProgramRun shown = program({"rename", "--in", ".", "--text", "1=b"});
    shown.terminal = true;
    const ProgramResult result = run_watched(shown, slow);
    EXPECT_THAT(result.output, HasSubstr("\rRenaming [####################..........] 2 of 3\x1b[K"));
    EXPECT_THAT(result.output, HasSubstr("\r\x1b[K3 files renamed."));
    shown.terminal = false;
    shown.arguments = program({"rename", "--in", ".", "--text", "1=a"}).arguments;
    EXPECT_THAT(run_watched(shown, slow).errors, IsEmpty());
}

} // namespace
} // namespace multirename
