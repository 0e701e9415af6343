// What a run gives back when it ends: every window, menu, font and picture.

#include "support/gui_objects.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

class Release : public Story { };

void wait_for_row(const OpenDialog& dialog, const std::vector<std::u16string>& labels)
{
    EXPECT_TRUE(driver::wait_until([&] { return dialog.pattern() == labels; }));
}

void run_with_everything(const Module& module, const std::vector<std::u16string>& paths)
{
    OpenDialog dialog(module, paths);
    dialog.type_into(part(0), u"trip_");
    dialog.click_part(0, u"Change Number").close_with(IDOK);
    // Each box is clicked twice, since the module remembers it for the next run.
    dialog.press(IDC_NUMBERS_AS_TEXT);
    wait_for_row(dialog, {u"trip_", u"*", u""});
    dialog.click_part(0, u"Change Wild").close_with(IDCANCEL);
    dialog.press(IDC_NUMBERS_AS_TEXT);
    dialog.press(IDC_ALLOW_EXTENSION_CHANGES);
    wait_for_row(dialog, {u"trip_", u"#", u".jpg"});
    dialog.press(IDC_ALLOW_EXTENSION_CHANGES);
    dialog.press(IDC_RESET);
    put_on_clipboard(u"one\ntwo\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return dialog.new_names().front().starts_with(u"one"); }));
    dialog.cancel();
}

} // namespace

TEST_F(Release, ARunLeavesNoWindowMenuOrDrawingObjectBehind)
{
    const std::vector<std::u16string> paths = made({u"IMG_1.jpg", u"IMG_2.jpg"});
    run_with_everything(module, paths); // what the system keeps for later is there after the first run
    const GuiObjects before = count_gui_objects();
    EXPECT_GT(before.drawing, 0) << "drawing objects cannot be counted here";
    run_with_everything(module, paths);
    EXPECT_EQ(count_gui_objects(), before);
}

TEST_F(Release, SoDoesARunWhoseHostWindowGoesAway)
{
    const std::vector<std::u16string> paths = made({u"IMG_1.jpg", u"IMG_2.jpg"});
    const auto run_and_lose_host = [&] {
        OpenDialog dialog(module, paths);
        PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
        dialog.wait_closed();
    };
    run_and_lose_host();
    const GuiObjects before = count_gui_objects();
    run_and_lose_host();
    EXPECT_EQ(count_gui_objects(), before);
}
