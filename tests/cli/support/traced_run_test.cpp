#include "support/traced_run.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

#include "support/snapshot.h"
#include "support/temporary_folder.h"
#include "support/test_programs.h"

namespace multirename {
namespace {

using testing::ElementsAre;

const std::vector<std::string> three_moves = {"rename", "a", "1", "renameat", "b", "2", "renameat2", "c", "3", "1"};

// Acts at one moment and continues at all others.
Observer at(std::size_t number, bool is_done, const std::function<Action(const MoveCall&)>& act)
{
    return [=](const MoveCall& call) {
        return call.number == number && call.is_done == is_done ? act(call) : Action::Continue;
    };
}

Observer at(std::size_t number, bool is_done, Action action)
{
    return at(number, is_done, [=](const MoveCall&) { return action; });
}

class TracedRunTest : public testing::Test {
protected:
    TracedRunTest()
    {
        for (const char* name : {"a", "b", "c"})
            folder_.write(name, name);
    }

    [[nodiscard]] ProgramRun in_folder(const std::vector<std::string>& arguments) const
    {
        return {.arguments = arguments, .folder = folder_.path()};
    }
    [[nodiscard]] ProgramResult run(const std::vector<std::string>& arguments, const Observer& observer) const
    {
        return run_traced(in_folder(arguments), observer);
    }
    [[nodiscard]] std::vector<std::string> names() const { return names_in(folder_.path()); }

    TemporaryFolder folder_;
};

TEST_F(TracedRunTest, TellsEachMoveBeforeAndAfterIt)
{
    std::vector<std::string> told;
    const auto tell = [&](const MoveCall& call) {
        told.push_back(std::to_string(call.number) + (call.is_done ? " done " : " ") + call.from + " " + call.to + " " +
                       std::to_string(call.result));
        return Action::Continue;
    };
    const ProgramResult result = run(exact_calls({"rename", "a", "x", "renameat", "b", "none/x", "renameat2", "c", "x",
                                                  "1", "link", "c", "d", "linkat", "c", "d"}),
                                     tell);
    EXPECT_EQ(result.output, "rename 0\nrenameat ENOENT\nrenameat2 EEXIST\nlink 0\nlinkat EEXIST\n");
    EXPECT_EQ(result.exit_status, 0) << result.errors;
    EXPECT_THAT(told,
                ElementsAre("1 a x 0", "1 done a x 0", "2 b none/x 0", "2 done b none/x -2", "3 c x 0",
                            "3 done c x -17", "4 c d 0", "4 done c d 0", "5 c d 0", "5 done c d -17"));
}

TEST_F(TracedRunTest, ReadsPathsOfAnyLengthAndBytes)
{
    std::string path = "two\nlines\xFF";
    while (path.size() < 4000)
        path += "/./././.";
    std::vector<std::string> told;
    static_cast<void>(run(exact_calls({"rename", "", path, "rename", path, "a"}), [&](const MoveCall& call) {
        told.insert(told.end(), {call.from, call.to});
        return Action::Continue;
    }));
    EXPECT_THAT(told, ElementsAre("", path, "", path, path, "a", path, "a"));
}

TEST_F(TracedRunTest, FollowsTheSystemsOwnMover)
{
    folder_.make_folder("t");
    std::vector<std::string> told;
    const ProgramResult result = run({"mv", "-t", "t", "a", "b", "c"}, [&](const MoveCall& call) {
        if (call.is_done && call.result == 0)
            told.push_back(call.from);
        return Action::Continue;
    });
    EXPECT_EQ(result.exit_status, 0) << result.errors;
    EXPECT_THAT(told, ElementsAre("a", "b", "c"));
    EXPECT_THAT(names(), ElementsAre("t"));
}

TEST_F(TracedRunTest, KillsBeforeAMoveHappens)
{
    const ProgramResult result = run(exact_calls(three_moves), at(2, false, Action::Kill));
    EXPECT_EQ(result.exit_status, 128 + SIGKILL);
    EXPECT_EQ(result.output, "rename 0\n");
    EXPECT_THAT(names(), ElementsAre("1", "b", "c"));
}

TEST_F(TracedRunTest, KillsAfterAMoveHasHappened)
{
    const ProgramResult result = run(exact_calls(three_moves), at(2, true, Action::Kill));
    EXPECT_EQ(result.exit_status, 128 + SIGKILL);
    EXPECT_EQ(result.output, "rename 0\n");
    EXPECT_THAT(names(), ElementsAre("1", "2", "c"));
}

TEST_F(TracedRunTest, KillsTheSystemsOwnMoverOnTheWay)
{
    folder_.make_folder("t");
    const auto mover = std::vector<std::string>{"mv", "-t", "t", "a", "b", "c"};
    EXPECT_EQ(run(mover, at(2, false, Action::Kill)).exit_status, 128 + SIGKILL);
    EXPECT_THAT(names(), ElementsAre("b", "c", "t"));
    EXPECT_EQ(run({"mv", "-t", "t", "b", "c"}, at(1, true, Action::Kill)).exit_status, 128 + SIGKILL);
    EXPECT_THAT(names(), ElementsAre("c", "t"));
}

TEST_F(TracedRunTest, LetsTheObserverTakeTheNameJustBeforeAMove)
{
    const auto take = [&](const MoveCall& call) {
        folder_.write(call.to, "taken");
        return Action::Continue;
    };
    EXPECT_EQ(run(exact_calls(three_moves), at(3, false, take)).output, "rename 0\nrenameat 0\nrenameat2 EEXIST\n");
    EXPECT_THAT(names(), ElementsAre("1", "2", "3", "c"));
    EXPECT_EQ(snapshot_of(folder_.path()).entries.at("3").content, "taken");
}

TEST_F(TracedRunTest, InterruptsAndLetsTheMoveHappen)
{
    const ProgramResult result = run(exact_calls(three_moves), at(2, false, Action::Interrupt));
    EXPECT_EQ(result.exit_status, 128 + SIGINT);
    EXPECT_THAT(names(), ElementsAre("1", "2", "c"));
}

TEST_F(TracedRunTest, InterruptsAfterAMove)
{
    const ProgramResult result = run(exact_calls(three_moves), at(1, true, Action::Interrupt));
    EXPECT_EQ(result.exit_status, 128 + SIGINT);
    EXPECT_THAT(names(), ElementsAre("1", "b", "c"));
}

TEST_F(TracedRunTest, InterruptsAProgramThatGoesOn)
{
    const ProgramResult result =
        run(exact_calls({"catch", "rename", "a", "1", "caught", "rename", "b", "2", "caught"}),
            [](const MoveCall& call) { return call.is_done ? Action::Continue : Action::Interrupt; });
    EXPECT_EQ(result.output, "rename 0\ncaught 1\nrename 0\ncaught 2\n");
    EXPECT_EQ(result.exit_status, 0);
}

TEST_F(TracedRunTest, GoesOnWhereAProgramStopsItself)
{
    EXPECT_EQ(run(exact_calls({"stop", "rename", "a", "1"}), at(9, true, Action::Kill)).output, "rename 0\n");
}

TEST_F(TracedRunTest, LetsOtherProgramsAndThreadsRunUnobserved)
{
    const auto fail = [](const MoveCall&) -> Action { throw std::logic_error("observed"); };
    EXPECT_EQ(run(shell("mv a 1; printf x | cat; (mv b 2)"), fail).output, "x");
    EXPECT_EQ(run(exact_calls({"in-thread", "rename", "c", "3"}), fail).output, "rename 0\n");
    EXPECT_THAT(names(), ElementsAre("1", "2", "3"));
}

TEST_F(TracedRunTest, StaysWithAProgramThatExecutesAnother)
{
    std::size_t moves = 0;
    const ProgramResult result = run(shell("exec mv a 1"), [&](const MoveCall& call) {
        moves = call.number;
        return Action::Continue;
    });
    EXPECT_EQ(result.exit_status, 0) << result.errors;
    EXPECT_EQ(moves, 1U);
}

TEST_F(TracedRunTest, TellsOutputErrorsAndStatusAsAnUntracedRunDoes)
{
    ProgramRun program = in_folder(shell("cat; printf err >&2; exit 7"));
    program.input = std::string(3'000'000, 'x');
    const ProgramResult result = run_traced(program, at(1, false, Action::Kill));
    EXPECT_TRUE(result.output == program.input);
    EXPECT_EQ(result.errors, "err");
    EXPECT_EQ(result.exit_status, 7);
    EXPECT_EQ(run(shell("kill -TERM $$"), at(1, false, Action::Kill)).exit_status, 143);
}

TEST_F(TracedRunTest, SeesTheErrorsOfRefusedCalls)
{
    ProgramRun program = in_folder(exact_calls({"renameat2", "a", "b", "1"}));
    program.refused.renameat2_with_flags = EINVAL;
    long told = 0;
    static_cast<void>(run_traced(program, at(1, true, [&](const MoveCall& call) {
                                     told = call.result;
                                     return Action::Continue;
                                 })));
    EXPECT_EQ(told, -EINVAL);
}

TEST_F(TracedRunTest, RunsAsAnotherUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    ProgramRun program = in_folder(exact_calls({"rename", "a", "1"}));
    program.user = nobody;
    EXPECT_EQ(run_traced(program, at(1, false, Action::Continue)).output, "rename EACCES\n");
}

TEST_F(TracedRunTest, AddsToTheSanitizersOptions)
{
    ProgramRun program = in_folder(shell("printf \"$ASAN_OPTIONS\""));
    const auto options = [&] { return run_traced(program, at(1, false, Action::Kill)).output; };
    const char* own = std::getenv("ASAN_OPTIONS");
    EXPECT_EQ(options(), own == nullptr ? "detect_leaks=0" : std::string(own) + ":detect_leaks=0");
    program.environment["ASAN_OPTIONS"] = "exitcode=3:detect_leaks=1";
    EXPECT_EQ(options(), "exitcode=3:detect_leaks=1:detect_leaks=0");
    program.environment["ASAN_OPTIONS"] = std::nullopt;
    EXPECT_EQ(options(), "detect_leaks=0");
}

TEST_F(TracedRunTest, EndsTheProgramWhenTheObserverThrows)
{
    const auto fail = [](const MoveCall&) -> Action { throw std::logic_error("observed"); };
    EXPECT_THROW(static_cast<void>(run(exact_calls(three_moves), at(2, false, fail))), std::logic_error);
    EXPECT_THAT(names(), ElementsAre("1", "b", "c"));
}

TEST_F(TracedRunTest, SaysWhatCannotBeStarted)
{
    EXPECT_THROW(static_cast<void>(run({folder_.path_of("none")}, at(1, false, Action::Kill))), std::system_error);
}

TEST_F(TracedRunTest, KilledAtItsFirstCallAProgramDoesNothing)
{
    const KilledRun killed = run_killed_at_syscall(in_folder({"mv", "a", "1"}), 1);
    EXPECT_FALSE(killed.has_ended_before);
    EXPECT_EQ(killed.result.exit_status, 128 + SIGKILL);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
}

TEST_F(TracedRunTest, AProgramThatEndsBeforeItIsKilledSaysSo)
{
    const KilledRun killed = run_killed_at_syscall(in_folder(exact_calls({"rename", "a", "1"})), 1'000'000);
    EXPECT_TRUE(killed.has_ended_before);
    EXPECT_EQ(killed.result.exit_status, 0);
    EXPECT_EQ(killed.result.output, "rename 0\n");
}

// Killed at each of its calls in turn, the program leaves what it has done by then: nothing at first, and from one call
// on the move.
TEST_F(TracedRunTest, KillsAtEverySystemCallInTurn)
{
    std::size_t n = 1;
    std::size_t with_old_name = 0;
    for (;; ++n) {
        const TemporaryFolder folder;
        folder.write("a", "");
        const KilledRun killed = run_killed_at_syscall({.arguments = {"mv", "a", "b"}, .folder = folder.path()}, n);
        const auto left = names_in(folder.path());
        ASSERT_EQ(left.size(), 1U);
        if (left.front() == "a") {
            ASSERT_EQ(with_old_name, n - 1) << "the move was undone";
            with_old_name = n;
        }
        if (killed.has_ended_before)
            break;
        ASSERT_EQ(killed.result.exit_status, 128 + SIGKILL);
    }
    EXPECT_GT(with_old_name, 10U);
    EXPECT_GT(n, with_old_name + 1);
}

} // namespace
} // namespace multirename
