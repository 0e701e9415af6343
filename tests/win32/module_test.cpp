// The module as a file: what it gives to its host and what it takes from the system.

#include <gmock/gmock.h>

#include <windows.h>

#include <string>
#include <vector>

#include "support/module.h"
#include "support/program_file.h"

namespace {

bool has_resource(HMODULE module, int id, LPCWSTR type)
{
    return FindResourceW(module, MAKEINTRESOURCEW(id), type) != nullptr;
}

} // namespace

TEST(ModuleFile, ExportsOneFunctionByItsPlainName)
{
    const Module module;
    EXPECT_THAT(exported_names(module.handle()), testing::ElementsAre("run_multirename"));
}

TEST(ModuleFile, NeedsOnlyLibrariesThatWindowsShips)
{
    const Module module;
    const std::vector<std::string> shipped = {"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll",
                                              "msvcrt.dll",   "ntdll.dll",    "ole32.dll", "shell32.dll",
                                              "user32.dll",   "uxtheme.dll"};
    EXPECT_THAT(imported_libraries(module.handle()), testing::Each(testing::AnyOfArray(shipped)));
}

TEST(ModuleFile, LeavesMistakesWithMemoryOfNoUse)
{
    const Module module;
    EXPECT_THAT(missing_protections(module.handle()), testing::IsEmpty());
}

TEST(ModuleFile, TellsItsVersion)
{
    const Module module;
    const HRSRC found = FindResourceW(module.handle(), MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));
    ASSERT_NE(found, nullptr);
    const void* const block = LockResource(LoadResource(module.handle(), found));
    // Six units of header and the key "VS_VERSION_INFO" with its zero, on to the next multiple of 4 bytes.
    constexpr std::size_t fixed_part_offset = 40;
    const auto* const fixed =
        reinterpret_cast<const VS_FIXEDFILEINFO*>(static_cast<const char*>(block) + fixed_part_offset);
    EXPECT_EQ(fixed->dwSignature, 0xFEEF04BDU);
    EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
    EXPECT_EQ(fixed->dwFileVersionMS, static_cast<DWORD>(MODULE_VERSION_MAJOR << 16 | MODULE_VERSION_MINOR));
}

TEST(ModuleFile, HoldsItsManifestWhereLibrariesKeepIt)
{
    const Module module;
    EXPECT_TRUE(has_resource(module.handle(), 2, RT_MANIFEST));
    EXPECT_FALSE(has_resource(module.handle(), 1, RT_MANIFEST));
}

TEST(ModuleFile, HoldsItsDialogIconAndPictures)
{
    const Module module;
    EXPECT_TRUE(has_resource(module.handle(), 150, RT_DIALOG));
    EXPECT_TRUE(has_resource(module.handle(), 250, RT_GROUP_ICON));
    for (int picture = 351; picture <= 357; ++picture)
        EXPECT_TRUE(has_resource(module.handle(), picture, RT_BITMAP)) << picture;
}

TEST(ModuleFile, HoldsEveryTextAsTheProgramHasIt)
{
    const Module module;
    struct Text {
        UINT number;
        std::u16string_view text;
    };
    const Text texts[] = {
#define MESSAGE(number, name, text) {number, u##text},
#include "run/messages.def"
#undef MESSAGE
    };
    for (const Text& expected : texts) {
        std::wstring text(1024, L'\0');
        const int length = LoadStringW(module.handle(), expected.number, text.data(), static_cast<int>(text.size()));
        EXPECT_EQ(std::u16string(text.begin(), text.begin() + length), expected.text) << expected.number;
    }
}
