// The settings of wild and number parts: their dialogs, what they make of the names, what is remembered.

#include "support/story.h"
#include "transforms/case_style.h"
#include "win32/res/resource.h"

namespace {

constexpr std::u16string_view wild_title = u"Change Wild";
constexpr std::u16string_view number_title = u"Change Number";
constexpr int upper_case_item = 1;

class PartSettings : public Story {
protected:
    [[nodiscard]] std::vector<std::u16string> wild_files() const { return made({u"a one.txt", u"a six.txt"}); }
    [[nodiscard]] std::vector<std::u16string> numbered_files() const { return made({u"n7.txt", u"n12.txt"}); }
};

} // namespace

TEST_F(PartSettings, AFreshWildPartHasNothingToReset)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    EXPECT_FALSE(wild.is_enabled(IDC_WILD_RESET));
    EXPECT_TRUE(wild.is_enabled(IDC_WILD_CLEAR_TEXT));
    EXPECT_FALSE(wild.is_checked(IDC_TRUNCATE));
    EXPECT_FALSE(wild.is_enabled(IDC_LENGTH));
    EXPECT_EQ(wild.text(IDC_LENGTH), u"8");
    EXPECT_EQ(wild.text(IDC_CASE_STYLE), u"Unchanged");
    wild.close_with(IDCANCEL);
}

TEST_F(PartSettings, EveryCaseStyleIsOffered)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    ASSERT_EQ(driver::ask(wild.control(IDC_CASE_STYLE), CB_GETCOUNT), std::ssize(multirename::case_style_labels));
    for (int item = 0; item < std::ssize(multirename::case_style_labels); ++item) {
        wild.select(IDC_CASE_STYLE, item);
        EXPECT_EQ(wild.text(IDC_CASE_STYLE), multirename::case_style_labels[static_cast<std::size_t>(item)].label);
    }
    wild.close_with(IDCANCEL);
}

TEST_F(PartSettings, AWildPartsChoicesMakeTheNames)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    wild.select(IDC_CASE_STYLE, upper_case_item);
    EXPECT_TRUE(wild.is_enabled(IDC_WILD_RESET));
    wild.press(IDC_TRUNCATE);
    EXPECT_TRUE(wild.is_enabled(IDC_LENGTH));
    wild.type_into(IDC_LENGTH, u"2");
    wild.close_with(IDOK);
    expect_names(dialog, {u"a ON.txt", u"a SI.txt"});
}

TEST_F(PartSettings, ClearTextLeavesTheLengthClosed)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    wild.press(IDC_WILD_CLEAR_TEXT);
    EXPECT_TRUE(wild.is_checked(IDC_TRUNCATE));
    EXPECT_EQ(wild.text(IDC_LENGTH), u"0");
    EXPECT_FALSE(wild.is_enabled(IDC_LENGTH));
    EXPECT_FALSE(wild.is_enabled(IDC_WILD_CLEAR_TEXT));
    EXPECT_TRUE(wild.is_enabled(IDC_WILD_RESET));
    wild.close_with(IDOK);
    expect_names(dialog, {u"a .txt", u"a .txt"});
}

TEST_F(PartSettings, ResetOfAWildPartLeavesTheLengthOpen)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    wild.press(IDC_TRUNCATE);
    wild.press(IDC_WILD_RESET);
    EXPECT_FALSE(wild.is_checked(IDC_TRUNCATE));
    EXPECT_TRUE(wild.is_enabled(IDC_LENGTH));
    EXPECT_FALSE(wild.is_enabled(IDC_WILD_RESET));
    wild.close_with(IDCANCEL);
}

TEST_F(PartSettings, CancelChangesNothing)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    wild.select(IDC_CASE_STYLE, upper_case_item);
    wild.close_with(IDCANCEL);
    expect_names(dialog, {u"a one.txt", u"a six.txt"});
    const PartDialog again = dialog.click_part(0, wild_title);
    EXPECT_EQ(again.text(IDC_CASE_STYLE), u"Unchanged");
    again.close_with(IDCANCEL);
}

TEST_F(PartSettings, AFreshNumberPartShowsWhatIsRememberedAtFirst)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, number_title);
    EXPECT_TRUE(number.is_checked(IDC_NUMBER_NO_CHANGE));
    EXPECT_TRUE(number.is_checked(IDC_ZEROS_NO_CHANGE));
    EXPECT_FALSE(number.is_enabled(IDC_NUMBER_RESET));
    EXPECT_TRUE(number.is_enabled(IDC_NUMBER_CLEAR_TEXT));
    EXPECT_FALSE(number.is_enabled(IDC_START));
    EXPECT_FALSE(number.is_enabled(IDC_DIGITS));
    EXPECT_EQ(number.text(IDC_START), u"1");
    EXPECT_EQ(number.text(IDC_DIGITS), u"4");
    EXPECT_EQ(driver::ask(number.control(IDC_START), EM_GETLIMITTEXT), 20);
    EXPECT_EQ(driver::ask(number.control(IDC_DIGITS), EM_GETLIMITTEXT), 3);
    number.close_with(IDCANCEL);
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg Start"), std::nullopt);
}

TEST_F(PartSettings, RenumberingShiftsAndPadsAndIsRemembered)
{
    const std::vector<std::u16string> paths = numbered_files();
    {
        OpenDialog dialog(module, paths);
        const PartDialog number = dialog.click_part(0, number_title);
        number.press(IDC_NUMBER_RENUMBER);
        EXPECT_TRUE(number.is_enabled(IDC_START));
        number.type_into(IDC_START, u"100");
        number.press(IDC_ZEROS_FIXED_DIGITS);
        EXPECT_TRUE(number.is_enabled(IDC_DIGITS));
        number.type_into(IDC_DIGITS, u"5");
        number.close_with(IDOK);
        expect_names(dialog, {u"n00100.txt", u"n00105.txt"});
        EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg Start"), 100U);
        EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg NDigits"), 5U);
        EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg LeadZeros"), 1U);
        dialog.rename();
    }
    EXPECT_EQ(folder.files(), (Files{{u"n00100.txt", u"n7.txt"}, {u"n00105.txt", u"n12.txt"}}));
    OpenDialog next_run(module, {folder.path_of(u"n00100.txt"), folder.path_of(u"n00105.txt")});
    const PartDialog number = next_run.click_part(0, number_title);
    EXPECT_TRUE(number.is_checked(IDC_NUMBER_NO_CHANGE));
    EXPECT_EQ(number.text(IDC_START), u"100");
    EXPECT_EQ(number.text(IDC_DIGITS), u"5");
    number.close_with(IDCANCEL);
}

TEST_F(PartSettings, ClearingANumberClosesTheZerosButNotTheirDigits)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, number_title);
    number.press(IDC_ZEROS_FIXED_DIGITS);
    number.press(IDC_NUMBER_CLEAR_TEXT);
    EXPECT_TRUE(number.is_checked(IDC_NUMBER_CLEAR));
    EXPECT_FALSE(number.is_enabled(IDC_NUMBER_CLEAR_TEXT));
    for (const int radio : {IDC_ZEROS_NO_CHANGE, IDC_ZEROS_REMOVE, IDC_ZEROS_FIXED_DIGITS})
        EXPECT_FALSE(number.is_enabled(radio)) << radio;
    EXPECT_TRUE(number.is_enabled(IDC_DIGITS));
    number.press(IDC_NUMBER_RESET);
    EXPECT_TRUE(number.is_checked(IDC_NUMBER_NO_CHANGE));
    EXPECT_TRUE(number.is_checked(IDC_ZEROS_NO_CHANGE));
    EXPECT_FALSE(number.is_enabled(IDC_NUMBER_RESET));
    number.close_with(IDCANCEL);
}

TEST_F(PartSettings, TheFocusNeverStaysInAControlThatTakesNoInput)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, number_title);
    EXPECT_EQ(dialog.focus(), number.control(IDOK));
    number.press(IDC_NUMBER_CLEAR_TEXT);
    EXPECT_TRUE(IsWindowEnabled(dialog.focus()));
    number.close_with(IDCANCEL);
}

TEST_F(PartSettings, AnEmptyLengthOfATruncatedPartIsAsGoodAsCleared)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    wild.press(IDC_TRUNCATE);
    EXPECT_TRUE(wild.is_enabled(IDC_WILD_CLEAR_TEXT));
    wild.type_into(IDC_LENGTH, u"");
    EXPECT_FALSE(wild.is_enabled(IDC_WILD_CLEAR_TEXT));
    wild.close_with(IDOK);
    expect_names(dialog, {u"a .txt", u"a .txt"});
}

TEST_F(PartSettings, AWildPartGetsWhatItsControlsShowThoughNothingWasClicked)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    driver::ask(wild.control(IDC_CASE_STYLE), CB_SETCURSEL, upper_case_item);
    driver::ask(wild.control(IDC_TRUNCATE), BM_SETCHECK, BST_CHECKED);
    SetWindowTextW(wild.control(IDC_LENGTH), L"1");
    wild.close_with(IDOK);
    expect_names(dialog, {u"a O.txt", u"a S.txt"});
}

TEST_F(PartSettings, ResetOfAWildPartLeavesTheTypedLength)
{
    OpenDialog dialog(module, wild_files());
    const PartDialog wild = dialog.click_part(0, wild_title);
    wild.press(IDC_TRUNCATE);
    wild.type_into(IDC_LENGTH, u"25");
    wild.select(IDC_CASE_STYLE, upper_case_item);
    wild.press(IDC_WILD_RESET);
    EXPECT_EQ(wild.text(IDC_LENGTH), u"25");
    EXPECT_EQ(wild.text(IDC_CASE_STYLE), u"Unchanged");
    wild.close_with(IDCANCEL);
}

TEST_F(PartSettings, ANumberGetsWhatItsControlsShowThoughNothingWasClicked)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, number_title);
    driver::ask(number.control(IDC_NUMBER_NO_CHANGE), BM_SETCHECK, BST_UNCHECKED);
    driver::ask(number.control(IDC_NUMBER_RENUMBER), BM_SETCHECK, BST_CHECKED);
    SetWindowTextW(number.control(IDC_START), L"40");
    number.close_with(IDOK);
    expect_names(dialog, {u"n40.txt", u"n45.txt"});
}

TEST_F(PartSettings, AnEmptyStartRenumbersFromZeroAndIsRemembered)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, number_title);
    number.press(IDC_NUMBER_RENUMBER);
    number.type_into(IDC_START, u"");
    number.close_with(IDOK);
    expect_names(dialog, {u"n0.txt", u"n5.txt"});
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg Start"), 0U);
}

TEST_F(PartSettings, WithoutAnyChoiceTheTypedValuesAreRememberedAllTheSame)
{
    OpenDialog dialog(module, numbered_files());
    {
        const PartDialog number = dialog.click_part(0, number_title);
        SetWindowTextW(number.control(IDC_START), L"9");
        SetWindowTextW(number.control(IDC_DIGITS), L"6");
        number.close_with(IDOK);
    }
    expect_names(dialog, {u"n7.txt", u"n12.txt"});
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg Start"), 9U);
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg NDigits"), 6U);
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg LeadZeros"), std::nullopt);
}

TEST_F(PartSettings, CancelOfANumberRemembersNothing)
{
    OpenDialog dialog(module, numbered_files());
    const PartDialog number = dialog.click_part(0, number_title);
    number.press(IDC_NUMBER_RENUMBER);
    number.type_into(IDC_START, u"9");
    number.close_with(IDCANCEL);
    expect_names(dialog, {u"n7.txt", u"n12.txt"});
    EXPECT_EQ(EmptyUserStore::stored(u"NumberDlg Start"), std::nullopt);
}
