#include "platform/user_folders.h"

#include <gtest/gtest.h>

#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

namespace fs = std::filesystem;

TEST(UserFolders, TheStateLiesInAFolderOfTheProgramsName)
{
    const fs::path folder = user_state_folder();
    EXPECT_TRUE(folder.is_absolute());
    EXPECT_EQ(folder.filename(), "multirename");
}

TEST(UserFolders, AFolderIsMadeWithThoseAboveIt)
{
    const TemporaryFolder temporary;
    const fs::path folder = temporary.path() / "a" / "b" / "c";
    EXPECT_FALSE(make_private_folder(folder));
    EXPECT_TRUE(fs::is_directory(folder));
    EXPECT_FALSE(make_private_folder(folder));
    EXPECT_FALSE(make_private_folder(folder / ""));
}

TEST(UserFolders, AFolderIsNotMadeWhereAFileIs)
{
    const TemporaryFolder temporary;
    temporary.write("file", "content");
    EXPECT_TRUE(make_private_folder(temporary.path() / "file"));
    EXPECT_TRUE(make_private_folder(temporary.path() / "file" / "folder"));
    EXPECT_EQ(temporary.content("file"), "content");
}

TEST(UserFolders, ADraftIsANewTextFile)
{
    fs::path first;
    fs::path second;
    ASSERT_FALSE(make_draft("first\n\r\n\xFF", first));
    ASSERT_FALSE(make_draft("", second));
    EXPECT_NE(first, second);
    EXPECT_TRUE(first.is_absolute());
    EXPECT_EQ(first.extension(), ".txt");
    std::string content;
    EXPECT_FALSE(read_file(first, content));
    EXPECT_EQ(content, "first\n\r\n\xFF");
    EXPECT_EQ(fs::file_size(second), 0U);
    EXPECT_TRUE(fs::remove(first));
    EXPECT_TRUE(fs::remove(second));
}

TEST(UserFolders, AFileIsReadAsItIs)
{
    const TemporaryFolder temporary;
    const std::string expected = std::string("a\r\nb\0c\x1A\xFE", 8) + std::string(100'000, 'x');
    temporary.write("file", expected);
    std::string content = "before";
    EXPECT_FALSE(read_file(temporary.path() / "file", content));
    EXPECT_EQ(content, expected);
}

TEST(UserFolders, WhatCannotBeReadLeavesTheContentAlone)
{
    const TemporaryFolder temporary;
    std::string content = "before";
    EXPECT_EQ(read_file(temporary.path() / "absent", content), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(read_file(temporary.path(), content));
    EXPECT_EQ(content, "before");
}

TEST(UserFolders, PathsKeepTheirBytes)
{
    for (const char* path : {"", "name", "caf\xC3\xA9/\xF0\x9F\x93\xB7", "a b\\c:d"})
        EXPECT_EQ(native_bytes(path_of_native_bytes(path)), path);
    EXPECT_EQ(native_bytes(fs::path(u"caf\u00E9")), "caf\xC3\xA9");
}

} // namespace
} // namespace multirename
