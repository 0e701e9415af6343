// What a run gives back when it ends: every window, menu, font and picture.

#include <random>

#include "support/gui_objects.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

class Release : public Story { };

void run_with_everything(const Module& module, const std::vector<std::u16string>& paths)
{
    OpenDialog dialog(module, paths);
    dialog.type_into(part(0), u"trip_");
    dialog.click_part(0, u"Change Number").close_with(IDOK);
    // Each box is clicked twice, since the module remembers it for the next run.
    dialog.press_and_expect(IDC_NUMBERS_AS_TEXT, {u"trip_", u"*", u""});
    dialog.click_part(0, u"Change Wild").close_with(IDCANCEL);
    dialog.press(IDC_NUMBERS_AS_TEXT);
    dialog.press_and_expect(IDC_ALLOW_EXTENSION_CHANGES, {u"trip_", u"#", u".jpg"});
    dialog.press(IDC_ALLOW_EXTENSION_CHANGES);
    dialog.press(IDC_RESET);
    put_on_clipboard(u"one\ntwo\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return dialog.new_names().front().starts_with(u"one"); }));
    dialog.list_menu().choose(u"Select &All");
    dialog.list_menu().choose(u"&Reset Names");
    EXPECT_TRUE(driver::wait_until([&] { return IsWindowEnabled(dialog.part_button(0)) != FALSE; }));
    dialog.part_menu(0).choose(u"Clear Text");
    dialog.part_menu(0).dismiss();
    dialog.resize(700, 600);
    dialog.cancel();
}

// Whatever a user or a program can do to the dialog, in any order and without waiting for what comes of it.
void let_a_storm_pass(const OpenDialog& dialog, unsigned seed)
{
    std::minstd_rand random(seed);
    put_on_clipboard(u"one\ntwo\n");
    constexpr int buttons[] = {IDC_ALLOW_EXTENSION_CHANGES, IDC_NUMBERS_AS_TEXT, IDC_RESET, IDC_PASTE_NAMES};
    for (int blow = 0; blow < 300; ++blow) {
        const std::vector<HWND> row = driver::row_controls(dialog.handle());
        const HWND control = row.empty() ? dialog.list() : row[random() % row.size()];
        switch (random() % 7) {
        case 0: PostMessageW(control, WM_CHAR, u'0' + random() % 10, 1); break; // letters are access keys, too
        case 1: PostMessageW(dialog.control(buttons[random() % 4]), BM_CLICK, 0, 0); break;
        case 2: PostMessageW(dialog.list(), WM_COMMAND, random() % 2 == 0 ? ID_SELECT_ALL : ID_RESET_NAMES, 0); break;
        case 3: PostMessageW(control, WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1)); break;
        case 4: PostMessageW(dialog.list(), WM_KEYDOWN, random() % 2 == 0 ? VK_DOWN : VK_UP, 1); break;
        case 5: PostMessageW(dialog.handle(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(500 + random() % 300, 400)); break;
        default: SetWindowTextW(control, L"text <D> <N:1>"); break;
        }
    }
}

// Whether one run leaves as much behind as there was before it. What the system keeps for later comes with some run or
// other, so a few may go before; a leak would be there after every one.
template <class Run>
void expect_nothing_left_behind(Run run)
{
    run();
    constexpr int tries = 4;
    GuiObjects before;
    GuiObjects after = count_gui_objects();
    EXPECT_GT(after.drawing, 0) << "drawing objects cannot be counted here";
    for (int i = 0; i < tries && before != after; ++i) {
        before = after;
        run();
        after = count_gui_objects();
    }
    EXPECT_EQ(after, before);
}

} // namespace

TEST_F(Release, ARunLeavesNoWindowMenuOrDrawingObjectBehind)
{
    const std::vector<std::u16string> paths = made({u"IMG_1.jpg", u"IMG_2.jpg"});
    expect_nothing_left_behind([&] { run_with_everything(module, paths); });
}

TEST_F(Release, NorDoesARunThroughAStormOfInput)
{
    const std::vector<std::u16string> paths = made({u"IMG_1 a.jpg", u"IMG_2 b.png"});
    unsigned seed = 0;
    expect_nothing_left_behind([&] {
        OpenDialog dialog(module, paths);
        let_a_storm_pass(dialog, ++seed);
        EXPECT_TRUE(dialog.is_open());
        PostMessageW(dialog.handle(), WM_COMMAND, IDCANCEL, 0);
        dialog.wait_closed();
    });
}

TEST_F(Release, NorDoesARunWhoseHostWindowGoesAwayBehindAnotherDialogOrAMenu)
{
    const std::vector<std::u16string> paths = made({u"IMG_1.jpg", u"IMG_2.jpg"});
    expect_nothing_left_behind([&] {
        {
            OpenDialog dialog(module, paths);
            static_cast<void>(dialog.click_part(0, u"Change Number"));
            PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
            dialog.wait_closed();
        }
        OpenDialog dialog(module, paths);
        static_cast<void>(dialog.list_menu());
        PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
        dialog.wait_closed();
    });
}

TEST_F(Release, NorDoesARunWhoseHostWindowGoesAway)
{
    const std::vector<std::u16string> paths = made({u"IMG_1.jpg", u"IMG_2.jpg"});
    expect_nothing_left_behind([&] {
        OpenDialog dialog(module, paths);
        PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
        dialog.wait_closed();
    });
}
