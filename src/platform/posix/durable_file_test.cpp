#include "platform/durable_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "platform/testing/posix_child.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class PosixDurableFile : public testing::Test {
protected:
    [[nodiscard]] fs::path path(const std::string& name = "file") const { return temporary_.path() / name; }

    [[nodiscard]] std::string opened_content() const
    {
        DurableFile file;
        std::string content;
        EXPECT_FALSE(DurableFile::open(path(), file, content));
        return content;
    }

    TemporaryFolder temporary_;
};

TEST_F(PosixDurableFile, IsForItsOwnerAlone)
{
    const mode_t before = umask(0);
    DurableFile file;
    EXPECT_FALSE(DurableFile::create(path(), "content", file));
    umask(before);
    EXPECT_EQ(fs::status(path()).permissions(), fs::perms{0600});
}

TEST_F(PosixDurableFile, IsBusyForAnotherProcess)
{
    const auto status_elsewhere = [this] {
        return status_in_child([this] {
            // What a process is born with is no second opening.
            DurableFile file;
            std::string content;
            const std::error_code error = DurableFile::open(path(), file, content);
            if (!error)
                return 0;
            return error == std::errc::device_or_resource_busy ? 1 : 2;
        });
    };
    {
        DurableFile file;
        ASSERT_FALSE(DurableFile::create(path(), "content", file));
        EXPECT_EQ(status_elsewhere(), 1);
    }
    EXPECT_EQ(status_elsewhere(), 0);
}

TEST_F(PosixDurableFile, IsFreeOnceTheProcessIsGone)
{
    EXPECT_EQ(status_in_child([this] {
                  DurableFile file;
                  if (DurableFile::create(path(), "content", file))
                      return 1;
                  raise(SIGKILL);
                  return 2;
              }),
              256 + SIGKILL);
    EXPECT_EQ(opened_content(), "content");
}

TEST_F(PosixDurableFile, KeepsWhatWasOverwrittenWhenTheProcessIsGone)
{
    EXPECT_EQ(status_in_child([this] {
                  DurableFile file;
                  if (DurableFile::create(path(), "content", file))
                      return 1;
                  file.ease_overwrites(7);
                  file.overwrite(0, 'C');
                  raise(SIGKILL);
                  return 2;
              }),
              256 + SIGKILL);
    EXPECT_EQ(opened_content(), "Content");
}

TEST_F(PosixDurableFile, IsNotMadeOrOpenedThroughALink)
{
    temporary_.write("target", "before");
    fs::create_symlink("target", path("link"));
    fs::create_symlink("nowhere", path("broken"));
    DurableFile file;
    std::string content = "none";
    EXPECT_EQ(DurableFile::open(path("link"), file, content), std::errc::too_many_symbolic_link_levels);
    EXPECT_EQ(DurableFile::create(path("link"), "after", file), std::errc::file_exists);
    EXPECT_EQ(DurableFile::create(path("broken"), "after", file), std::errc::file_exists);
    EXPECT_FALSE(file.is_open());
    EXPECT_EQ(content, "none");
    EXPECT_EQ(temporary_.names(), (Names{"broken", "link", "target"}));
    EXPECT_EQ(temporary_.content("target"), "before");
}

TEST_F(PosixDurableFile, IsReadWhileItIsOpen)
{
    DurableFile file;
    ASSERT_FALSE(DurableFile::create(path(), "content", file));
    std::string content;
    EXPECT_FALSE(DurableFile::read(path(), content));
    EXPECT_EQ(content, "content");
}

TEST_F(PosixDurableFile, WhatIsNoFileOfThisUsersIsNeitherOpenedNorRead)
{
    temporary_.write("target", "before");
    fs::create_symlink("target", path("link"));
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    fs::create_directory(path("folder"));
    std::vector<std::pair<std::string, std::errc>> refused = {{"link", std::errc::too_many_symbolic_link_levels},
                                                              {"pipe", std::errc::not_supported}};
    temporary_.write("foreign", "rename everything");
    constexpr uid_t somebody_else = 65534;
    if (chown(path("foreign").c_str(), somebody_else, somebody_else) == 0) // only root can
        refused.emplace_back("foreign", std::errc::operation_not_permitted);
    DurableFile file;
    std::string content = "none";
    for (const auto& [name, error] : refused) {
        EXPECT_EQ(DurableFile::open(path(name), file, content), error) << name;
        EXPECT_EQ(DurableFile::read(path(name), content), error) << name;
    }
    EXPECT_TRUE(DurableFile::open(path("folder"), file, content));
    EXPECT_EQ(DurableFile::read(path("folder"), content), std::errc::not_supported);
    EXPECT_EQ(DurableFile::read(path("absent"), content), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(file.is_open());
    EXPECT_EQ(content, "none");
}

TEST_F(PosixDurableFile, LeavesNothingBehindWhenThereIsNoRoomForIt)
{
    EXPECT_EQ(status_in_child([this] {
                  constexpr rlimit ten_bytes{10, 10};
                  std::signal(SIGXFSZ, SIG_IGN);
                  if (setrlimit(RLIMIT_FSIZE, &ten_bytes) != 0)
                      return 1;
                  DurableFile file;
                  const std::error_code error = DurableFile::create(path(), "more than ten bytes", file);
                  return error == std::errc::file_too_large && !file.is_open() ? 0 : 2;
              }),
              0);
    EXPECT_TRUE(temporary_.names().empty());
}

TEST_F(PosixDurableFile, IsNotPassedOnToCommands)
{
    DurableFile file;
    ASSERT_FALSE(DurableFile::create(path(), "content", file));
    int descriptors = 0;
    for (const auto& open : fs::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (fs::read_symlink(open, error) != path())
            continue;
        ++descriptors;
        EXPECT_NE(fcntl(std::stoi(open.path().filename()), F_GETFD) & FD_CLOEXEC, 0);
    }
    EXPECT_EQ(descriptors, 1);
}

} // namespace
} // namespace multirename
