#include "support/snapshot.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <sstream>
#include <system_error>

#include "support/temporary_folder.h"

namespace multirename {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Key;
using testing::StartsWith;
using Type = SnapshotEntry::Type;

class SnapshotTest : public testing::Test {
protected:
    [[nodiscard]] Snapshot now() const { return snapshot_of(folder_.path()); }
    [[nodiscard]] std::string changes() const { return difference(before_, now()); }
    void remember() { before_ = now(); }

    TemporaryFolder folder_;
    Snapshot before_;
};

TEST_F(SnapshotTest, HoldsEveryEntryByItsPath)
{
    folder_.write("a/b/file", "text");
    folder_.make_folder("empty");
    folder_.make_link("link", "a");
    mkfifo(folder_.path_of("pipe").c_str(), 0600);
    const Snapshot snapshot = now();
    EXPECT_THAT(snapshot.entries,
                ElementsAre(Key("a"), Key("a/b"), Key("a/b/file"), Key("empty"), Key("link"), Key("pipe")));
    EXPECT_EQ(snapshot.entries.at("a/b").type, Type::Folder);
    EXPECT_EQ(snapshot.entries.at("a/b/file").type, Type::File);
    EXPECT_EQ(snapshot.entries.at("a/b/file").content, "text");
    EXPECT_EQ(snapshot.entries.at("link").type, Type::Link);
    EXPECT_EQ(snapshot.entries.at("link").target, "a");
    EXPECT_EQ(snapshot.entries.at("pipe").type, Type::Other);
    EXPECT_EQ(snapshot.entries.at("pipe").mode, 0600U);
}

TEST_F(SnapshotTest, IsEqualWhenNothingHappened)
{
    folder_.write("a/file", std::string("\0\xFF", 2));
    folder_.make_link("link", "nowhere");
    remember();
    EXPECT_EQ(before_, now());
    EXPECT_EQ(changes(), "");
}

TEST_F(SnapshotTest, SeesOtherContent)
{
    folder_.write("file", "old");
    remember();
    folder_.write("file", "new");
    EXPECT_NE(before_, now());
    EXPECT_THAT(changes(), AllOf(StartsWith("~ \"file\": file \"old\""), HasSubstr("-> file \"new\"")));
}

TEST_F(SnapshotTest, SaysWhereLongContentsPart)
{
    const std::string begin(100000, 'x');
    folder_.write("file", begin + "1");
    remember();
    folder_.write("file", begin + "2");
    EXPECT_THAT(changes(), AllOf(HasSubstr("and more, 100001 bytes"), HasSubstr("different from byte 100000 on")));
}

TEST_F(SnapshotTest, SeesAnotherTarget)
{
    folder_.make_link("link", "old");
    remember();
    std::filesystem::remove(folder_.path_of("link"));
    folder_.make_link("link", "new");
    EXPECT_NE(before_, now());
    EXPECT_THAT(changes(), AllOf(HasSubstr("link to \"old\""), HasSubstr("-> link to \"new\"")));
}

TEST_F(SnapshotTest, SeesAnotherMode)
{
    chmod(folder_.write("file", "").c_str(), 0644);
    remember();
    chmod(folder_.path_of("file").c_str(), 04600);
    EXPECT_NE(before_, now());
    EXPECT_THAT(changes(), AllOf(HasSubstr("mode 0644"), HasSubstr("mode 4600")));
}

TEST_F(SnapshotTest, TellsACopyFromTheFileItself)
{
    folder_.write("file", "text");
    folder_.write("copy", "text");
    remember();
    std::filesystem::rename(folder_.path_of("copy"), folder_.path_of("file"));
    EXPECT_EQ(now().entries.at("file").inode, before_.entries.at("copy").inode);
    EXPECT_THAT(changes(), AllOf(HasSubstr("- \"copy\""), HasSubstr("~ \"file\"")));
}

TEST_F(SnapshotTest, SeesAnotherType)
{
    folder_.write("name", "");
    remember();
    std::filesystem::remove(folder_.path_of("name"));
    folder_.make_folder("name");
    EXPECT_THAT(changes(), AllOf(StartsWith("~ \"name\": file \"\""), HasSubstr("-> folder")));
}

TEST_F(SnapshotTest, TakesAnyByteInNames)
{
    folder_.write("two\nlines", "");
    folder_.write("caf\xE9", "");
    folder_.write("\x01\xFF\xFE/in \"it\"", "");
    EXPECT_THAT(names_in(folder_.path()), ElementsAre("\x01\xFF\xFE", "caf\xE9", "two\nlines"));
    EXPECT_THAT(now().entries,
                ElementsAre(Key("\x01\xFF\xFE"), Key("\x01\xFF\xFE/in \"it\""), Key("caf\xE9"), Key("two\nlines")));
    EXPECT_THAT(
        changes(),
        AllOf(HasSubstr(R"("\x01\xff\xfe/in \"it\"")"), HasSubstr(R"("caf\xe9")"), HasSubstr(R"("two\nlines")")));
}

TEST_F(SnapshotTest, TellsNamesApartThatDifferInOneByteOnly)
{
    folder_.write("name\n", "");
    remember();
    std::filesystem::rename(folder_.path_of("name\n"), folder_.path_of("name\xC3"));
    EXPECT_NE(before_, now());
    EXPECT_THAT(changes(), AllOf(StartsWith(R"(- "name\n")"), HasSubstr("\n+ \"name\\xc3\"")));
}

TEST_F(SnapshotTest, ReachesDeeperThanAPathCanName)
{
    const std::string name(250, 'd');
    std::filesystem::path path;
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    for (int depth = 0; depth < 20; ++depth) {
        std::filesystem::create_directory(name);
        std::filesystem::current_path(name);
    }
    std::filesystem::current_path(here);
    EXPECT_EQ(now().entries.size(), 20U);
}

TEST_F(SnapshotTest, PrintsALineForEachPath)
{
    folder_.write("a", "1");
    folder_.make_folder("b");
    std::ostringstream out;
    PrintTo(now(), &out);
    EXPECT_THAT(out.str(),
                AllOf(StartsWith("2 entries\n  \"a\": file \"1\", mode "), HasSubstr("\n  \"b\": folder, mode ")));
}

TEST_F(SnapshotTest, NeedsAFolder)
{
    EXPECT_THROW(static_cast<void>(snapshot_of(folder_.path_of("none"))), std::system_error);
    EXPECT_THROW(static_cast<void>(names_in(folder_.write("file", ""))), std::system_error);
}

} // namespace
} // namespace multirename
