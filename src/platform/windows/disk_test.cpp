#include "platform/disk.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "platform/testing/listed_folder.h"
#include "platform/windows/wide.h"

namespace multirename {
namespace {

class WindowsDiskTest : public testing::Test {
protected:
    void SetUp() override
    {
        std::array<wchar_t, MAX_PATH> temporary{};
        GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        folder_ = std::wstring(temporary.data()) + L"multirename_disk_" + std::to_wstring(GetCurrentProcessId());
        ASSERT_TRUE(CreateDirectoryW(folder_.c_str(), nullptr));
        folder_ += L"\\";
    }

    void TearDown() override
    {
        DeleteFileW((L"\\\\?\\" + deep_ + file_).c_str());
        for (; deep_.size() > folder_.size(); deep_.resize(deep_.find_last_of(L'\\', deep_.size() - 2) + 1))
            RemoveDirectoryW((L"\\\\?\\" + deep_).c_str());
        DeleteFileW((folder_ + file_).c_str());
        RemoveDirectoryW(folder_.c_str());
    }

    static bool make_file(const std::wstring& path)
    {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE)
            return false;
        CloseHandle(file);
        return true;
    }

    std::wstring folder_;
    std::wstring deep_ = folder_;
    std::wstring file_ = L"f.txt";
};

TEST_F(WindowsDiskTest, TellsTheCreationTime)
{
    const HANDLE file = CreateFileW((folder_ + file_).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    FILETIME created{};
    EXPECT_TRUE(GetFileTime(file, &created, nullptr, nullptr));
    CloseHandle(file);
    const auto entries = listed_folder(system_disk(), from_wide(folder_)).entries;
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].created, FileTime{created.dwHighDateTime} << 32 | created.dwLowDateTime);
}

TEST_F(WindowsDiskTest, TellsWhatTheAttributeHides)
{
    ASSERT_TRUE(make_file(folder_ + file_));
    EXPECT_FALSE(listed_folder(system_disk(), from_wide(folder_)).entries.at(0).is_hidden);
    SetFileAttributesW((folder_ + file_).c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(listed_folder(system_disk(), from_wide(folder_)).entries.at(0).is_hidden);
}

TEST_F(WindowsDiskTest, ListsFoldersBeyond260Characters)
{
    constexpr std::size_t long_enough = 320;
    deep_ = folder_;
    while (deep_.size() < long_enough) {
        deep_ += std::wstring(100, L'd') + L"\\";
        ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + deep_).c_str(), nullptr));
    }
    ASSERT_TRUE(make_file(L"\\\\?\\" + deep_ + file_));
    const auto entries = listed_folder(system_disk(), from_wide(deep_)).entries;
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].name, u"f.txt");
}

} // namespace
} // namespace multirename
