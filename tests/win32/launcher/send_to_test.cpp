// The link in the user's "Send to" menu.

#include <gmock/gmock.h>

#include <windows.h>

#include <knownfolders.h>
#include <shlobj.h>

#include <array>

#include "launcher/launched_program.h"
#include "platform/windows/wide.h"
#include "win32/launcher/com.h"

namespace {

using multirename::from_wide;
using multirename::require;

std::wstring link_path()
{
    wchar_t* folder = nullptr;
    require(SHGetKnownFolderPath(FOLDERID_SendTo, KF_FLAG_DONT_VERIFY, nullptr, &folder));
    const multirename::UniqueTaskText owned(folder);
    return std::wstring(folder) + L"\\Multi Rename.lnk";
}

bool has_link() { return GetFileAttributesW(link_path().c_str()) != INVALID_FILE_ATTRIBUTES; }

struct Link {
    std::u16string target;
    std::u16string description;
    std::u16string icon_file;
    int icon_index = -1;
};

Link read_link()
{
    const multirename::ComApartment apartment;
    const auto link = multirename::create_object<IShellLinkW>(CLSID_ShellLink);
    IPersistFile* file = nullptr;
    require(link.get()->QueryInterface(IID_PPV_ARGS(&file)));
    const multirename::UniqueInterface<IPersistFile> owned(file);
    require(file->Load(link_path().c_str(), STGM_READ));
    Link read;
    std::array<wchar_t, 1024> text = {};
    constexpr int room = static_cast<int>(text.size());
    require(link.get()->GetPath(text.data(), room, nullptr, SLGP_RAWPATH));
    read.target = from_wide(text.data());
    require(link.get()->GetDescription(text.data(), room));
    read.description = from_wide(text.data());
    require(link.get()->GetIconLocation(text.data(), room, &read.icon_index));
    read.icon_file = from_wide(text.data());
    return read;
}

void install() { EXPECT_EQ(LaunchedProgram({u"--install-sendto"}).exit_status(), 0U); }
void uninstall() { EXPECT_EQ(LaunchedProgram({u"--uninstall-sendto"}).exit_status(), 0U); }

class SendTo : public testing::Test {
protected:
    void SetUp() override { uninstall(); }
    void TearDown() override { uninstall(); }
};

} // namespace

TEST_F(SendTo, InstallingMakesALinkToTheProgram)
{
    install();
    const Link link = read_link();
    EXPECT_EQ(link.target, launcher_path());
    EXPECT_EQ(link.description, u"Renames the selected files and folders");
    EXPECT_EQ(link.icon_file, launcher_path());
    EXPECT_EQ(link.icon_index, 0);
}

TEST_F(SendTo, InstallingReplacesAFileOfTheSameName)
{
    CloseHandle(CreateFileW(link_path().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    install();
    EXPECT_EQ(read_link().target, launcher_path());
}

TEST_F(SendTo, InstallingTwiceIsFine)
{
    install();
    install();
    EXPECT_EQ(read_link().target, launcher_path());
}

TEST_F(SendTo, UninstallingRemovesTheLinkAndTwiceIsFine)
{
    install();
    ASSERT_TRUE(has_link());
    uninstall();
    EXPECT_FALSE(has_link());
    uninstall();
}

TEST_F(SendTo, SaysWhatIsDoneOnTheStandardOutput)
{
    EXPECT_EQ(LaunchedProgram({u"--install-sendto"}).output(), "Multi Rename is in the \"Send to\" menu.\r\n");
    EXPECT_EQ(LaunchedProgram({u"--uninstall-sendto"}).output(), "Multi Rename is not in the \"Send to\" menu.\r\n");
}

TEST_F(SendTo, SaysWhyALinkCannotBeMade)
{
    CreateDirectoryW(link_path().c_str(), nullptr);
    const LaunchedProgram program({u"--install-sendto"});
    EXPECT_THAT(program.take_message(), testing::StartsWith("Multi Rename cannot be put into the \"Send to\" menu: "));
    EXPECT_EQ(program.exit_status(), 1U);
    RemoveDirectoryW(link_path().c_str());
}
