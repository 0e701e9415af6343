// Selections of thousands of files.

#include <windows.h>

#include <commctrl.h>

#include "support/story.h"
#include "win32/res/resource.h"

namespace {

class ManyFiles : public Story {
protected:
    [[nodiscard]] std::vector<std::u16string> made_many(int count) const
    {
        std::vector<std::u16string> paths;
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(100'000 + i);
            paths.push_back(folder.make_file(u"IMG_" + std::u16string(number.begin(), number.end()) + u".jpg"));
        }
        return paths;
    }
};

constexpr int many = 3'000;

} // namespace

TEST_F(ManyFiles, AreListedEditedAndRemoved)
{
    const OpenDialog dialog(module, made_many(many));
    EXPECT_EQ(driver::ask(dialog.list(), LVM_GETITEMCOUNT), many);
    EXPECT_EQ(dialog.cell(many - 1, 0), u"IMG_102999.jpg");
    dialog.type_into(part(0), u"trip_");
    EXPECT_EQ(dialog.cell(many - 1, 1), u"trip_102999.jpg");

    driver::ask(dialog.list(), WM_COMMAND, ID_SELECT_ALL);
    LVITEMW deselect = {};
    deselect.stateMask = LVIS_SELECTED;
    driver::ask(dialog.list(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&deselect));
    driver::ask(dialog.list(), LVM_SETITEMSTATE, many - 1, reinterpret_cast<LPARAM>(&deselect));
    driver::ask(dialog.list(), WM_COMMAND, ID_REMOVE_FILES);
    EXPECT_EQ(driver::ask(dialog.list(), LVM_GETITEMCOUNT), 2);
    EXPECT_EQ(dialog.cell(1, 1), u"trip_102999.jpg");
}
