// What opens when a host calls, whatever it hands over.

#include <windows.h>

#include <commctrl.h>

#include <array>

#include "driver/dialog_driver.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Opening : public Story { };

std::wstring library_behind(HWND control)
{
    const auto* const procedure = reinterpret_cast<LPCWSTR>(GetClassLongPtrW(control, GCLP_WNDPROC));
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, procedure,
                       &library);
    std::array<wchar_t, MAX_PATH> path = {};
    GetModuleFileNameW(library, path.data(), static_cast<DWORD>(path.size()));
    return path.data();
}

constexpr const wchar_t* version_6_folder = L"common-controls_6595b64144ccf1df_6.";

} // namespace

TEST_F(Opening, ShowsOldNamesUnchangedAndThePatternTheyShare)
{
    OpenDialog dialog(module, made({u"IMG_0012.jpg", u"IMG_0013.jpg"}));
    EXPECT_THAT(dialog.pattern(), ElementsAre(u"IMG_", u"#", u""));
    EXPECT_THAT(dialog.rows(),
                ElementsAre(ShownRow{u"IMG_0012.jpg", u"IMG_0012.jpg", unchanged_image},
                            ShownRow{u"IMG_0013.jpg", u"IMG_0013.jpg", unchanged_image}));
    dialog.cancel();
    EXPECT_EQ(folder.files(), (Files{{u"IMG_0012.jpg", u"IMG_0012.jpg"}, {u"IMG_0013.jpg", u"IMG_0013.jpg"}}));
}

TEST_F(Opening, KeepsTheHostsOrder)
{
    OpenDialog dialog(module, made({u"b1.txt", u"a1.txt", u"c1.txt"}));
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"b1.txt", u"a1.txt", u"c1.txt"));
}

TEST_F(Opening, SelectsTheFirstTextForTyping)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    const HWND edit = driver::part_edits(dialog.handle()).front();
    EXPECT_EQ(dialog.focus(), edit);
    EXPECT_EQ(driver::ask(edit, EM_GETSEL), MAKELONG(0, 4));
}

TEST_F(Opening, SelectsNothingInTextsThatGetTheFocusLater)
{
    OpenDialog dialog(module, made({u"IMG_1 x.jpg", u"IMG_2 x.jpg"}));
    const HWND second = driver::part_edits(dialog.handle()).at(1);
    driver::ask(second, EM_SETSEL, 0, -1);
    driver::ask(dialog.handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(second), TRUE);
    EXPECT_EQ(dialog.focus(), second);
    const LRESULT selection = driver::ask(second, EM_GETSEL);
    EXPECT_EQ(LOWORD(selection), HIWORD(selection));
}

TEST_F(Opening, TakesAtMost260CharactersPerText)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    EXPECT_EQ(driver::ask(driver::part_edits(dialog.handle()).front(), EM_GETLIMITTEXT), 260);
}

TEST_F(Opening, OpensEmptyForACountOfZero)
{
    OpenDialog dialog(module, OpenDialog::Call{});
    EXPECT_THAT(dialog.rows(), IsEmpty());
    EXPECT_THAT(dialog.columns(), ElementsAre(u"Old Name", u"New Name"));
    dialog.cancel();
}

TEST_F(Opening, OpensEmptyForANegativeCount)
{
    const wchar_t* const paths[] = {L"C:\\never looked at"};
    OpenDialog dialog(module, OpenDialog::Call{.count = -1, .paths = paths});
    EXPECT_THAT(dialog.rows(), IsEmpty());
}

TEST_F(Opening, OpensEmptyForNullPaths)
{
    const wchar_t* const paths[] = {nullptr, nullptr};
    OpenDialog no_array(module, OpenDialog::Call{.count = 3});
    EXPECT_THAT(no_array.rows(), IsEmpty());
    OpenDialog no_paths(module, OpenDialog::Call{.count = 2, .paths = paths});
    EXPECT_THAT(no_paths.rows(), IsEmpty());
}

TEST_F(Opening, TakesANullTextLikeAnEmptyOne)
{
    OpenDialog dialog(module, OpenDialog::Call{.text = nullptr});
    EXPECT_TRUE(dialog.is_open());
}

TEST_F(Opening, NeedsNoParent)
{
    OpenDialog dialog(module, OpenDialog::Call{.has_parent = false});
    EXPECT_TRUE(dialog.is_open());
}

TEST_F(Opening, BelongsToTheHostsWindowWhichTakesNoInputMeanwhile)
{
    OpenDialog dialog(module, OpenDialog::Call{});
    EXPECT_EQ(GetWindow(dialog.handle(), GW_OWNER), dialog.host());
    EXPECT_FALSE(IsWindowEnabled(dialog.host()));
}

TEST_F(Opening, ReturnsWhenTheHostDestroysItsWindow)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
    dialog.wait_closed();
    EXPECT_FALSE(dialog.is_open());
}

TEST_F(Opening, SaysNothingWhenEmptyAndRenamed)
{
    OpenDialog dialog(module, OpenDialog::Call{});
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(), information(u"No changes have been made, so no files have been renamed."));
    dialog.wait_closed();
}

TEST_F(Opening, UsesTheModulesControlsThoughTheProgramHasNoManifest)
{
    ASSERT_EQ(FindResourceW(nullptr, MAKEINTRESOURCEW(1), RT_MANIFEST), nullptr);
    OpenDialog dialog(module, OpenDialog::Call{});
    EXPECT_THAT(library_behind(dialog.control(IDC_NAMES_LIST)), testing::HasSubstr(version_6_folder));
    EXPECT_THAT(library_behind(dialog.control(IDOK)), testing::HasSubstr(version_6_folder));
}

TEST_F(Opening, LeavesTheHostItsOwnControls)
{
    OpenDialog dialog(module, OpenDialog::Call{});
    dialog.cancel();
    const HWND button = CreateWindowExW(0, WC_BUTTONW, L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    EXPECT_THAT(library_behind(button), testing::Not(testing::HasSubstr(version_6_folder)));
    DestroyWindow(button);
}

TEST_F(Opening, ShowsFoldersOnlyWhenThereAreSeveral)
{
    std::vector<std::u16string> paths = made({u"x1.txt"});
    folder.make_folder(u"sub");
    paths.push_back(folder.make_file(u"sub\\x2.txt"));
    OpenDialog dialog(module, paths);
    EXPECT_THAT(dialog.columns(), ElementsAre(u"Old Name", u"New Name", u"Folder"));
    EXPECT_EQ(dialog.cell(0, 2), folder.path_of(u""));
    EXPECT_EQ(dialog.cell(1, 2), folder.path_of(u"sub\\"));
}

TEST_F(Opening, LeavesOutVanishedFilesSilently)
{
    std::vector<std::u16string> paths = made({u"a1.txt", u"a2.txt"});
    paths.insert(paths.begin() + 1, folder.path_of(u"a3.txt"));
    OpenDialog dialog(module, paths);
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"a1.txt", u"a2.txt"));
}

TEST_F(Opening, LeavesOutAPathOf260CharactersAndTakesOneOf259)
{
    const std::size_t room = 259 - folder.path_of(u"").size();
    const std::u16string longest(room, u'a');
    const std::u16string too_long(room + 1, u'a');
    OpenDialog dialog(module, {folder.make_file(longest), folder.make_file(too_long)});
    EXPECT_THAT(dialog.new_names(), ElementsAre(longest));
}

TEST_F(Opening, LeavesOutFoldersThatDoNotExist)
{
    OpenDialog dialog(module, {folder.path_of(u"nowhere\\a.txt"), u"\\\\nowhere\\share\\a.txt", u"Q:\\a.txt"});
    EXPECT_THAT(dialog.rows(), IsEmpty());
}

TEST_F(Opening, TakesABareNameFromTheFolderOfThePathBefore)
{
    OpenDialog dialog(module, {made({u"a1.txt", u"a2.txt"}).front(), u"a2.txt", u"a3.txt"});
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"a1.txt", u"a2.txt"));
}

TEST_F(Opening, ListsAPathTwiceThatIsGivenTwice)
{
    const std::vector<std::u16string> paths = made({u"a1.txt", u"a2.txt"});
    OpenDialog dialog(module, {paths[0], paths[1], paths[0]});
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"a1.txt", u"a2.txt", u"a1.txt"));
    dialog.type_into(part(0), u"b");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"b1.txt", u"a1.txt"}, {u"b2.txt", u"a2.txt"}}));
}

TEST_F(Opening, LoadsAndUnloadsAnyNumberOfTimes)
{
    for (int time = 0; time < 3; ++time) {
        const Module again;
        OpenDialog dialog(again, OpenDialog::Call{});
        dialog.cancel();
    }
}
