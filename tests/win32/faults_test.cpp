// What becomes of the files when something gets in the way of the rename: none is lost, and none is replaced.

#include <windows.h>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::to_wide;
using multirename::UniqueFile;

class Faults : public Story {
protected:
    /// A file that others may read and write, but neither rename nor remove, for as long as the handle is there.
    [[nodiscard]] static UniqueFile held(const std::u16string& path)
    {
        return UniqueFile(CreateFileW(to_wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    }
};

constexpr std::u16string_view one_existing_name =
    u"Unable to rename files:\r\n1 file is being renamed to the same name as an existing file.";

} // namespace

TEST_F(Faults, AFileThatIsOpenStaysAndTheOthersAreRenamed)
{
    const std::vector<std::u16string> paths = made({u"a1.txt", u"a2.txt", u"a3.txt"});
    OpenDialog dialog(module, paths);
    dialog.type_into(part(0), u"b");
    const UniqueFile open_file = held(paths[1]);
    dialog.rename();
    EXPECT_EQ(folder.files().count(u"b1.txt"), 1U);
    EXPECT_EQ(folder.files().count(u"b3.txt"), 1U);
    EXPECT_EQ(contents_of(paths[1]), u"a2.txt");
}

TEST_F(Faults, AFolderWithAnOpenFileInItKeepsItAndAllElse)
{
    const std::u16string sub = folder.make_folder(u"sub 1");
    const std::u16string inside = folder.make_file(u"sub 1\\inside");
    folder.make_file(u"sub 1\\beside");
    OpenDialog dialog(module, {sub, folder.make_folder(u"sub 2")});
    dialog.type_into(part(0), u"new ");
    {
        const UniqueFile open_file = held(inside);
        dialog.rename();
    }
    std::vector<std::u16string> contents;
    for (const auto& [path, content] : folder.files())
        contents.push_back(content);
    EXPECT_THAT(contents, testing::UnorderedElementsAre(u"sub 1\\inside", u"sub 1\\beside", u"<folder>"));
    EXPECT_TRUE(folder.files().contains(u"new 2"));
}

TEST_F(Faults, AFileThatAppearsBeforeTheRenameIsNotReplaced)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt", u"a3.txt"}));
    dialog.type_into(part(0), u"b");
    const std::u16string newcomer = folder.make_file(u"B2.txt");
    const Files before = folder.files();
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(), warning(one_existing_name));
    EXPECT_TRUE(dialog.is_open());
    EXPECT_EQ(folder.files(), before);
    EXPECT_EQ(dialog.rows()[1].image, existing_name_image);
    DeleteFileW(to_wide(newcomer).c_str());
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"b1.txt", u"a1.txt"}, {u"b2.txt", u"a2.txt"}, {u"b3.txt", u"a3.txt"}}));
}

TEST_F(Faults, AnotherNameThanTheOneThatHasAppearedIsFree)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    dialog.type_into(part(0), u"b");
    folder.make_file(u"b2.txt");
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(), warning(one_existing_name));
    dialog.type_into(part(0), u"c");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"b2.txt", u"b2.txt"}, {u"c1.txt", u"a1.txt"}, {u"c2.txt", u"a2.txt"}}));
}

TEST_F(Faults, AFolderThatAppearsBeforeTheRenameIsNotFilled)
{
    OpenDialog dialog(module, made({u"a1.txt", u"a2.txt"}));
    dialog.type_into(part(0), u"b");
    folder.make_folder(u"b1.txt");
    const Files before = folder.files();
    dialog.press(IDOK);
    EXPECT_EQ(dialog.take_message(), warning(one_existing_name));
    EXPECT_EQ(folder.files(), before);
}

TEST_F(Faults, AFileThatIsGoneBeforeTheRenameKeepsNoOtherFromItsName)
{
    const std::vector<std::u16string> paths = made({u"a1.txt", u"a2.txt", u"a3.txt"});
    OpenDialog dialog(module, paths);
    dialog.type_into(part(0), u"b");
    DeleteFileW(to_wide(paths[1]).c_str());
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{u"b1.txt", u"a1.txt"}, {u"b3.txt", u"a3.txt"}}));
}

TEST_F(Faults, AFolderThatIsGoneBeforeTheRenameIsNotMadeAgain)
{
    const std::u16string sub = folder.make_folder(u"sub");
    const std::u16string path = folder.make_file(u"sub\\a");
    OpenDialog dialog(module, {path});
    dialog.type_into(part(0), u"b");
    DeleteFileW(to_wide(path).c_str());
    RemoveDirectoryW(to_wide(sub).c_str());
    dialog.rename();
    EXPECT_EQ(folder.files(), Files{});
}

TEST_F(Faults, AFileWhosePathBecomesTooLongIsNotLost)
{
    const std::u16string deep = std::u16string(180, u'd');
    folder.make_folder(deep);
    OpenDialog dialog(module, {folder.make_file(deep + u"\\a1"), folder.make_file(deep + u"\\a2")});
    dialog.type_into(part(0), std::u16string(100, u'b'));
    dialog.rename();
    std::vector<std::u16string> contents;
    for (const auto& [path, content] : folder.files())
        contents.push_back(content);
    EXPECT_THAT(contents, testing::ElementsAre(deep + u"\\a1", deep + u"\\a2"));
}

TEST_F(Faults, AFileWhosePathIsTooLongIsLeftAlone)
{
    const std::u16string deep = std::u16string(200, u'd');
    const std::u16string long_name = deep + u"\\a1" + std::u16string(60, u'x');
    folder.make_folder(deep);
    OpenDialog dialog(module, {folder.make_file(long_name), folder.make_file(deep + u"\\a2")});
    EXPECT_EQ(dialog.rows().size(), 1U);
    dialog.type_into(part(0), u"b2");
    dialog.rename();
    EXPECT_EQ(folder.files(), (Files{{long_name, long_name}, {deep + u"\\b2", deep + u"\\a2"}}));
}

TEST_F(Faults, AFileThatGetsADevicesNameIsNotLost)
{
    OpenDialog dialog(module, made({u"a.txt"}));
    dialog.type_into(part(0), u"nul");
    dialog.rename();
    ASSERT_EQ(folder.files().size(), 1U);
    EXPECT_EQ(folder.files().begin()->second, u"a.txt");
}
