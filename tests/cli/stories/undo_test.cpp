#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "cli/testing/journals.h"
#include "story.h"
#include "support/file_content.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Undo : public Story {
protected:
    std::string renamed_batch(const Words& words) { return json(words)["batch"]; }

    [[nodiscard]] std::string journal_path(const std::string& batch) const
    {
        return state.path() + "/multirename/" + batch + ".journal";
    }

    static void put_bytes(const std::string& path, const std::string& bytes)
    {
        std::ofstream(path, std::ios::binary) << bytes;
    }

    // Back to how a batch from a to b had left them, as far as they have been taken back.
    void rename_again(const Words& numbers) const
    {
        for (const std::string& number : numbers) {
            if (fs::exists(folder.path_of("a" + number)))
                fs::rename(folder.path_of("a" + number), folder.path_of("b" + number));
        }
    }
};

TEST_F(Undo, GivesEveryNameBackAndForgetsTheBatch)
{
    write({"a1", "a2", "a10"});
    const Snapshot before = tree();
    const std::string batch = renamed_batch({"rename", "--in", ".", "--renumber", "2=2"});
    const ProgramResult result = run({"undo"});
    EXPECT_EQ(result.exit_status, done);
    EXPECT_EQ(result.output, "Batch " + batch + ": 3 files have their old names again.\n");
    EXPECT_EQ(difference(before, tree()), "");
    EXPECT_THAT(journals(), IsEmpty());
    const ProgramResult again = run({"undo"});
    EXPECT_EQ(again.exit_status, refused);
    EXPECT_THAT(again.errors, HasSubstr("There is no batch that could be taken back."));
}

TEST_F(Undo, TwoBatchesComeBackOneAfterTheOther)
{
    write({"a1", "a2"});
    const Snapshot before = tree();
    run({"rename", "a1", "a2", "--text", "1=b"});
    const Snapshot between = tree();
    run({"rename", "b1", "b2", "--text", "1=c"});
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(between, tree()), "");
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Undo, TakesTheBatchThatIsNamed)
{
    write({"a1", "a2", "x1", "x2"});
    const std::string first = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    renamed_batch({"rename", "x1", "x2", "--text", "1=y"});
    EXPECT_EQ(run({"undo", first}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a1", "a2", "y1", "y2"));
}

TEST_F(Undo, ListsTheBatchesThatCanBeTakenBackTheLastOneFirst)
{
    write({"a1", "a2", "x1"});
    EXPECT_THAT(run({"undo", "--list"}).output, HasSubstr("There is no batch"));
    const std::string first = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    const std::string second = renamed_batch({"rename", "x1", "--text", "1=y"});
    const Json told = json({"undo", "--list"});
    ASSERT_THAT(told["batches"], SizeIs(2));
    EXPECT_EQ(told["batches"][0]["batch"], second);
    EXPECT_EQ(told["batches"][1]["batch"], first);
    EXPECT_EQ(told["batches"][1]["names"], 2);
    EXPECT_EQ(told["batches"][1]["folder"], folder.path() + "/");
    EXPECT_THAT(run({"undo", "--list"}).output, testing::ContainsRegex("Batch +When +Names +Folder\n" + second));
    EXPECT_THAT(run({"undo", "--list", "--format", "tsv"}).output,
                testing::StartsWith("batch\ttime\tnames\tfolder\n" + second + "\t2"));
}

TEST_F(Undo, NeverReplacesAFileThatHasTheOldNameNow)
{
    write({"a1", "a2"});
    run({"rename", "a1", "a2", "--text", "1=b"});
    folder.write("a1", "new");
    const ProgramResult result = run({"undo"});
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors,
                HasSubstr("b1\" cannot be called \"a1\" again: the old name belongs to another file now."));
    EXPECT_THAT(names(), ElementsAre("a1", "a2", "b1"));
    EXPECT_EQ(content("a1"), "new");
    fs::remove(folder.path_of("a1"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(content("a1"), "content of a1");
}

TEST_F(Undo, SaysWhichFilesAreNotThereAnyMore)
{
    write({"a1", "a2"});
    run({"rename", "a1", "a2", "--text", "1=b"});
    fs::remove(folder.path_of("b2"));
    const Json told = json({"undo"});
    EXPECT_EQ(told["restored"], 1);
    ASSERT_THAT(told["left"], SizeIs(1));
    EXPECT_EQ(told["left"][0]["old"], "a2");
    EXPECT_EQ(told["left"][0]["new"], "b2");
    EXPECT_EQ(told["left"][0]["folder"], folder.path() + "/");
    EXPECT_EQ(told["left"][0]["reason"], "there is no file of the new name any more");
    EXPECT_THAT(names(), ElementsAre("a1"));
}

TEST_F(Undo, PassesOverANameThatSomebodyHasGivenBackAlready)
{
    write({"a1", "a2"});
    run({"rename", "a1", "a2", "--text", "1=b"});
    fs::rename(folder.path_of("b2"), folder.path_of("a2"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
    EXPECT_THAT(journals(), IsEmpty());
}

TEST_F(Undo, ABatchThatIsBeingWorkedOnIsLeftAlone)
{
    write({"a1", "a2"});
    ProgramResult meanwhile;
    const auto impatience = [&](const MoveCall& call) {
        if (call.number == 2 && !call.is_done)
            meanwhile = run({"undo"});
        return Action::Continue;
    };
    EXPECT_EQ(run_watched(program({"rename", "a1", "a2", "--text", "1=b"}), impatience).exit_status, done);
    EXPECT_EQ(meanwhile.exit_status, refused);
    EXPECT_THAT(meanwhile.errors, HasSubstr("is being worked on"));
    EXPECT_THAT(names(), ElementsAre("b1", "b2"));
}

TEST_F(Undo, BatchesOfMoreThan90DaysAgoAreForgottenByTheNextRename)
{
    write({"a1", "a2", "x1"});
    const std::string batch = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    const auto journal_of_age = [&](std::chrono::days age) {
        const std::chrono::year_month_day date(
            std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now() - age));
        std::array<char, 64> id{};
        std::snprintf(id.data(), id.size(), "%04d%02u%02u-000000-001", static_cast<int>(date.year()),
                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
        return journal_path(id.data());
    };
    const std::string recent = journal_of_age(std::chrono::days(89));
    fs::rename(journal_path(batch), recent);
    run({"rename", "x1", "--text", "1=y"});
    EXPECT_TRUE(fs::exists(recent));
    const std::string old = journal_of_age(std::chrono::days(92));
    fs::rename(recent, old);
    run({"rename", "y", "--text", "1=z"});
    EXPECT_FALSE(fs::exists(old));
    EXPECT_THAT(journals(), SizeIs(2));
}

TEST_F(Undo, AJournalThatWasCutGivesBackWhatItStillTellsAndSaysWhatItDoesNot)
{
    write({"a1", "a2", "a3"});
    const Snapshot before = tree();
    const std::string batch = renamed_batch({"rename", "a1", "a2", "a3", "--text", "1=b"});
    const std::string whole = content_of(journal_path(batch));
    const Snapshot renamed = tree();
    std::size_t most_restored = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        put_bytes(journal_path(batch), whole.substr(0, length));
        const ProgramResult result = run({"undo", batch, "--format", "json"});
        EXPECT_EQ(result.exit_status, partly_done) << length;
        EXPECT_THAT(result.errors, HasSubstr("damaged")) << length;
        const std::size_t restored =
            result.output.empty() ? 0 : Json::parse(result.output)["restored"].get<std::size_t>();
        EXPECT_GE(restored, most_restored) << length;
        most_restored = restored;
        EXPECT_EQ(std::ranges::count_if(names(), [](const auto& name) { return name.starts_with("a"); }),
                  static_cast<std::ptrdiff_t>(restored))
            << length;
        rename_again({"1", "2", "3"});
        EXPECT_EQ(difference(renamed, tree()), "") << length;
    }
    EXPECT_EQ(most_restored, 2U);
    put_bytes(journal_path(batch), whole);
    EXPECT_EQ(run({"undo", batch}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Undo, AJournalOfWhichAByteWasChangedNeverGivesANameThatNoFileHad)
{
    write({"a1", "a2"});
    const std::string batch = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    const std::string whole = content_of(journal_path(batch));
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string changed = whole;
        changed[place] = static_cast<char>(changed[place] ^ 1);
        put_bytes(journal_path(batch), changed);
        run({"undo", batch});
        EXPECT_THAT(names(), testing::Each(testing::AnyOf("a1", "a2", "b1", "b2"))) << place;
        EXPECT_THAT(names(), SizeIs(2)) << place;
        rename_again({"1", "2"});
    }
}

TEST_F(Undo, AJournalOfWhichNothingCanBeReadDoesNotStandBeforeOlderOnes)
{
    write({"a1", "x1"});
    run({"rename", "a1", "--text", "1=b1"});
    const std::string last = renamed_batch({"rename", "x1", "--text", "1=y1"});
    put_bytes(journal_path(last), "nonsense");
    const ProgramResult result = run({"undo"});
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("damaged from its start on"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a1", "y1"));
    EXPECT_EQ(content_of(state.path() + "/multirename/" + last + ".damaged"), "nonsense");
}

TEST_F(Undo, AJournalThatIsALinkIsNotFollowed)
{
    write({"a1", "a2"});
    const std::string batch = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    fs::rename(journal_path(batch), state.path() + "/elsewhere");
    fs::create_symlink(state.path() + "/elsewhere", journal_path(batch));
    EXPECT_EQ(run({"undo", batch}).exit_status, partly_done);
    EXPECT_THAT(names(), ElementsAre("b1", "b2"));
}

TEST_F(Undo, AJournalOfAnotherUserIsNotFollowed)
{
    write({"a1", "a2"});
    const std::string batch = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    if (chown(journal_path(batch).c_str(), nobody, nobody) != 0)
        GTEST_SKIP() << "only root can give files away";
    const ProgramResult result = run({"undo"});
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("is not this user's own"));
    EXPECT_THAT(run({"undo", "--list"}).output, HasSubstr("There is no batch"));
    EXPECT_THAT(names(), ElementsAre("b1", "b2"));
    EXPECT_THAT(journals(), ElementsAre(batch + ".journal"));
}

TEST_F(Undo, APipeInThePlaceOfAJournalIsNotWaitedFor)
{
    write({"a1", "a2"});
    const std::string batch = renamed_batch({"rename", "a1", "a2", "--text", "1=b"});
    fs::remove(journal_path(batch));
    ASSERT_EQ(mkfifo(journal_path(batch).c_str(), 0600), 0);
    EXPECT_EQ(run({"undo"}).exit_status, partly_done);
    EXPECT_EQ(run({"undo", "--list"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("b1", "b2"));
}

TEST_F(Undo, ABatchThatItWouldNotFindIsNotBegun)
{
    write({"a1", "a2"});
    fs::create_directories(state.path() + "/multirename");
    put_bytes(journal_path("99991231-235959-999"), "");
    const ProgramResult result = run({"rename", "a1", "a2", "--text", "1=b"});
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("Nothing was renamed."));
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
    EXPECT_THAT(journals(), SizeIs(1));
}

// The sum in it can be made by anybody.
TEST_F(Undo, AForgedJournalRenamesNothingOutsideItsFolder)
{
    write({"set/b1", "a1"});
    const std::string place = state.path() + "/multirename/";
    const auto take = [&](const char* old_name, const char* new_name) {
        const std::string path = place + "20240305-140709-001.journal";
        fs::create_directories(place);
        put_bytes(path, journal_bytes(ListedMoves({{folder.path() + "/set/", old_name, new_name}}), 1709647629));
        return run({"undo"});
    };
    const Snapshot before = tree();
    for (const auto& [old_name, new_name] : {std::pair("../a2", "b1"), {"b2", "../a1"}, {"..", "b1"}, {"", "b1"}}) {
        const ProgramResult result = take(old_name, new_name);
        EXPECT_EQ(result.exit_status, partly_done) << old_name;
        EXPECT_THAT(result.errors, HasSubstr("damaged")) << old_name;
        EXPECT_EQ(difference(before, tree()), "") << old_name;
    }
    EXPECT_EQ(take("a2", "b1").exit_status, done);
    EXPECT_THAT(names_in(folder.path_of("set")), ElementsAre("a2"));
}

} // namespace
} // namespace multirename
