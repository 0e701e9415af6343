#include "support/refused_calls.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>

#include "support/run_program.h"
#include "support/snapshot.h"
#include "support/temporary_folder.h"
#include "support/test_programs.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RefusedCallsTest : public testing::Test {
protected:
    RefusedCallsTest() { folder_.write("a", "text"); }

    [[nodiscard]] ProgramResult run(const std::vector<std::string>& arguments, const RefusedCalls& refused) const
    {
        return run_program({.arguments = arguments, .folder = folder_.path(), .refused = refused});
    }
    [[nodiscard]] std::vector<std::string> names() const { return names_in(folder_.path()); }

    TemporaryFolder folder_;
};

TEST_F(RefusedCallsTest, AreNoneByDefault)
{
    EXPECT_TRUE(filter_of({}).empty());
    EXPECT_EQ(run(exact_calls({"renameat2", "a", "b", "1", "link", "b", "c"}), {}).output, "renameat2 0\nlink 0\n");
    EXPECT_THAT(names(), ElementsAre("b", "c"));
}

TEST_F(RefusedCallsTest, FailWithTheErrorTheyAreGiven)
{
    const auto call = exact_calls({"renameat2", "a", "b", "1"});
    EXPECT_EQ(run(call, {.renameat2_with_flags = EINVAL}).output, "renameat2 EINVAL\n");
    EXPECT_EQ(run(call, {.renameat2_with_flags = ENOSYS}).output, "renameat2 ENOSYS\n");
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(RefusedCallsTest, LeaveRenamesWithoutFlagsAlone)
{
    const auto calls = exact_calls({"renameat2", "a", "b", "0", "rename", "b", "c", "renameat", "c", "d"});
    EXPECT_EQ(run(calls, {.renameat2_with_flags = ENOSYS}).output, "renameat2 0\nrename 0\nrenameat 0\n");
    EXPECT_THAT(names(), ElementsAre("d"));
}

TEST_F(RefusedCallsTest, SpareLinksUnlessTheyAreAmongThem)
{
    const auto calls = exact_calls({"link", "a", "b", "linkat", "a", "c"});
    EXPECT_EQ(run(calls, {.renameat2_with_flags = ENOSYS}).output, "link 0\nlinkat 0\n");
    EXPECT_EQ(run(calls, {.link = EPERM}).output, "link EPERM\nlinkat EPERM\n");
    EXPECT_EQ(run(calls, {.renameat2_with_flags = EINVAL, .link = EOPNOTSUPP}).output,
              "link EOPNOTSUPP\nlinkat EOPNOTSUPP\n");
}

TEST_F(RefusedCallsTest, AreRefusedTogether)
{
    const auto calls = exact_calls({"renameat2", "a", "b", "1", "linkat", "a", "b", "renameat2", "a", "b", "0"});
    EXPECT_EQ(run(calls, {.renameat2_with_flags = EINVAL, .link = EPERM}).output,
              "renameat2 EINVAL\nlinkat EPERM\nrenameat2 0\n");
}

TEST_F(RefusedCallsTest, AreRefusedToProgramsThatTheProgramStartsToo)
{
    const ProgramResult result = run(shell("ln a b; true"), {.link = EPERM});
    EXPECT_THAT(result.errors, HasSubstr("not permitted"));
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(RefusedCallsTest, SendAProgramItsOtherWay)
{
    EXPECT_EQ(run({"mv", "a", "b"}, {.renameat2_with_flags = ENOSYS}).exit_status, 0);
    EXPECT_THAT(names(), ElementsAre("b"));
}

TEST_F(RefusedCallsTest, AreRefusedToAnotherUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    const ProgramResult result = run_program({.arguments = exact_calls({"renameat2", "a", "b", "1"}),
                                              .folder = folder_.path(),
                                              .user = nobody,
                                              .refused = {.renameat2_with_flags = EINVAL}});
    EXPECT_EQ(result.output, "renameat2 EINVAL\n");
}

} // namespace
} // namespace multirename
