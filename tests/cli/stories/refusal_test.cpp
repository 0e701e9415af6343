#include <sys/mount.h>
#include <unistd.h>

#include "story.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Refusal : public Story {
protected:
    // The words are refused by rename and by preview alike, and nothing changes.
    ProgramResult expect_refused(Words words)
    {
        const Snapshot before = tree();
        words.insert(words.begin(), "rename");
        const ProgramResult result = run(words);
        EXPECT_EQ(result.exit_status, refused);
        EXPECT_EQ(difference(before, tree()), "");
        EXPECT_THAT(journals(), IsEmpty());
        words.front() = "preview";
        EXPECT_EQ(run(words).exit_status, refused);
        return result;
    }
};

TEST_F(Refusal, OneProblemKeepsTheWholeBatchAndIsToldInTheDialogsWords)
{
    write({"a1", "a2", "b2"});
    const ProgramResult result = expect_refused({"a1", "a2", "--text", "1=b"});
    EXPECT_THAT(result.errors,
                HasSubstr("Unable to rename files:\n1 file is being renamed to the same name as an existing file.\n"));
    EXPECT_THAT(result.output, HasSubstr("Old name  New name  Status\na2        b2        name exists\n"));
}

TEST_F(Refusal, EveryKindOfProblemIsCounted)
{
    write({"a1", "a2"});
    EXPECT_THAT(expect_refused({"a1", "a2", "--clear", "2"}).errors,
                HasSubstr("2 files are being renamed to the same name."));
    EXPECT_THAT(expect_refused({"a1", "--text", "1="}).errors, HasSubstr("1 file is being renamed to empty name."));
    EXPECT_THAT(expect_refused({"a1", "a2", "--text", "1= "}).errors,
                HasSubstr("Filenames must not start or end with a space, and must not end with a period."));
    EXPECT_THAT(expect_refused({"a1", "a2", "--digits", "2=256"}).errors, HasSubstr("too long (> 255 characters)"));
    EXPECT_THAT(expect_refused({"a1", "a2", "--text", "1=x:"}).errors,
                HasSubstr("Filenames cannot contain any of these characters: \\ / : * ? \" < > |"));
    const Json told = json({"preview", "a1", "a2", "--text", "1=x:"});
    EXPECT_EQ(told["problems"]["forbidden"], 2);
    EXPECT_EQ(told["files"][0]["status"], 9);
}

TEST_F(Refusal, NamesThatGrowPastTheFileSystemsLimitAreRefusedBeforehand)
{
    const std::string euros = "\xE2\x82\xAC";
    std::string name;
    for (int i = 0; i < 84; ++i)
        name += euros;
    write({name + "1", name + "2"});
    const ProgramResult result = expect_refused({"--in", ".", "--text", "1=" + name + euros});
    EXPECT_THAT(result.errors, HasSubstr("the new name has 256 bytes, and this file system takes at most 255"));
}

TEST_F(Refusal, NamesOf255BytesMayShrinkAndStay)
{
    const std::string name(254, 'n');
    write({name + "1", name + "2"});
    EXPECT_EQ(run({"rename", "--in", ".", "--text", "1=" + name.substr(1) + "m"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre(name.substr(1) + "m1", name.substr(1) + "m2"));
}

TEST_F(Refusal, AFolderThatMayNotBeWrittenIsKnownBeforehand)
{
    write({"open/a1", "closed/a2"});
    std::filesystem::permissions(state.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder.path_of("open"), std::filesystem::perms::all);
    const Snapshot before = tree();
    ProgramRun as_nobody = program({"rename", "open/a1", "closed/a2", "--text", "1=b"});
    as_nobody.user = nobody;
    const ProgramResult result = run_program(as_nobody);
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("the folder does not let its entries be renamed: Permission denied"));
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Refusal, AMoveThatFailsLaterIsToldAndTheOthersCanBeTakenBack)
{
    write({"a1", "a2", "a3"});
    const Snapshot before = tree();
    // Between the check and the moves the folder loses its permission for the middle one only: a mark that it keeps.
    std::filesystem::permissions(state.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    ProgramRun as_nobody = program({"rename", "a1", "a2", "a3", "--text", "1=b"});
    as_nobody.user = nobody;
    const auto close_for_one = [this](const MoveCall& call) {
        const auto mode =
            call.number == 2 && !call.is_done ? std::filesystem::perms(0555) : std::filesystem::perms::all;
        std::filesystem::permissions(folder.path(), mode);
        return Action::Continue;
    };
    const ProgramResult result = run_watched(as_nobody, close_for_one);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("a2\" to \"b2\": Permission denied."));
    EXPECT_THAT(result.errors, HasSubstr("2 files were renamed; \"multirename undo "));
    EXPECT_THAT(names(), ElementsAre("a2", "b1", "b3"));
    ProgramRun undo_as_nobody = program({"undo"});
    undo_as_nobody.user = as_nobody.user;
    EXPECT_EQ(run_program(undo_as_nobody).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Refusal, AFolderThatCannotBeReadIsKnownBeforehand)
{
    write({"closed/a1"});
    std::filesystem::permissions(folder.path_of("closed"), std::filesystem::perms(0311));
    ProgramRun as_nobody = program({"rename", "closed/a1", "--text", "1=b"});
    as_nobody.user = nobody;
    const ProgramResult result = run_program(as_nobody);
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("cannot be read (Permission denied)"));
}

TEST_F(Refusal, AMountedFolderIsKnownBeforehand)
{
    folder.make_folder("mount 1");
    folder.make_folder("mount 2");
    if (mount("none", folder.path_of("mount 1").c_str(), "tmpfs", 0, nullptr) != 0)
        GTEST_SKIP() << "nothing can be mounted here";
    const ProgramResult result = run({"rename", "mount 1", "mount 2", "--text", "1=x"});
    umount(folder.path_of("mount 1").c_str());
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("another file system is mounted on this folder"));
    EXPECT_THAT(names(), ElementsAre("mount 1", "mount 2"));
}

TEST_F(Refusal, PathsThatLeadNowhereAreSaid)
{
    write({"a1"});
    for (const char* path : {"absent", "absent/a1", "a1/x", "", ".", "..", "/", "a1/.."}) {
        const ProgramResult result = run({"rename", "a1", path, "--text", "1=b"});
        EXPECT_EQ(result.exit_status, wrong_command_line) << path;
        EXPECT_THAT(result.errors, HasSubstr("multirename: \"" + std::string(path) + "\"")) << path;
        EXPECT_THAT(result.errors, testing::EndsWith("\n"));
    }
    EXPECT_EQ(run({"rename", "--in", "absent"}).exit_status, wrong_command_line);
    EXPECT_EQ(run({"rename", "--from", "absent"}).exit_status, wrong_command_line);
    EXPECT_THAT(names(), ElementsAre("a1"));
}

struct WrongWords {
    const char* sentence;
    Words words;
    const char* said;
};
class WrongCommandLineStory : public Story, public testing::WithParamInterface<WrongWords> { };
TEST_P(WrongCommandLineStory, IsSaidInOneLineAndNothingIsRenamed)
{
    write({"a1 x", "a2 y"});
    const ProgramResult result = run(GetParam().words);
    EXPECT_EQ(result.exit_status, wrong_command_line);
    EXPECT_THAT(result.errors, testing::StartsWith("multirename: "));
    EXPECT_THAT(result.errors, HasSubstr(GetParam().said));
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(names(), ElementsAre("a1 x", "a2 y"));
}
INSTANTIATE_TEST_SUITE_P(
    All, WrongCommandLineStory,
    testing::Values(
        WrongWords{"NoCommand", {}, "say what to do"}, WrongWords{"AnUnknownCommand", {"delete", "a1 x"}, "delete"},
        WrongWords{"AnUnknownOption", {"rename", "--in", ".", "--upper", "2"}, "--upper"},
        WrongWords{"NoFiles", {"rename", "--text", "1=b"}, "needs files"},
        WrongWords{"AValueIsMissing", {"rename", "--in", ".", "--text"}, "--text"},
        WrongWords{"NoNumberOfAPart", {"rename", "--in", ".", "--text", "b"}, "K=TEXT"},
        WrongWords{"ANumberThatIsNone", {"rename", "--in", ".", "--text", "one=b"}, "\"one\""},
        WrongWords{"PartZero", {"rename", "--in", ".", "--text", "0=b"}, "the pattern has 5 parts"},
        WrongWords{"APartThatIsNotThere", {"rename", "--in", ".", "--text", "6=b"}, "the pattern has 5 parts"},
        WrongWords{"TextForANumber", {"rename", "--in", ".", "--text", "2=b"}, "part 2 is a number"},
        WrongWords{"AStyleForText", {"rename", "--in", ".", "--case", "1=upper"}, "part 1 is text"},
        WrongWords{"AStyleThatIsNone", {"rename", "--in", ".", "--case", "4=loud"}, "the styles are unchanged, upper"},
        WrongWords{"ALengthThatIsNone", {"rename", "--in", ".", "--truncate", "4=-1"}, "\"-1\" is not a number"},
        WrongWords{"AStartThatIsNone", {"rename", "--in", ".", "--renumber", "2=x"}, "\"x\" is not a number"},
        WrongWords{"TooManyDigits", {"rename", "--in", ".", "--digits", "2=10000"}, "at most 9999"},
        WrongWords{"ClearingText", {"rename", "--in", ".", "--clear", "1"}, "wild and number parts"},
        WrongWords{"ClearingWithAValue", {"rename", "--in", ".", "--clear", "2=1"}, "nothing else"},
        WrongWords{"AReplacementWithoutItsEnd", {"rename", "--in", ".", "--replace", "4=/x/y"}, "K=/FIND/WITH/"},
        WrongWords{"AReplacementWithTooMuch", {"rename", "--in", ".", "--replace", "4=/x/y/z/"}, "K=/FIND/WITH/"},
        WrongWords{"AReplacementOfNothing", {"rename", "--in", ".", "--replace", "4=//y/"}, "nothing to find"},
        WrongWords{"AReplacementThatNoNameMayHold", {"rename", "--in", ".", "--replace", "4=/x/?/"}, "cannot hold"},
        WrongWords{"AnUnknownFormat", {"preview", "--in", ".", "--format", "xml"}, "table, tsv and json"},
        WrongWords{"NamesForARename", {"rename", "--names", "list"}, "--names"},
        WrongWords{"NamesAndPaths", {"preview", "--names", "list", "a1 x"}, "--names touches no disk"},
        WrongWords{"ListedWithoutNames", {"preview", "--in", ".", "--listed", "list"}, "--listed goes with --names"},
        WrongWords{"HiddenWithoutAFolder", {"preview", "a1 x", "--hidden"}, "go with --in only"},
        WrongWords{"NulWithoutAFile", {"preview", "a1 x", "-0"}, "-0 goes with"},
        WrongWords{"EditsForAPattern", {"pattern", "--in", ".", "--text", "1=b"}, "--text"},
        WrongWords{"TwoBatches", {"undo", "1", "2"}, "2"},
        WrongWords{"ABatchThatIsNotThere", {"undo", "20240101-000000-001"}, "There is no batch 20240101-000000-001"},
        WrongWords{"ABatchThatIsAPath", {"undo", "../x"}, "There is no batch ../x"}),
    [](const auto& row) { return std::string(row.param.sentence); });

} // namespace
} // namespace multirename
