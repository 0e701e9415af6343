#include "story.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// The editor is a script; $1 is the file.
class EditStory : public Story {
protected:
    [[nodiscard]] ProgramRun edited(const std::string& script, Words words = {}) const
    {
        words.insert(words.begin(), {"edit", "--in", "."});
        ProgramRun run = program(words);
        run.environment["EDITOR"] = "sh " + tools.write("editor", script);
        run.environment["TMPDIR"] = tools.path();
        return run;
    }

    TemporaryFolder tools;
};

TEST_F(EditStory, TakesTheLinesAsNewNames)
{
    write({"a1.txt", "a2.txt", "b3.doc"});
    const ProgramResult result = run_program(edited("sed -i 's/^a/north /; s/\\.txt$/.md/' \"$1\""));
    EXPECT_EQ(result.exit_status, done) << result.errors;
    EXPECT_THAT(names(), ElementsAre("b3.doc", "north 1.txt", "north 2.txt"));
    EXPECT_THAT(names_in(tools.path()), ElementsAre("editor"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a1.txt", "a2.txt", "b3.doc"));
}

TEST_F(EditStory, TakesExtensionsTooWhereTheyAreOpenToChange)
{
    write({"one.txt", "two.doc"});
    EXPECT_EQ(run_program(edited("sed -i 's/\\.txt$/.md/' \"$1\"", {"--extensions"})).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("one.md", "two.doc"));
}

TEST_F(EditStory, ShowsTheNamesThatTheEditsMake)
{
    write({"a1", "a2"});
    EXPECT_EQ(run_program(edited("sed -i 's/^b1$/first/' \"$1\"", {"--text", "1=b"})).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("b2", "first"));
}

TEST_F(EditStory, PrefersVisual)
{
    write({"a1", "a2"});
    ProgramRun run = edited("exit 9");
    run.environment["VISUAL"] = "sed -i s/a/v/";
    EXPECT_EQ(run_program(run).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("v1", "v2"));
}

TEST_F(EditStory, WithoutAnEditorSaysWhatToSet)
{
    write({"a1", "a2"});
    const ProgramResult result = run({"edit", "--in", "."});
    EXPECT_EQ(result.exit_status, wrong_command_line);
    EXPECT_THAT(result.errors, HasSubstr("set VISUAL or EDITOR"));
}

TEST_F(EditStory, AnEditorThatFailsRenamesNothing)
{
    write({"a1", "a2"});
    const ProgramResult result = run_program(edited("echo x > \"$1\"; exit 3"));
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("ended with status 3. Nothing was renamed."));
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
}

struct BadEdit {
    const char* sentence;
    const char* script;
    const char* said;
};
class BadEditStory : public EditStory, public testing::WithParamInterface<BadEdit> { };
TEST_P(BadEditStory, IsRefusedInTheDialogsWordsAndTheLinesAreKept)
{
    write({"a1", "a2"});
    const ProgramResult result = run_program(edited(GetParam().script));
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr(GetParam().said));
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
    const std::size_t kept = result.errors.find("Your lines are kept in ");
    ASSERT_NE(kept, std::string::npos) << result.errors;
    EXPECT_THAT(names_in(tools.path()), testing::SizeIs(2));
}
INSTANTIATE_TEST_SUITE_P(
    All, BadEditStory,
    testing::Values(
        BadEdit{"ALineTooFew", "sed -i 1d \"$1\"", "Number of files to rename: 2\nNumber of lines on clipboard: 1"},
        BadEdit{"ALineTooMany", "echo more >> \"$1\"", "Number of lines on clipboard: 3"},
        BadEdit{"ACharacterThatNamesMayNotHold", "sed -i s/a/:/ \"$1\"", "not allowed in filenames"},
        BadEdit{"AFirstLineThatIsTooLong", "sed -i \"1s/a/$(printf '%0300d' 0)/\" \"$1\"", "(255 characters)"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST_F(EditStory, ProblemsOfTheNewNamesAreToldAsByRename)
{
    write({"a1", "a2"});
    const ProgramResult result = run_program(edited("sed -i 's/.*/same/' \"$1\""));
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("2 files are being renamed to the same name."));
}

TEST_F(EditStory, LinesThatComeBackAsTheyWentChangeNothing)
{
    write({" leading", "trailing ", "a:b*c", "caf\xE9", "plain"});
    const Snapshot before = tree();
    EXPECT_EQ(run_program(edited("true")).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
    EXPECT_EQ(run_program(edited("sed -i s/plain/edited/ \"$1\"")).exit_status, done);
    EXPECT_THAT(names(), ElementsAre(" leading", "a:b*c", "caf\xE9", "edited", "trailing "));
}

TEST_F(EditStory, CharactersThatANameHoldsAlreadyMayStayButNotBeAdded)
{
    write({"a:b 1", "a:b 2"});
    EXPECT_EQ(run_program(edited("sed -i 's/b/new/' \"$1\"")).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a:new 1", "a:new 2"));
    EXPECT_EQ(run_program(edited("sed -i 's/new/?/' \"$1\"")).exit_status, refused);
}

TEST_F(EditStory, FilesThatThePatternDoesNotCoverHaveNoLine)
{
    write({"a1.txt", "b2.doc"}); // with extensions the pattern is *a#.*
    EXPECT_EQ(run_program(edited("test $(wc -l < \"$1\") = 1 && sed -i s/a1/c3/ \"$1\"", {"--extensions"})).exit_status,
              done);
    EXPECT_THAT(names(), ElementsAre("b2.doc", "c3.txt"));
}

TEST_F(EditStory, ANameWithALineBreakCannotBeEditedAsALine)
{
    write({"a\n1", "a2"});
    const ProgramResult result = run_program(edited("true"));
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("\"a\\n1\" holds a line break"));
}

TEST_F(EditStory, HalvesOfEmojiInUntouchedLinesStay)
{
    write({"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x81"});
    const Snapshot before = tree();
    EXPECT_EQ(run_program(edited("true")).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

} // namespace
} // namespace multirename
