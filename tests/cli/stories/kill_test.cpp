#include "story.h"

namespace multirename {
namespace {

// What a batch has to survive: a chain of names, a folder with its contents, links, names of any bytes.
class Kill : public Story {
protected:
    void SetUp() override
    {
        write({"a1", "a2", "a3", "set 4/a1", "set 4/a2", "set 4/deep 9/a7",
               "a\xFF"
               "5",
               "a:6\n7"});
        folder.make_link("a8", "a1");
    }

    // Renumbers everything so that most names are those of others before: a1 to a2, a2 to a3 ...
    const Words all = {"rename",          "--in",         ".",          "--folders", "set 4/a1", "set 4/a2",
                       "set 4/deep 9/a7", "set 4/deep 9", "--renumber", "4=2"};
};

TEST_F(Kill, BeforeAndAfterEveryMoveTheUndoGivesEveryNameBack)
{
    const Snapshot before = tree();
    std::size_t moves = 0;
    const ProgramResult whole = run_watched(program(all), [&moves](const MoveCall& call) {
        moves = call.number;
        return Action::Continue;
    });
    EXPECT_EQ(whole.exit_status, done) << whole.errors;
    EXPECT_NE(difference(before, tree()), "");
    EXPECT_EQ(run({"undo"}).exit_status, done);
    ASSERT_EQ(difference(before, tree()), "");
    ASSERT_GE(moves, 10U);
    for (std::size_t move = 1; move <= moves; ++move) {
        for (const bool after : {false, true}) {
            const ProgramResult killed = run_watched(program(all), [&](const MoveCall& call) {
                return call.number == move && call.is_done == after ? Action::Kill : Action::Continue;
            });
            ASSERT_EQ(killed.exit_status, 128 + SIGKILL);
            const ProgramResult undone = run({"undo"});
            EXPECT_EQ(undone.exit_status, done) << move << after << undone.errors;
            ASSERT_EQ(difference(before, tree()), "") << move << after;
            EXPECT_THAT(journals(), testing::IsEmpty());
        }
    }
}

TEST_F(Kill, TheUndoItselfMayBeKilledAnywhereAndDoneAgain)
{
    const Snapshot before = tree();
    std::size_t moves = 1;
    for (std::size_t move = 1; move <= moves; ++move) {
        for (const bool after : {false, true}) {
            ASSERT_EQ(run(all).exit_status, done);
            const ProgramResult killed = run_watched(program({"undo"}), [&](const MoveCall& call) {
                moves = std::max(moves, call.number + 1);
                return call.number == move && call.is_done == after ? Action::Kill : Action::Continue;
            });
            EXPECT_TRUE(killed.exit_status == 128 + SIGKILL || move == moves);
            if (!journals().empty()) {
                EXPECT_EQ(run({"undo"}).exit_status, done) << move << after;
            }
            ASSERT_EQ(difference(before, tree()), "") << move << after;
        }
    }
    EXPECT_GE(moves, 10U);
}

// The sanitizers make many calls of their own before the program's first one; there some calls have to do.
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t step = 7;
#else
constexpr std::size_t step = 1;
#endif

TEST_F(Kill, BeforeAnySystemCallNothingIsLost)
{
    const Snapshot before = tree();
    bool has_ended = false;
    for (std::size_t call = 1; !has_ended; call += step) {
        has_ended = run_killed_at_syscall(program(all), call).has_ended_before;
        if (!run({"undo", "--list"}).output.starts_with("There is no batch")) {
            EXPECT_EQ(run({"undo"}).exit_status, done) << call;
        }
        ASSERT_EQ(difference(before, tree()), "") << call;
    }
}

TEST_F(Kill, BeforeAnySystemCallOfTheUndoNothingIsLost)
{
    const Snapshot before = tree();
    bool has_ended = false;
    for (std::size_t call = 1; !has_ended; call += step) {
        ASSERT_EQ(run(all).exit_status, done) << call;
        has_ended = run_killed_at_syscall(program({"undo"}), call).has_ended_before;
        if (!run({"undo", "--list"}).output.starts_with("There is no batch")) {
            EXPECT_EQ(run({"undo"}).exit_status, done) << call;
        }
        ASSERT_EQ(difference(before, tree()), "") << call;
    }
}

} // namespace
} // namespace multirename
