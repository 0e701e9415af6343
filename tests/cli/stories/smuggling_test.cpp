// What comes from outside as text stays text: no separator, NUL or escape sequence gets anywhere by way of it.

#include "story.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

struct SmugglingTask {
    const char* name;
    Words edits;
};

void PrintTo(const SmugglingTask& task, std::ostream* out) { *out << task.name; }

class SmuggledSeparator : public Story, public testing::WithParamInterface<SmugglingTask> { };

TEST_P(SmuggledSeparator, IsRefusedAndNothingLeavesItsFolder)
{
    write({"set/photo-a-1.jpg", "set/photo-bb-2.jpg", "outside"});
    const Snapshot before = tree();
    Words words = {"rename", "set/photo-a-1.jpg", "set/photo-bb-2.jpg"};
    words.insert(words.end(), GetParam().edits.begin(), GetParam().edits.end());
    const ProgramResult result = run(words);
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("invalid name"));
    EXPECT_EQ(difference(before, tree()), "");
    EXPECT_THAT(journals(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, SmuggledSeparator,
                         testing::Values(SmugglingTask{"TheFolderAbove", {"--text", "1=../"}},
                                         SmugglingTask{"APathFromTheRoot", {"--text", "1=/tmp/"}},
                                         SmugglingTask{"WindowsSeparator", {"--text", "1=..\\"}},
                                         SmugglingTask{"BehindACapturedPart", {"--text", "1=<1>/"}},
                                         SmugglingTask{"BesideATag", {"--text", "1=<F>/../"}},
                                         SmugglingTask{"InTheExtension", {"--extensions", "--text", "5=/x"}}),
                         [](const auto& test) { return std::string(test.param.name); });

class Smuggling : public Story {
protected:
    // What "edit" says when the user's editor leaves this behind; in printf's own escapes.
    [[nodiscard]] ProgramResult edited(const std::string& lines) const
    {
        ProgramRun edit = program({"edit", "a1", "a2"});
        edit.environment["VISUAL"] = "sh -c 'printf \"" + lines + "\" > \"$1\"' sh";
        return run_program(edit);
    }
};

TEST_F(Smuggling, AReplacementWithASeparatorIsRefusedAtOnce)
{
    write({"photo-a-1", "photo-bb-2"});
    const Snapshot before = tree();
    const ProgramResult result = run({"rename", "--in", ".", "--replace", "2=|a|/|"});
    EXPECT_EQ(result.exit_status, wrong_command_line);
    EXPECT_THAT(result.errors, HasSubstr("names cannot hold any of the characters"));
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Smuggling, SeparatorsInTheFormatOfADateComeToNothing)
{
    write({"a1", "a2"});
    EXPECT_EQ(run({"rename", "a1", "a2", "--text", "1=<D:yyyy/../>"}).exit_status, done);
    EXPECT_EQ(names().size(), 2U);
}

TEST_F(Smuggling, LinesFromTheEditorMayHoldNoSeparator)
{
    write({"a1", "a2"});
    const Snapshot before = tree();
    for (const char* lines : {"../b1\\nb2\\n", "/tmp/b1\\nb2\\n", "b1\\nb\\\\\\\\2\\n"}) {
        EXPECT_NE(edited(lines).exit_status, done) << lines;
        EXPECT_EQ(difference(before, tree()), "") << lines;
    }
}

// The system would take what stands before it for the whole name.
TEST_F(Smuggling, ALineWithANulIsNoName)
{
    write({"a1", "a2"});
    const Snapshot before = tree();
    const ProgramResult result = edited("x\\000y1\\nx\\000y2\\n");
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("no file can have a name with a NUL character"));
    EXPECT_EQ(difference(before, tree()), "");
    EXPECT_THAT(journals(), testing::IsEmpty());
}

TEST_F(Smuggling, APathWithANulIsNone)
{
    write({"a1", "a2"});
    for (const char* command : {"preview", "rename"}) {
        ProgramRun list = program({command, "--from", "-", "--text", "1=b"});
        list.input = std::string("a1\0a2\0", 6);
        const ProgramResult result = run_program(list);
        EXPECT_EQ(result.exit_status, wrong_command_line);
        EXPECT_THAT(result.errors, HasSubstr("with -0 NUL ends each path"));
    }
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
}

TEST_F(Smuggling, NamesThatLookLikeOptionsAreNamesOnceTheyAreInAList)
{
    write({"--help1", "--help2"});
    ProgramRun list = program({"rename", "--from", "-", "--text", "1=x"});
    list.input = "--help1\n--help2\n";
    EXPECT_EQ(run_program(list).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("x1", "x2"));
}

// A name on disk or in a list can hold what a terminal obeys; whatever is printed, in any format, it does not come out.
TEST_F(Smuggling, NoEscapeSequenceReachesTheTerminal)
{
    const std::string red = "\x1b[31m";
    const std::string title = "\x1b]0;owned\x07";
    const std::string one_byte_control = "\xC2\x9B"
                                         "2J"; // U+009B
    write({"a" + red + "1", "a" + red + "2", "set" + title + "/a1", "c" + one_byte_control + "1"});
    const Words paths = {"a" + red + "1", "a" + red + "2"};
    std::vector<Words> tasks;
    for (const char* format : {"table", "tsv", "json"}) {
        tasks.push_back({"pattern", "--in", ".", "--format", format});
        tasks.push_back({"preview", "--in", ".", "--format", format, "--text", "1=" + title});
        tasks.push_back({"preview", "--in", ".", "--format", format, "--text", "1=/"});
        tasks.push_back({"preview", "--in", "set" + title, "--format", format});
        tasks.push_back({"rename", "--in", ".", "--format", format, "--renumber", "2=5"});
        tasks.push_back({"undo", "--list", "--format", format});
        tasks.push_back({"undo", "--format", format});
    }
    tasks.push_back({"rename", "not" + red + "there"});
    tasks.push_back({"rename", "--" + red});
    tasks.push_back({red});
    tasks.push_back({"rename", "--in", title});
    tasks.push_back({"rename", "--from", title});
    tasks.push_back({"undo", red});
    for (const Words& words : tasks) {
        for (const bool is_terminal : {false, true}) {
            ProgramRun task = program(words);
            task.terminal = is_terminal;
            task.environment["NO_COLOR"] = "1";
            task.environment["TERM"] = "dumb";
            const ProgramResult result = run_program(task);
            for (const char* control : {"\x1b", "\x07", "\xC2\x9B"})
                EXPECT_THAT(result.output + result.errors, Not(HasSubstr(control))) << testing::PrintToString(words);
        }
    }
}

TEST_F(Smuggling, AVariableIsNoPlaceForEscapeSequencesEither)
{
    write({"a1", "a2"});
    ProgramRun rename = program({"rename", "a1", "a2", "--text", "1=b"});
    rename.environment["XDG_STATE_HOME"] = "/proc/\x1b[31m";
    const ProgramResult result = run_program(rename);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("\\x1b[31m"));
    EXPECT_THAT(result.errors, Not(HasSubstr("\x1b")));
}

} // namespace
} // namespace multirename
