#include "story.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Rename : public Story { };

TEST_F(Rename, GivesEveryFileItsNewNameAndTellsTheBatch)
{
    write({"IMG_7.jpg", "IMG_8.jpg"});
    const ProgramResult result = run({"rename", "IMG_7.jpg", "IMG_8.jpg", "--text", "1=trip_"});
    EXPECT_EQ(result.exit_status, done);
    EXPECT_THAT(result.output, HasSubstr("2 files renamed. \"multirename undo "));
    EXPECT_THAT(result.errors, IsEmpty());
    EXPECT_THAT(names(), ElementsAre("trip_7.jpg", "trip_8.jpg"));
    EXPECT_EQ(content("trip_7.jpg"), "content of IMG_7.jpg");
}

TEST_F(Rename, ShiftsNumbersByOneWithoutATemporaryName)
{
    Words old_names;
    for (int i = 1; i <= 40; ++i)
        old_names.push_back("scan " + std::to_string(i) + ".tif");
    write(old_names);
    EXPECT_EQ(run({"rename", "--in", ".", "--renumber", "2=2"}).exit_status, done);
    for (int i = 1; i <= 40; ++i)
        EXPECT_EQ(content("scan " + std::to_string(i + 1) + ".tif"),
                  "content of " + old_names[static_cast<std::size_t>(i - 1)]);
    EXPECT_EQ(names().size(), 40U);
}

TEST_F(Rename, MovesAFolderAndItsContentsInOneBatch)
{
    write({"set 1/part 1.txt", "set 1/part 2.txt", "set 2/part 1.txt", "set 2/deep 3/leaf.txt"});
    const Snapshot before = tree();
    const ProgramResult result = run({"rename", "set 1", "set 1/part 1.txt", "set 1/part 2.txt", "set 2",
                                      "set 2/part 1.txt", "set 2/deep 3", "set 2/deep 3/leaf.txt", "--text", "1=new "});
    EXPECT_EQ(result.exit_status, done) << result.errors;
    for (const auto& [path, entry] : before.entries) {
        const auto all = tree().entries;
        const auto found = std::ranges::find_if(all, [&entry = entry](const auto& e) { return e.second == entry; });
        EXPECT_NE(found, all.end()) << path;
    }
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Rename, TakesEntriesOfSeveralFoldersAndChecksEachOnItsOwn)
{
    write({"one/a1", "one/a2", "two/a1", "two/a2"});
    const Json told = json({"rename", "one/a1", "one/a2", "two/a1", "two/a2", "--text", "1=b"});
    EXPECT_EQ(told["renamed"], 4);
    EXPECT_EQ(told["files"][0]["folder"], folder.path() + "/one/");
    EXPECT_EQ(told["files"][3]["folder"], folder.path() + "/two/");
    EXPECT_THAT(names_in(folder.path_of("one")), ElementsAre("b1", "b2"));
    EXPECT_THAT(names_in(folder.path_of("two")), ElementsAre("b1", "b2"));
}

TEST_F(Rename, KnowsTwoWaysToOneFolderForThatFolder)
{
    write({"real/a1", "real/a2"});
    folder.make_link("way", "real");
    const Json told = json({"preview", "real/a1", "way/a2", "real/../real/a1", "--text", "1=b"});
    ASSERT_EQ(told["files"].size(), 3U);
    for (const Json& file : told["files"])
        EXPECT_EQ(file["folder"], folder.path() + "/real/");
    EXPECT_EQ(run({"rename", "real/a1", "way/a2", "--text", "1=b", "--clear", "2"}).exit_status, refused);
}

TEST_F(Rename, RenamesALinkItselfAndNeverItsTarget)
{
    write({"target.txt"});
    folder.make_link("link 1", "target.txt");
    folder.make_link("link 2", "nowhere");
    folder.make_folder("somewhere");
    folder.make_link("link 3", "somewhere");
    EXPECT_EQ(run({"rename", "link 1", "link 2", "link 3/", "--text", "1=way "}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("somewhere", "target.txt", "way 1", "way 2", "way 3"));
    EXPECT_EQ(tree().entries.at("way 1").target, "target.txt");
}

TEST_F(Rename, RenamesFilesThatCannotBeRead)
{
    write({"secret 1", "secret 2"});
    std::filesystem::permissions(folder.path_of("secret 1"), std::filesystem::perms::none);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(state.path(), std::filesystem::perms::all);
    ProgramRun as_nobody = program({"rename", "secret 1", "secret 2", "--text", "1=known "});
    as_nobody.user = nobody;
    const ProgramResult result = run_program(as_nobody);
    EXPECT_EQ(result.exit_status, done) << result.errors;
    EXPECT_THAT(names(), ElementsAre("known 1", "known 2"));
}

TEST_F(Rename, WhatNeedsNoChangeIsSaidAndIsNoFailure)
{
    write({"a1", "a2"});
    const ProgramResult result = run({"rename", "a1", "a2"});
    EXPECT_EQ(result.exit_status, done);
    EXPECT_THAT(result.errors, HasSubstr("No changes have been made, so no files have been renamed."));
    EXPECT_THAT(journals(), IsEmpty());
    const Json told = json({"rename", "a1", "a2"});
    EXPECT_EQ(told["renamed"], 0);
    EXPECT_TRUE(told["batch"].is_null());
}

TEST_F(Rename, FinishesTheBatchWhenItsReaderHasGone)
{
    write({"a1", "a2", "a3"});
    for (const char* format : {"table", "tsv", "json"}) {
        ProgramRun unread = program({"rename", "--in", ".", "--text", "1=" + std::string(format), "--format", format});
        unread.closed_output = true;
        EXPECT_EQ(run_program(unread).exit_status, done);
        EXPECT_THAT(names(), testing::Each(testing::StartsWith(format)));
    }
}

TEST_F(Rename, AnOutputThatCannotBeWrittenIsSaid)
{
    write({"a1", "a2"});
    for (const Words& words : {Words{"preview", "a1", "a2"}, Words{"--help"}, Words{"--version"}}) {
        ProgramRun full = program(words);
        full.arguments.insert(full.arguments.begin(), {"/bin/sh", "-c", "exec \"$@\" > /dev/full", "sh"});
        const ProgramResult result = run_program(full);
        EXPECT_EQ(result.exit_status, partly_done) << words.front();
        EXPECT_EQ(result.errors, "multirename: The output cannot be written.\n") << words.front();
    }
}

TEST_F(Rename, NeverReplacesANameThatAppearsBetweenTheCheckAndTheMove)
{
    write({"a1", "a2", "a3"});
    const auto intruder = [this](const MoveCall& call) {
        if (call.number == 2 && !call.is_done)
            write({"b2"});
        return Action::Continue;
    };
    const ProgramResult result =
        run_watched(program({"rename", "a1", "a2", "a3", "--text", "1=b", "--format", "json"}), intruder);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_EQ(Json::parse(result.output)["renamed"], 2);
    EXPECT_THAT(result.errors, HasSubstr("a2\" to \"b2\": a file of the new name has appeared meanwhile."));
    EXPECT_THAT(names(), ElementsAre("a2", "b1", "b2", "b3"));
    EXPECT_EQ(content("b2"), "content of b2");
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a1", "a2", "a3", "b2"));
    EXPECT_EQ(content("b2"), "content of b2");
}

TEST_F(Rename, GoesOnWhenAFileHasGoneMeanwhileAndSaysSo)
{
    write({"a1", "a2", "a3"});
    const auto thief = [this](const MoveCall& call) {
        if (call.number == 1 && !call.is_done)
            std::filesystem::remove(folder.path_of("a2"));
        return Action::Continue;
    };
    const ProgramResult result = run_watched(program({"rename", "a1", "a2", "a3", "--text", "1=b"}), thief);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("it is not there any more"));
    EXPECT_THAT(result.output, HasSubstr("2 renamed, 1 not renamed."));
    EXPECT_THAT(names(), ElementsAre("b1", "b3"));
}

TEST_F(Rename, StopsBetweenTwoMovesWhenItIsInterrupted)
{
    write({"a1", "a2", "a3", "a4"});
    const Snapshot before = tree();
    const auto impatience = [](const MoveCall& call) {
        return call.number == 2 && !call.is_done ? Action::Interrupt : Action::Continue;
    };
    const ProgramResult result = run_watched(program({"rename", "--in", ".", "--text", "1=b"}), impatience);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.output, HasSubstr("2 renamed, 2 not renamed."));
    EXPECT_THAT(result.errors, HasSubstr("a4\" to \"b4\": the batch was stopped before its turn."));
    EXPECT_THAT(result.errors, HasSubstr("Stopped: 2 files were renamed; \"multirename undo "));
    EXPECT_THAT(names(), ElementsAre("a3", "a4", "b1", "b2"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Rename, DoesWithoutTheExclusiveRenameWhereTheFileSystemHasNone)
{
    write({"a1", "a2", "a3/inside"});
    folder.make_link("a4", "nowhere");
    for (const int error : {EINVAL, ENOSYS}) {
        const Snapshot before = tree();
        ProgramRun old_system = program({"rename", "--in", ".", "--folders", "--text", "1=b"});
        old_system.refused.renameat2_with_flags = error;
        const ProgramResult result = run_program(old_system);
        EXPECT_EQ(result.exit_status, done) << result.errors;
        EXPECT_THAT(result.errors, HasSubstr("has no rename that refuses to overwrite"));
        EXPECT_THAT(names(), ElementsAre("b1", "b2", "b3", "b4"));
        EXPECT_EQ(run({"undo"}).exit_status, done);
        EXPECT_EQ(difference(before, tree()), "");
    }
}

TEST_F(Rename, DoesNotReplaceAnythingWithoutTheExclusiveRenameEither)
{
    write({"a1", "a2/inside", "a3"});
    ProgramRun old_system = program({"rename", "--in", ".", "--folders", "--text", "1=b"});
    old_system.refused.renameat2_with_flags = EINVAL;
    const auto intruder = [this](const MoveCall& call) {
        if (call.number == 1 && !call.is_done) {
            write({"b1"});
            folder.make_folder("b2");
        }
        return Action::Continue;
    };
    const ProgramResult result = run_watched(old_system, intruder);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(names(), ElementsAre("a1", "a2", "b1", "b2", "b3"));
    EXPECT_EQ(content("b1"), "content of b1");
}

TEST_F(Rename, RefusesFilesWhereNeitherExclusiveRenameNorLinkCanBeHad)
{
    write({"a1", "a2"});
    const Snapshot before = tree();
    ProgramRun poor_system = program({"rename", "--in", ".", "--text", "1=b"});
    poor_system.refused.renameat2_with_flags = EINVAL;
    poor_system.refused.link = EPERM;
    EXPECT_EQ(run_program(poor_system).exit_status, partly_done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Rename, WithoutAPlaceForTheJournalNothingIsRenamed)
{
    write({"a1", "a2"});
    ProgramRun nowhere = program({"rename", "a1", "a2", "--text", "1=b"});
    nowhere.environment["XDG_STATE_HOME"] = "/proc/nowhere";
    const ProgramResult result = run_program(nowhere);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("XDG_STATE_HOME can name another folder for it."));
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
}

TEST_F(Rename, TheJournalIsOnTheDiskBeforeTheFirstMove)
{
    write({"a1", "a2"});
    bool was_there = false;
    const auto look = [&](const MoveCall& call) {
        if (call.number == 1 && !call.is_done)
            was_there = journals().size() == 1;
        return Action::Continue;
    };
    EXPECT_EQ(run_watched(program({"rename", "a1", "a2", "--text", "1=b"}), look).exit_status, done);
    EXPECT_TRUE(was_there);
}

TEST_F(Rename, TakesPathsFromAFileFromStandardInputAndFromAFolder)
{
    write({"a1", "a2", "a3", ".a4", "b/a5", "b/.hidden/a6"});
    folder.write("list", "a1\n\na2");
    EXPECT_THAT(previewed({"--from", "list", "--text", "1=x"}), ElementsAre("x1", "x2"));
    ProgramRun from_input = program({"preview", "--from", "-", "-0", "--format", "json"});
    from_input.input = std::string("a3\0a1", 5);
    EXPECT_EQ(Json::parse(run_program(from_input).output)["files"][0]["old"], "a3");
    EXPECT_THAT(previewed({"--in", "b"}), ElementsAre("a5"));
    EXPECT_THAT(previewed({"--in", "b", "--folders"}), ElementsAre("a5"));
    EXPECT_THAT(previewed({"--in", "b", "--folders", "--hidden"}), ElementsAre(".hidden", "a5"));
    EXPECT_THAT(previewed({"--in", ".", "--folders"}), ElementsAre("a1", "a2", "a3", "b", "list"));
    EXPECT_THAT(previewed({"a3", "--from", "list", "--in", "b"}), ElementsAre("a3", "a1", "a2", "a5"));
}

TEST_F(Rename, AWordInBracketsIsAPathLikeAnyOther)
{
    write({"[a,b]1", "[a,b]2", "-x1", "-x2"});
    EXPECT_EQ(run({"rename", "[a,b]1", "[a,b]2", "--text", "1=[c"}).exit_status, done);
    EXPECT_EQ(run({"rename", "--text=1=y", "--", "-x1", "-x2"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("[c1", "[c2", "y1", "y2"));
}

TEST_F(Rename, APathMayBeTheNameOfACommand)
{
    write({"undo", "rename"});
    EXPECT_THAT(previewed({"undo", "rename"}), ElementsAre("undo", "rename"));
}

} // namespace
} // namespace multirename
