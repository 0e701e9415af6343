// The program as a file: what it tells the system and what it takes from it.

#include <gmock/gmock.h>

#include <windows.h>

#include "launcher/launched_program.h"
#include "platform/windows/wide.h"
#include "support/program_file.h"
#include "win32/framework/handles.h"
#include "win32/res/resource.h"

namespace {

using testing::HasSubstr;

class ProgramFile : public testing::Test {
protected:
    [[nodiscard]] std::string_view resource(int id, LPCWSTR type) const
    {
        const HRSRC found = FindResourceW(file.get(), MAKEINTRESOURCEW(id), type);
        if (found == nullptr)
            return {};
        return {static_cast<const char*>(LockResource(LoadResource(file.get(), found))),
                SizeofResource(file.get(), found)};
    }

    // In its place in memory, but not run.
    multirename::UniqueLibrary file{
        LoadLibraryExW(multirename::to_wide(launcher_path()).c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES)};
};

} // namespace

TEST_F(ProgramFile, DrawsSharplyOnEveryScreen)
{
    const std::string_view manifest = resource(1, RT_MANIFEST);
    EXPECT_THAT(manifest, HasSubstr(">PerMonitorV2, PerMonitor</dpiAwareness>"));
    EXPECT_THAT(manifest, HasSubstr(">true/pm</dpiAware>"));
}

TEST_F(ProgramFile, TakesPathsOfAnyLength)
{
    EXPECT_THAT(resource(1, RT_MANIFEST), HasSubstr(">true</longPathAware>"));
}

TEST_F(ProgramFile, AsksForNoRightsOfAnAdministrator)
{
    EXPECT_THAT(resource(1, RT_MANIFEST), HasSubstr("level=\"asInvoker\""));
}

TEST_F(ProgramFile, HasVisualStyles)
{
    EXPECT_THAT(resource(1, RT_MANIFEST), HasSubstr("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
}

TEST_F(ProgramFile, HasTheModulesIcon)
{
    EXPECT_THAT(resource(IDI_MULTI_RENAME, RT_GROUP_ICON), testing::Not(testing::IsEmpty()));
}

TEST_F(ProgramFile, TellsItsVersion)
{
    const std::string_view block = resource(VS_VERSION_INFO, MAKEINTRESOURCEW(16));
    std::string name;
    for (const char letter : std::string_view("multirename-gui.exe"))
        name.append({letter, '\0'});
    EXPECT_THAT(block, HasSubstr(name));
}

TEST_F(ProgramFile, NeedsOnlyLibrariesThatWindowsShips)
{
    ASSERT_TRUE(file);
    const std::vector<std::string> shipped = {"kernel32.dll", "msvcrt.dll",  "ole32.dll",
                                              "shell32.dll",  "shlwapi.dll", "user32.dll"};
    EXPECT_THAT(imported_libraries(file.get()), testing::Each(testing::AnyOfArray(shipped)));
}

TEST_F(ProgramFile, LeavesMistakesWithMemoryOfNoUse)
{
    ASSERT_TRUE(file);
    EXPECT_THAT(missing_protections(file.get()), testing::IsEmpty());
}
