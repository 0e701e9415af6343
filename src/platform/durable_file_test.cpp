#include "platform/durable_file.h"

#include <gtest/gtest.h>

#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class DurableFileTest : public testing::Test {
protected:
    [[nodiscard]] fs::path path(const std::string& name = "file") const { return temporary_.path() / name; }

    [[nodiscard]] DurableFile created(const std::string& content) const
    {
        DurableFile file;
        EXPECT_FALSE(DurableFile::create(path(), content, file));
        EXPECT_TRUE(file.is_open());
        return file;
    }

    TemporaryFolder temporary_;
};

TEST_F(DurableFileTest, HoldsWhatItWasMadeWith)
{
    const std::string content = std::string("line\n\r\n\0\x1A\xFF", 10) + std::string(200'000, 'x') + "end";
    static_cast<void>(created(content));
    EXPECT_EQ(temporary_.content("file"), content);
    DurableFile file;
    std::string read = "before";
    EXPECT_FALSE(DurableFile::open(path(), file, read));
    EXPECT_TRUE(file.is_open());
    EXPECT_EQ(read, content);
}

TEST_F(DurableFileTest, MayBeEmpty)
{
    static_cast<void>(created(""));
    DurableFile file;
    std::string read = "before";
    EXPECT_FALSE(DurableFile::open(path(), file, read));
    EXPECT_EQ(read, "");
}

TEST_F(DurableFileTest, IsNotOpenAtFirst) { EXPECT_FALSE(DurableFile().is_open()); }

TEST_F(DurableFileTest, LeavesAFileThatIsThereAlone)
{
    temporary_.write("file", "before");
    DurableFile file;
    EXPECT_EQ(DurableFile::create(path(), "after", file), std::errc::file_exists);
    EXPECT_FALSE(file.is_open());
    EXPECT_EQ(temporary_.content("file"), "before");
}

TEST_F(DurableFileTest, IsNotMadeInAFolderThatIsMissing)
{
    DurableFile file;
    EXPECT_EQ(DurableFile::create(path("absent") / "file", "content", file), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(file.is_open());
    EXPECT_TRUE(temporary_.names().empty());
}

TEST_F(DurableFileTest, IsNotOpenedWhenItIsMissing)
{
    DurableFile file;
    std::string content = "before";
    EXPECT_EQ(DurableFile::open(path(), file, content), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(file.is_open());
    EXPECT_EQ(content, "before");
    EXPECT_TRUE(temporary_.names().empty());
}

TEST_F(DurableFileTest, TakesARelativePath)
{
    const WorkingDirectory here(temporary_.path());
    DurableFile file;
    EXPECT_FALSE(DurableFile::create("file", "content", file));
    EXPECT_EQ(temporary_.names(), Names{"file"});
}

TEST_F(DurableFileTest, HasSingleBytesOverwritten)
{
    {
        DurableFile file = created("abc");
        EXPECT_TRUE(file.overwrite(0, 'A'));
        EXPECT_TRUE(file.overwrite(2, '\n'));
        file.sync();
    }
    EXPECT_EQ(temporary_.content("file"), "Ab\n");
    {
        DurableFile file;
        std::string content;
        ASSERT_FALSE(DurableFile::open(path(), file, content));
        EXPECT_TRUE(file.overwrite(1, 'B'));
    }
    EXPECT_EQ(temporary_.content("file"), "AB\n");
}

TEST_F(DurableFileTest, HasBytesOverwrittenInTheFileAtOnceWhereThatWasEased)
{
    {
        DurableFile file = created(std::string(10'000, '.'));
        file.ease_overwrites(9'000);
        EXPECT_TRUE(file.overwrite(0, 'A'));
        EXPECT_TRUE(file.overwrite(8'999, 'B'));
        EXPECT_TRUE(file.overwrite(9'999, 'C'));
        DurableFile moved(std::move(file));
        EXPECT_TRUE(moved.overwrite(4'096, 'D'));
        moved.sync();
    }
    std::string expected(10'000, '.');
    expected[0] = 'A';
    expected[8'999] = 'B';
    expected[9'999] = 'C';
    expected[4'096] = 'D';
    DurableFile file;
    std::string content;
    ASSERT_FALSE(DurableFile::open(path(), file, content));
    EXPECT_EQ(content, expected);
    file.ease_overwrites(0);
    EXPECT_TRUE(file.overwrite(0, 'E'));
    file = DurableFile();
    EXPECT_TRUE(temporary_.content("file").starts_with("E."));
}

TEST_F(DurableFileTest, IsMadeOfPieces)
{
    const auto content = [](const DurableFile::Sink& sink) {
        for (const std::string_view piece : {"one ", "", "two"}) {
            if (const std::error_code error = sink(piece))
                return error;
        }
        return std::error_code();
    };
    DurableFile file;
    EXPECT_FALSE(DurableFile::create(path(), content, file));
    file = DurableFile();
    EXPECT_EQ(temporary_.content("file"), "one two");
}

TEST_F(DurableFileTest, IsNotMadeWhenItsContentEndsInAnError)
{
    const auto content = [](const DurableFile::Sink& sink) {
        EXPECT_FALSE(sink("half"));
        return std::make_error_code(std::errc::io_error);
    };
    DurableFile file;
    EXPECT_EQ(DurableFile::create(path(), content, file), std::errc::io_error);
    EXPECT_FALSE(file.is_open());
    EXPECT_TRUE(temporary_.names().empty());
}

TEST_F(DurableFileTest, IsBusyWhileItIsOpen)
{
    DurableFile second;
    std::string content = "before";
    {
        const DurableFile first = created("content");
        EXPECT_EQ(DurableFile::open(path(), second, content), std::errc::device_or_resource_busy);
        EXPECT_FALSE(second.is_open());
        EXPECT_EQ(content, "before");
    }
    EXPECT_FALSE(DurableFile::open(path(), second, content));
    DurableFile third;
    EXPECT_EQ(DurableFile::open(path(), third, content), std::errc::device_or_resource_busy);
    EXPECT_EQ(DurableFile::create(path(), "new", third), std::errc::file_exists);
}

TEST_F(DurableFileTest, MovesWithWhatItHasOpen)
{
    DurableFile first = created("abc");
    DurableFile second(std::move(first));
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what is left is the question
    EXPECT_FALSE(first.is_open());
    EXPECT_TRUE(second.overwrite(0, 'A'));
    DurableFile third;
    third = std::move(second);
    EXPECT_TRUE(third.overwrite(1, 'B'));
    third = DurableFile();
    EXPECT_FALSE(third.is_open());
    EXPECT_EQ(temporary_.content("file"), "ABc");
}

TEST_F(DurableFileTest, CanBeRemovedOnceItIsClosed)
{
    static_cast<void>(created("content"));
    EXPECT_TRUE(fs::remove(path()));
    static_cast<void>(created("again"));
    EXPECT_EQ(temporary_.content("file"), "again");
}

} // namespace
} // namespace multirename
