// What others do in the folders while a batch is on its way, or before it is taken back.

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <random>
#include <thread>

#include "story.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;

class Meanwhile : public Story {
protected:
    // Puts a link to "others" where the folder was, which goes to "away".
    void replace_by_link(const std::string& name) const
    {
        fs::rename(folder.path_of(name), folder.path_of("away"));
        folder.make_link(name, folder.path_of("others"));
    }

    void put_back(const std::string& name) const
    {
        fs::remove(folder.path_of(name));
        fs::rename(folder.path_of("away"), folder.path_of(name));
    }

    [[nodiscard]] Words names_in_folder(const std::string& name) const { return names_in(folder.path_of(name)); }

    // Runs the program and does something once the journal is written and nothing is renamed.
    template <class Deed>
    [[nodiscard]] static ProgramResult run_with(const ProgramRun& run, Deed deed)
    {
        return run_traced(run, [&deed](const MoveCall& call) {
            if (call.is_done && call.to.ends_with(".journal"))
                deed();
            return Action::Continue;
        });
    }
};

TEST_F(Meanwhile, ALinkThatReplacesAFolderIsNotFollowed)
{
    write({"set/a1", "set/a2", "others/a1", "others/a2"});
    const ProgramResult result =
        run_with(program({"rename", "set/a1", "set/a2", "--text", "1=b"}), [this] { replace_by_link("set"); });
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("a link has taken the place of its folder"));
    EXPECT_THAT(names_in_folder("others"), ElementsAre("a1", "a2"));
    EXPECT_THAT(names_in_folder("away"), ElementsAre("a1", "a2"));
}

TEST_F(Meanwhile, NorOneThatReplacesAFolderAbove)
{
    write({"top/set/a1", "top/set/a2", "others/set/a1", "others/set/a2"});
    const ProgramResult result =
        run_with(program({"rename", "top/set/a1", "top/set/a2", "--text", "1=b"}), [this] { replace_by_link("top"); });
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("or of a folder above that"));
    EXPECT_THAT(names_in_folder("others/set"), ElementsAre("a1", "a2"));
    EXPECT_THAT(names_in_folder("away/set"), ElementsAre("a1", "a2"));
}

TEST_F(Meanwhile, ABatchStaysInItsFolderWhereverThatIsMovedTo)
{
    write({"set/a1", "set/a2", "others/a1", "others/a2"});
    const auto replace = [this](const MoveCall& call) {
        if (call.number == 1 && call.is_done)
            replace_by_link("set");
        return Action::Continue;
    };
    const ProgramRun rename = program({"rename", "set/a1", "set/a2", "--text", "1=b"});
    EXPECT_EQ(run_watched(rename, replace).exit_status, done);
    EXPECT_THAT(names_in_folder("away"), ElementsAre("b1", "b2"));
    EXPECT_THAT(names_in_folder("others"), ElementsAre("a1", "a2"));
}

TEST_F(Meanwhile, PathsThatLeadThroughLinksAreFollowedAsLongAsThoseStayTheSame)
{
    write({"set/a1", "set/a2"});
    folder.make_link("way", "set");
    const Snapshot before = tree();
    EXPECT_EQ(run({"rename", "way/a1", "way/a2", "--text", "1=b"}).exit_status, done);
    EXPECT_THAT(names_in_folder("set"), ElementsAre("b1", "b2"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Meanwhile, UndoDoesNotFollowALinkThatReplacesAFolder)
{
    write({"set/a1", "set/a2", "others/b1", "others/b2"});
    const Snapshot before = tree();
    EXPECT_EQ(run({"rename", "set/a1", "set/a2", "--text", "1=b"}).exit_status, done);
    replace_by_link("set");
    const ProgramResult result = run({"undo"});
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("a link has taken the place of its folder"));
    EXPECT_THAT(names_in_folder("others"), ElementsAre("b1", "b2"));
    put_back("set");
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

// Without the exclusive rename a file has both names for a moment, in which the old one may change hands.
TEST_F(Meanwhile, AFileThatTakesTheOldNameBetweenLinkAndUnlinkIsNotRemoved)
{
    write({"a1", "a2"});
    ProgramRun old_system = program({"rename", "a1", "a2", "--text", "1=b"});
    old_system.refused.renameat2_with_flags = EINVAL;
    const auto swap = [this](const MoveCall& call) {
        if (call.is_done && call.result == 0 && call.to == "b1") {
            fs::rename(folder.path_of("a1"), folder.path_of("kept"));
            folder.write("a1", "somebody else's");
        }
        return Action::Continue;
    };
    const ProgramResult result = run_traced(old_system, swap);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("it is not there any more"));
    EXPECT_THAT(names(), ElementsAre("a1", "b2", "kept"));
    EXPECT_EQ(content("a1"), "somebody else's");
    EXPECT_EQ(content("kept"), "content of a1");
}

TEST_F(Meanwhile, AFileThatLosesItsOldNameBetweenLinkAndUnlinkKeepsTheNewOne)
{
    write({"a1", "a2"});
    ProgramRun old_system = program({"rename", "a1", "a2", "--text", "1=b"});
    old_system.refused.renameat2_with_flags = EINVAL;
    const auto remove = [this](const MoveCall& call) {
        if (call.is_done && call.result == 0 && call.to == "b1")
            fs::remove(folder.path_of("a1"));
        return Action::Continue;
    };
    EXPECT_EQ(run_traced(old_system, remove).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("b1", "b2"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a1", "a2"));
}

// Gives the folder's files other names of the same kind for as long as it lives, never over one another.
class OtherProgram {
public:
    explicit OtherProgram(const std::string& folder) : thread_([this, folder] { rename_some(folder); }) { }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram()
    {
        has_to_end_ = true;
        thread_.join();
    }

private:
    void rename_some(const std::string& folder)
    {
        std::minstd_rand random(1);
        const auto some_path = [&] { return folder + "/a" + std::to_string(10 + random() % 40); };
        while (!has_to_end_) {
            const std::string from = some_path();
            renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, some_path().c_str(), RENAME_NOREPLACE);
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
    }

    std::atomic<bool> has_to_end_ = false;
    std::thread thread_;
};

TEST_F(Meanwhile, OtherProgramsMayRenameTheSameFilesAndNoneIsLost)
{
    constexpr int files = 20;
    for (int file = 10; file < 10 + files; ++file)
        write({"a" + std::to_string(file)});
    const auto contents = [this] {
        std::vector<std::string> all;
        const Snapshot now = tree();
        for (const auto& [path, entry] : now.entries)
            all.push_back(entry.content);
        std::ranges::sort(all);
        return all;
    };
    const std::vector<std::string> before = contents();
    int batches = 0;
    {
        const OtherProgram other(folder.path());
        for (int round = 0; round < 20; ++round) {
            ProgramRun rename = program({"rename", "--in", ".", "--renumber", round % 2 == 0 ? "2=30" : "2=10"});
            if (round % 3 == 0)
                rename.refused.renameat2_with_flags = EINVAL;
            EXPECT_THAT(run_program(rename).exit_status, AnyOf(done, refused, partly_done));
            batches += journals().empty() ? 0 : 1;
            EXPECT_THAT(run({"undo"}).exit_status, AnyOf(done, refused, partly_done));
        }
    }
    EXPECT_GT(batches, 0);
    EXPECT_EQ(contents(), before);
}

} // namespace
} // namespace multirename
