// The hosts that others start from: what they do is what the guide tells.

#include <gmock/gmock.h>

#include <windows.h>

#include "driver/dialog_driver.h"
#include "examples/example_host.h"
#include "platform/windows/wide.h"
#include "support/decoys.h"
#include "support/temp_folder.h"
#include "text/utf8.h"
#include "win32/framework/handles.h"

namespace {

using multirename::to_bytes;
using multirename::to_wide;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using Names = std::vector<std::u16string>;

void copy(const std::u16string& from, const std::u16string& to)
{
    EXPECT_NE(CopyFileW(to_wide(from).c_str(), to_wide(to).c_str(), TRUE), FALSE);
}

/// Has programs that are started meanwhile look for libraries in this folder too, when they look along PATH.
class FolderOnPath {
public:
    explicit FolderOnPath(const std::u16string& folder)
    {
        before_.resize(GetEnvironmentVariableW(L"PATH", before_.data(), static_cast<DWORD>(before_.size())));
        SetEnvironmentVariableW(L"PATH", (to_wide(folder) + L";" + before_).c_str());
    }
    FolderOnPath(const FolderOnPath&) = delete;
    FolderOnPath& operator=(const FolderOnPath&) = delete;
    ~FolderOnPath() { SetEnvironmentVariableW(L"PATH", before_.c_str()); }

private:
    std::wstring before_ = std::wstring(32768, L'\0');
};

class HostInC : public testing::Test {
protected:
    [[nodiscard]] static LaunchedProgram::Start on(std::vector<std::u16string> words,
                                                   std::u16string working_folder = {})
    {
        return {std::move(words), std::move(working_folder), path_beside_tests(u"host_in_c.exe")};
    }
    static constexpr std::u16string_view title = u"Host in C";

    TempFolder folder;
};

class HostInCpp : public testing::Test {
protected:
    [[nodiscard]] LaunchedProgram::Start on_folder() const
    {
        return {{folder.path()}, {}, path_beside_tests(u"host_in_cpp.exe")};
    }
    static constexpr std::u16string_view title = u"Host in C++";

    /// A copy of the program in a folder where only a test puts a module.
    [[nodiscard]] LaunchedProgram::Start without_its_module() const
    {
        program_folder.make_folder(u"program");
        const std::u16string program = program_folder.path_of(u"program\\host_in_cpp.exe");
        copy(path_beside_tests(u"host_in_cpp.exe"), program);
        return {{folder.path()}, program_folder.path(), program};
    }

    TempFolder folder;
    TempFolder program_folder;
};

void expect_label(const ExampleHost& host, std::u16string_view label)
{
    EXPECT_TRUE(driver::wait_until([&] { return host.label() == label; })) << to_bytes(host.label());
}

void expect_listed(const ExampleHost& host, const Names& names)
{
    driver::wait_until([&] { return host.listed_names() == names; });
    EXPECT_EQ(host.listed_names(), names);
}

} // namespace

TEST_F(HostInC, RenamesWhatItsCommandLineNames)
{
    const Names paths = {folder.make_file(u"föhn 1.txt"), folder.make_file(u"föhn 2.txt")};
    folder.make_file(u"föhn 3.txt");
    const ExampleHost host(title, on(paths));
    expect_label(host, u"Files and folders still to rename: 2");
    host.press_rename();
    host.program().rename_with_prefix(u"日本 ");
    host.wait_until_back();
    expect_label(host, u"Files and folders still to rename: 0");
    EXPECT_FALSE(host.can_rename());
    EXPECT_EQ(folder.files(),
              (Files{{u"日本 föhn 1.txt", u"föhn 1.txt"},
                     {u"日本 föhn 2.txt", u"föhn 2.txt"},
                     {u"föhn 3.txt", u"föhn 3.txt"}}));
    host.close();
}

TEST_F(HostInC, ItsWindowTakesNoInputWhileTheDialogIsOpen)
{
    const ExampleHost host(title, on({folder.make_file(u"a")}));
    EXPECT_TRUE(host.takes_input());
    host.press_rename();
    const HWND dialog = host.program().rename_dialog();
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), host.window());
    EXPECT_FALSE(host.takes_input());
    host.program().cancel_rename_dialog();
    host.wait_until_back();
    EXPECT_TRUE(host.takes_input());
    host.close();
}

TEST_F(HostInC, MayAskAgainAfterACancel)
{
    const ExampleHost host(title, on({folder.make_file(u"a")}));
    host.press_rename();
    host.program().cancel_rename_dialog();
    host.wait_until_back();
    expect_label(host, u"Files and folders still to rename: 1");
    host.press_rename();
    host.program().rename_with_prefix(u"b");
    host.wait_until_back();
    EXPECT_EQ(folder.files(), (Files{{u"ba", u"a"}}));
    host.close();
}

TEST_F(HostInC, TakesPathsFromItsWorkingFolderWhichCanBeRenamedToo)
{
    const std::u16string sub = folder.make_folder(u"sub");
    folder.make_file(u"sub\\x.txt");
    const ExampleHost host(title, on({u"x.txt", u"..\\sub\\"}, sub));
    host.press_rename();
    host.program().rename_with_prefix(u"new ");
    host.wait_until_back();
    EXPECT_EQ(folder.files(), (Files{{u"new sub\\new x.txt", u"sub\\x.txt"}}));
    host.close();
}

TEST_F(HostInC, PassesOverPathsThatLeadNowhere)
{
    const ExampleHost host(title, on({folder.path_of(u"lost"), folder.make_file(u"a"), u""}));
    expect_label(host, u"Files and folders still to rename: 1");
    host.close();
}

TEST_F(HostInC, SaysWhatItNeedsWithoutAnyPath)
{
    const ExampleHost host(u"Host in C: error", on({}));
    EXPECT_EQ(host.take_message(u"Host in C: error"), "Name the files and folders to rename on the command line.");
    EXPECT_EQ(host.program().exit_status(), 1U);
}

TEST_F(HostInCpp, ShowsTheNewNamesOnceTheDialogHasClosed)
{
    folder.make_file(u"föhn 1.txt");
    folder.make_file(u"föhn 2.txt");
    const ExampleHost host(title, on_folder());
    expect_listed(host, {u"föhn 1.txt", u"föhn 2.txt"});
    host.press_rename();
    host.program().rename_with_prefix(u"new ");
    host.wait_until_back();
    expect_listed(host, {u"new föhn 1.txt", u"new föhn 2.txt"});
    EXPECT_EQ(folder.files(), (Files{{u"new föhn 1.txt", u"föhn 1.txt"}, {u"new föhn 2.txt", u"föhn 2.txt"}}));
    host.close();
}

TEST_F(HostInCpp, RenamesWhatIsSelectedAlone)
{
    for (const std::u16string_view name : {u"a 1", u"a 2", u"a 3"})
        folder.make_file(name);
    const ExampleHost host(title, on_folder());
    host.select({u"a 1", u"a 3"});
    host.press_rename();
    host.program().rename_with_prefix(u"b");
    host.wait_until_back();
    expect_listed(host, {u"a 2", u"ba 1", u"ba 3"});
    EXPECT_EQ(folder.files(), (Files{{u"a 2", u"a 2"}, {u"ba 1", u"a 1"}, {u"ba 3", u"a 3"}}));
    host.close();
}

TEST_F(HostInCpp, MayRenameAgainAndAgain)
{
    folder.make_file(u"a");
    const ExampleHost host(title, on_folder());
    for (const std::u16string_view prefix : {u"b", u"c"}) {
        host.press_rename();
        host.program().rename_with_prefix(prefix);
        host.wait_until_back();
    }
    expect_listed(host, {u"cba"});
    host.close();
}

TEST_F(HostInCpp, ItsWindowTakesNoInputWhileTheDialogIsOpen)
{
    folder.make_file(u"a");
    const ExampleHost host(title, on_folder());
    host.press_rename();
    EXPECT_EQ(GetWindow(host.program().rename_dialog(), GW_OWNER), host.window());
    EXPECT_FALSE(host.takes_input());
    host.program().cancel_rename_dialog();
    host.wait_until_back();
    EXPECT_TRUE(host.takes_input());
    host.close();
}

TEST_F(HostInCpp, WithoutTheModuleSaysWhatToDoAndGoesOnOnceItIsDone)
{
    folder.make_file(u"a");
    const ExampleHost host(title, without_its_module());
    const std::u16string module_path = program_folder.path_of(u"program\\multirename.dll");
    host.press_rename();
    EXPECT_EQ(host.take_message(u"Host in C++: error"),
              "Multi Rename cannot be loaded:\n\n" + to_bytes(module_path) +
                  "\n\nPut multirename.dll into the folder of this program, then try again.");
    copy(path_beside_tests(u"multirename.dll"), module_path);
    host.press_rename();
    host.program().rename_with_prefix(u"b");
    host.wait_until_back();
    EXPECT_EQ(folder.files(), (Files{{u"ba", u"a"}}));
    host.close();
}

TEST_F(HostInCpp, TakesNoModuleFromTheWorkingFolderOrThePath)
{
    const Decoys decoys(program_folder.path(), {u"multirename.dll"});
    const FolderOnPath on_path(program_folder.path());
    const ExampleHost host(title, without_its_module());
    host.press_rename();
    EXPECT_THAT(host.take_message(u"Host in C++: error"), StartsWith("Multi Rename cannot be loaded:"));
    EXPECT_THAT(decoys.loaded(), IsEmpty());
    host.close();
}

TEST_F(HostInCpp, SaysWhichFolderCannotBeRead)
{
    const ExampleHost host(u"Host in C++: error",
                           {{folder.path_of(u"lost")}, {}, path_beside_tests(u"host_in_cpp.exe")});
    EXPECT_THAT(host.take_message(u"Host in C++: error"),
                AllOf(StartsWith("This folder cannot be read:"), HasSubstr(to_bytes(folder.path_of(u"lost")))));
}

TEST_F(HostInCpp, DeclaresThatItFollowsTheResolutionOfEachScreen)
{
    const std::wstring path = to_wide(path_beside_tests(u"host_in_cpp.exe"));
    const multirename::UniqueLibrary program(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    const HRSRC manifest = FindResourceW(program.get(), MAKEINTRESOURCEW(1), RT_MANIFEST);
    ASSERT_NE(manifest, nullptr);
    const auto* const text = static_cast<const char*>(LockResource(LoadResource(program.get(), manifest)));
    EXPECT_THAT(std::string(text, SizeofResource(program.get(), manifest)), HasSubstr(">PerMonitorV2, PerMonitor<"));
}
