#include "platform/interruption.h"

#include <gtest/gtest.h>

#include <csignal>

#include "platform/testing/posix_child.h"

namespace multirename {
namespace {

class PosixInterruption : public testing::TestWithParam<int> { };

TEST_P(PosixInterruption, IsNotedAndDoesNotEndTheProcess)
{
    EXPECT_EQ(status_in_child([] {
                  const Interruption interruption;
                  if (interruption.is_wanted())
                      return 1;
                  raise(GetParam());
                  return interruption.is_wanted() ? 0 : 2;
              }),
              0);
}

TEST_P(PosixInterruption, EndsTheProcessAsBeforeOnceItIsOver)
{
    EXPECT_EQ(status_in_child([] {
                  std::signal(GetParam(), SIG_DFL);
                  {
                      const Interruption interruption;
                  }
                  raise(GetParam());
                  return 0;
              }),
              256 + GetParam());
}

TEST_P(PosixInterruption, LeavesWhatIsIgnoredIgnored)
{
    EXPECT_EQ(status_in_child([] {
                  std::signal(GetParam(), SIG_IGN);
                  {
                      const Interruption interruption;
                      raise(GetParam());
                      if (interruption.is_wanted())
                          return 1;
                  }
                  return std::signal(GetParam(), SIG_IGN) == SIG_IGN ? 0 : 2;
              }),
              0);
}

INSTANTIATE_TEST_SUITE_P(All, PosixInterruption, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& row) { return "Signal" + std::to_string(row.param); });

volatile std::sig_atomic_t handled = 0;

TEST(PosixInterruptions, PutTheFormerHandlerBack)
{
    EXPECT_EQ(status_in_child([] {
                  std::signal(SIGINT, [](int) { handled = 1; });
                  {
                      const Interruption interruption;
                      raise(SIGINT);
                      if (handled != 0)
                          return 1;
                  }
                  raise(SIGINT);
                  return handled != 0 ? 0 : 2;
              }),
              0);
}

TEST(PosixInterruptions, BeginAnew)
{
    EXPECT_EQ(status_in_child([] {
                  {
                      const Interruption first;
                      raise(SIGINT);
                  }
                  const Interruption second;
                  return second.is_wanted() ? 1 : 0;
              }),
              0);
}

} // namespace
} // namespace multirename
