#include "platform/user_values.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "platform/testing/scoped_variable.h"
#include "platform/testing/temporary_folder.h"
#include "platform/testing/user_values_sandbox.h"
#include "text/utf8.h"

namespace multirename {

namespace fs = std::filesystem;

namespace {

std::string read_all(const fs::path& file)
{
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

std::string quoted(std::u16string_view text)
{
    std::string result = "\"";
    for (const char c : to_bytes(text)) {
        if (c == '\\' || c == '"')
            result.push_back('\\');
        result.push_back(c);
    }
    return result + "\"";
}

} // namespace

struct UserValuesSandbox::Body {
    TemporaryFolder folder;
    ScopedVariable config{"XDG_CONFIG_HOME", folder.path().string()};

    [[nodiscard]] fs::path file() const { return folder.path() / "multirename" / "settings.json"; }
};

UserValuesSandbox::UserValuesSandbox() : body_(std::make_unique<Body>()) { }
UserValuesSandbox::~UserValuesSandbox() = default;

std::u16string UserValuesSandbox::product_name() const { return u"Unit Test"; }

bool UserValuesSandbox::has_key(std::u16string_view key) const
{
    return read_all(body_->file()).find(quoted(key)) != std::string::npos;
}

void UserValuesSandbox::store_text(std::u16string_view key, std::u16string_view value) const
{
    fs::create_directories(body_->file().parent_path());
    std::ofstream(body_->file()) << "{" << quoted(key) << ": {" << quoted(value) << ": \"text\"}}";
}

namespace {

constexpr std::u16string_view key = u"SOFTWARE\\Velloria Labs\\Unit Test";

class FileUserValues : public testing::Test {
protected:
    void store(const std::string& content) const
    {
        fs::create_directories(file_.parent_path());
        std::ofstream(file_) << content;
    }

    TemporaryFolder folder_;
    fs::path file_ = folder_.path() / "multirename" / "settings.json";
    ScopedVariable config_{"XDG_CONFIG_HOME", folder_.path().string()};
};

TEST_F(FileUserValues, LieInTheUsersConfigurationFolder)
{
    EXPECT_FALSE(fs::exists(file_));
    EXPECT_TRUE(system_user_values().write(key, u"Number", 5));
    EXPECT_TRUE(fs::exists(file_));
}

TEST_F(FileUserValues, LieInTheHomeFolderWhenNoConfigurationFolderIsNamed)
{
    const ScopedVariable no_config("XDG_CONFIG_HOME", std::nullopt);
    const ScopedVariable home("HOME", folder_.path().string());
    EXPECT_TRUE(system_user_values().write(key, u"Number", 5));
    EXPECT_TRUE(fs::exists(folder_.path() / ".config" / "multirename" / "settings.json"));
    EXPECT_EQ(system_user_values().read(key, u"Number"), 5U);
}

TEST_F(FileUserValues, AreRefusedWhereThereIsNoHome)
{
    const ScopedVariable no_config("XDG_CONFIG_HOME", std::nullopt);
    const ScopedVariable no_home("HOME", std::nullopt);
    EXPECT_FALSE(system_user_values().write(key, u"Number", 5));
    EXPECT_EQ(system_user_values().read(key, u"Number"), std::nullopt);
}

TEST_F(FileUserValues, ABrokenFileCountsAsEmptyAndIsMended)
{
    for (const char* content : {"", "{", "[]", "17", R"({"SOFTWARE\\Velloria Labs\\Unit Test": 3})", "\xFF\xFE"}) {
        store(content);
        EXPECT_EQ(system_user_values().read(key, u"Number"), std::nullopt) << content;
        EXPECT_TRUE(system_user_values().write(key, u"Number", 5)) << content;
        EXPECT_EQ(system_user_values().read(key, u"Number"), 5U) << content;
    }
}

TEST_F(FileUserValues, NumbersThatAreNo32BitNumbersAreNone)
{
    for (const char* number : {"-1", "4294967296", "1.5", "1e3", "true", "null", "[]", "99999999999999999999999"}) {
        store(R"({"SOFTWARE\\Velloria Labs\\Unit Test": {"Number": )" + std::string(number) + "}}");
        EXPECT_EQ(system_user_values().read(key, u"Number"), std::nullopt) << number;
    }
    store(R"({"SOFTWARE\\Velloria Labs\\Unit Test": {"Number": 4294967295}})");
    EXPECT_EQ(system_user_values().read(key, u"Number"), 4294967295U);
}

TEST_F(FileUserValues, AWriteKeepsTheOtherValues)
{
    store(R"({"Other key": {"a": 1}, "SOFTWARE\\Velloria Labs\\Unit Test": {"b": 2}})");
    EXPECT_TRUE(system_user_values().write(key, u"Number", 5));
    EXPECT_EQ(system_user_values().read(u"Other key", u"a"), 1U);
    EXPECT_EQ(system_user_values().read(key, u"b"), 2U);
}

TEST_F(FileUserValues, AFolderThatCannotBeMadeRefusesTheWrite)
{
    std::ofstream(folder_.path() / "multirename") << "a file where the folder should be";
    EXPECT_FALSE(system_user_values().write(key, u"Number", 5));
    EXPECT_EQ(system_user_values().read(key, u"Number"), std::nullopt);
}

TEST_F(FileUserValues, AWriteLeavesNoDraftBehind)
{
    EXPECT_TRUE(system_user_values().write(key, u"Number", 5));
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(file_.parent_path()))
        ++files;
    EXPECT_EQ(files, 1U);
}

} // namespace
} // namespace multirename
