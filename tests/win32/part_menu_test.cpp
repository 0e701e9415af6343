// The menus of the part buttons: what they offer, what is greyed, what a choice makes of the names.

#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using testing::ElementsAre;

constexpr UINT reset_command = 32774;
constexpr UINT clear_command = 32775;
constexpr UINT renumber_command = 32776;

class PartMenu : public Story {
protected:
    static std::vector<ShownItem> items(const OpenDialog& dialog)
    {
        const OpenMenu menu = dialog.part_menu(0);
        const std::vector<ShownItem> shown = menu.items();
        menu.dismiss();
        return shown;
    }

    static void remember(std::uint32_t start, std::uint32_t mode, std::uint32_t digits)
    {
        EmptyUserStore::store(u"NumberDlg Start", start);
        EmptyUserStore::store(u"NumberDlg LeadZeros", mode);
        EmptyUserStore::store(u"NumberDlg NDigits", digits);
    }

    [[nodiscard]] std::vector<std::u16string> wild_files() const { return made({u"a one.txt", u"a six.txt"}); }
    [[nodiscard]] std::vector<std::u16string> numbered_files() const { return made({u"n7.txt", u"n12.txt"}); }
};

} // namespace

TEST_F(PartMenu, OfAFreshWildPartOffersToClearIt)
{
    OpenDialog dialog(module, wild_files());
    EXPECT_THAT(items(dialog), ElementsAre(greyed(u"Reset", reset_command), offered(u"Clear Text", clear_command)));
}

TEST_F(PartMenu, ClearsAWildPart)
{
    OpenDialog dialog(module, wild_files());
    dialog.part_menu(0).choose(u"Clear Text");
    expect_names(dialog, {u"a .txt", u"a .txt"});
    EXPECT_THAT(items(dialog), ElementsAre(offered(u"Reset", reset_command), greyed(u"Clear Text", clear_command)));
    const PartDialog wild = dialog.click_part(0, u"Change Wild");
    EXPECT_TRUE(wild.is_checked(IDC_TRUNCATE));
    EXPECT_EQ(wild.text(IDC_LENGTH), u"0");
    wild.close_with(IDCANCEL);
}

TEST_F(PartMenu, ResetOfAWildPartKeepsItsLength)
{
    OpenDialog dialog(module, wild_files());
    dialog.part_menu(0).choose(u"Clear Text");
    dialog.part_menu(0).choose(u"Reset");
    expect_names(dialog, {u"a one.txt", u"a six.txt"});
    const PartDialog wild = dialog.click_part(0, u"Change Wild");
    EXPECT_FALSE(wild.is_checked(IDC_TRUNCATE));
    EXPECT_EQ(wild.text(IDC_LENGTH), u"0");
    wild.close_with(IDCANCEL);
}

TEST_F(PartMenu, OfAFreshNumberPartOffersToClearAndToRenumber)
{
    OpenDialog dialog(module, numbered_files());
    EXPECT_THAT(items(dialog),
                ElementsAre(greyed(u"Reset", reset_command), offered(u"Clear Text", clear_command), separator(),
                            offered(u"Renumber from 1", renumber_command)));
}

TEST_F(PartMenu, ClearsANumberAndBringsItBack)
{
    OpenDialog dialog(module, numbered_files());
    dialog.part_menu(0).choose(u"Clear Text");
    expect_names(dialog, {u"n.txt", u"n.txt"});
    EXPECT_THAT(items(dialog),
                ElementsAre(offered(u"Reset", reset_command), greyed(u"Clear Text", clear_command), separator(),
                            offered(u"Renumber from 1", renumber_command)));
    dialog.part_menu(0).choose(u"Reset");
    expect_names(dialog, {u"n7.txt", u"n12.txt"});
}

TEST_F(PartMenu, RenumbersAsRemembered)
{
    remember(7, 1, 3);
    OpenDialog dialog(module, made({u"n20.txt", u"n25.txt"}));
    EXPECT_EQ(items(dialog).back(), offered(u"Renumber from 7 (make 3 digits)", renumber_command));
    dialog.part_menu(0).choose(u"Renumber from 7 (make 3 digits)");
    expect_names(dialog, {u"n007.txt", u"n012.txt"});
    EXPECT_EQ(items(dialog).back(), greyed(u"Renumber from 7 (make 3 digits)", renumber_command));
    const PartDialog number = dialog.click_part(0, u"Change Number");
    EXPECT_TRUE(number.is_checked(IDC_NUMBER_RENUMBER));
    EXPECT_EQ(number.text(IDC_START), u"7");
    EXPECT_TRUE(number.is_checked(IDC_ZEROS_FIXED_DIGITS));
    EXPECT_EQ(number.text(IDC_DIGITS), u"3");
    number.close_with(IDCANCEL);
}

TEST_F(PartMenu, RenumbersWithoutDigitsWhereNoneAreRemembered)
{
    remember(30, 2, 3);
    OpenDialog dialog(module, numbered_files());
    dialog.part_menu(0).choose(u"Renumber from 30");
    expect_names(dialog, {u"n30.txt", u"n35.txt"});
}

TEST_F(PartMenu, ShowsAStoredNegativeStartAsTheUnsignedNumber)
{
    remember(0xFFFFFFFB, 0, 4);
    OpenDialog dialog(module, numbered_files());
    EXPECT_EQ(items(dialog).back().text, u"Renumber from 4294967291");
}

TEST_F(PartMenu, FollowsWhatTheDialogRemembersInTheSameRun)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, u"Change Number");
    number.press(IDC_NUMBER_RENUMBER);
    number.type_into(IDC_START, u"3000000000");
    number.close_with(IDOK);
    expect_names(dialog, {u"n3000000000.txt", u"n3000000005.txt"});
    EXPECT_EQ(items(dialog).back(), greyed(u"Renumber from 3000000000", renumber_command));
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg Start"), std::nullopt);
}

TEST_F(PartMenu, ChangesNothingWhenDismissed)
{
    OpenDialog dialog(module, numbered_files());
    dialog.part_menu(0).dismiss();
    expect_names(dialog, {u"n7.txt", u"n12.txt"});
    EXPECT_EQ(items(dialog).front(), greyed(u"Reset", reset_command));
}

TEST_F(PartMenu, OpensInsideTheButtonsCornerFromTheKeyboard)
{
    OpenDialog dialog(module, numbered_files());
    RECT button = {};
    GetWindowRect(dialog.part_button(0), &button);
    const OpenMenu menu = dialog.part_menu(0);
    EXPECT_EQ(menu.area().left, button.left + 5);
    EXPECT_EQ(menu.area().top, button.top + 5);
    menu.dismiss();
}

TEST_F(PartMenu, OpensWhereTheMouseClicked)
{
    OpenDialog dialog(module, numbered_files());
    const OpenMenu menu(dialog.part_button(0), {90, 95});
    EXPECT_EQ(menu.area().left, 90);
    EXPECT_EQ(menu.area().top, 95);
    menu.dismiss();
}

TEST_F(PartMenu, ClosesWhenTheDialogIsCancelled)
{
    OpenDialog dialog(module, numbered_files());
    const OpenMenu menu = dialog.part_menu(0);
    PostMessageW(dialog.handle(), WM_COMMAND, IDCANCEL, 0);
    menu.wait_closed();
    dialog.wait_closed();
}

TEST_F(PartMenu, ClosesWhenTheHostDestroysItsWindow)
{
    OpenDialog dialog(module, numbered_files());
    const OpenMenu menu = dialog.part_menu(0);
    PostMessageW(dialog.host(), WM_CLOSE, 0, 0);
    dialog.wait_closed();
    EXPECT_FALSE(menu.is_open());
}

TEST_F(PartMenu, AChoiceForAPartThatHasGoneMeanwhileCountsForNothing)
{
    OpenDialog dialog(module, numbered_files());
    const OpenMenu menu = dialog.part_menu(0);
    PostMessageW(dialog.control(IDC_NUMBERS_AS_TEXT), BM_CLICK, 0, 0);
    EXPECT_TRUE(driver::wait_until([&] { return dialog.is_checked(IDC_NUMBERS_AS_TEXT); }));
    PostMessageW(dialog.handle(), WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(dialog.handle(), WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(dialog.handle(), WM_KEYDOWN, VK_RETURN, 1);
    menu.wait_closed();
    expect_names(dialog, {u"n7.txt", u"n12.txt"});
}
