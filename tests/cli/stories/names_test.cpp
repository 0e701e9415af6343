#include "story.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Lists of names that touch no disk.
class NamesOnly : public Story {
protected:
    [[nodiscard]] Json previewed_json(const std::string& list, Words words = {}) const
    {
        words.insert(words.begin(), {"preview", "--names", folder.write("names", list)});
        return json(words);
    }

    [[nodiscard]] Words new_names(const std::string& list, Words words = {}) const
    {
        words.insert(words.begin(), {"--names", folder.write("names", list)});
        return previewed(words);
    }
};

TEST_F(NamesOnly, AreTheWholeContentOfOneFolderAndTouchNoDisk)
{
    const Json told = previewed_json("a1\na2\nb2\n", {"--listed", folder.write("listed", "a2\na1\n"), "--text", "1=b"});
    EXPECT_EQ(told["files"][0]["old"], "a2");
    EXPECT_EQ(told["files"][0]["status"], 5);
    EXPECT_EQ(told["files"][1]["old"], "a1");
    EXPECT_EQ(told["files"][1]["status"], 2);
    EXPECT_EQ(told["files"][0]["folder"], "");
    EXPECT_EQ(told["problems"]["existing"], 1);
}

TEST_F(NamesOnly, AreComparedWithoutRegardToCaseWhateverTheSystem)
{
    EXPECT_EQ(previewed_json("a\nB1\nb2\n",
                             {"--listed", folder.write("listed", "B1"), "--text", "1=B2"})["files"][0]["status"],
              5);
    const Json twice = previewed_json("a\nA\n");
    ASSERT_EQ(twice["files"].size(), 2U);
    EXPECT_EQ(twice["files"][0]["old"], "a");
    EXPECT_EQ(twice["files"][1]["old"], "a");
}

TEST_F(NamesOnly, HaveNoSizeAndNoDates)
{
    EXPECT_THAT(new_names("a1\na2\n", {"--text", "1=<S>-<C>-<D>-<F>-"}), ElementsAre("0----1", "0----2"));
}

TEST_F(NamesOnly, ANameThatIsListedAndNotThereIsSaid)
{
    const ProgramResult result =
        run({"preview", "--names", folder.write("names", "a\n"), "--listed", folder.write("listed", "b\n")});
    EXPECT_EQ(result.exit_status, wrong_command_line);
    EXPECT_THAT(result.errors, HasSubstr("\"b\" is not among the names"));
}

TEST_F(NamesOnly, MayHoldLineBreaksWhereTheyEndInNul)
{
    EXPECT_THAT(new_names(std::string("a\n1\0a\n2", 7), {"-0", "--text", "1=x"}), ElementsAre("x1", "x2"));
}

TEST_F(NamesOnly, LaterEditsOfAPartWinExceptThatAClearedNumberStaysCleared)
{
    const std::string photos = "IMG_0007 sea.jpg\nIMG_0010 hill.jpg\n";
    EXPECT_THAT(new_names(photos, {"--digits", "2=2", "--strip-zeros", "2"}),
                ElementsAre("IMG_7 sea.jpg", "IMG_10 hill.jpg"));
    EXPECT_THAT(new_names(photos, {"--strip-zeros", "2", "--digits", "2=3"}),
                ElementsAre("IMG_007 sea.jpg", "IMG_010 hill.jpg"));
    EXPECT_THAT(new_names(photos, {"--clear", "2", "--renumber", "2=1", "--digits", "2=3"}),
                ElementsAre("IMG_ sea.jpg", "IMG_ hill.jpg"));
    EXPECT_THAT(new_names(photos, {"--clear", "4", "--truncate", "4=2"}),
                ElementsAre("IMG_0007 se.jpg", "IMG_0010 hi.jpg"));
    EXPECT_THAT(new_names(photos, {"--truncate", "4=2", "--clear", "4"}),
                ElementsAre("IMG_0007 .jpg", "IMG_0010 .jpg"));
    EXPECT_THAT(new_names(photos, {"--text", "1=A", "--text", "1=B"}), ElementsAre("B0007 sea.jpg", "B0010 hill.jpg"));
    EXPECT_THAT(new_names(photos, {"--case", "4=upper", "--case", "4=title"}),
                ElementsAre("IMG_0007 Sea.jpg", "IMG_0010 Hill.jpg"));
    EXPECT_THAT(new_names(photos, {"--replace", "4=/s/S/", "--replace", "4=|hill|fjord|"}),
                ElementsAre("IMG_0007 sea.jpg", "IMG_0010 fjord.jpg"));
    EXPECT_THAT(new_names(photos, {"--renumber", "2=1"}), ElementsAre("IMG_0001 sea.jpg", "IMG_0004 hill.jpg"));
}

TEST_F(NamesOnly, NumbersSaturateAt64Bits)
{
    EXPECT_THAT(new_names("a1\na2\n", {"--renumber", "2=99999999999999999999999"}),
                ElementsAre("a9223372036854775807", "a9223372036854775807"));
    EXPECT_THAT(new_names("ab x\ncd x\n", {"--truncate", "2=99999999999999999999999"}), ElementsAre("ab x", "cd x"));
}

TEST_F(NamesOnly, TheSeparatorOfAReplacementMayBeAnyCharacter)
{
    EXPECT_THAT(new_names("aab x\nccd x\n",
                          {"--replace",
                           "2=\xF0\x9F\x98\x80"
                           "a\xF0\x9F\x98\x80"
                           "0\xF0\x9F\x98\x80"}),
                ElementsAre("00b x", "ccd x"));
    EXPECT_THAT(new_names("aab x\nccd x\n", {"--replace", "2=,c,,"}), ElementsAre("aab x", "d x"));
}

TEST_F(NamesOnly, ThePatternStaysWhateverIsTyped)
{
    EXPECT_EQ(previewed_json("a1\na2\n", {"--text", "1=new"})["pattern"], "a#");
}

} // namespace
} // namespace multirename
