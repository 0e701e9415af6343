// What the person sees while editing: typing, the two boxes, Reset, the clipboard.

#include <algorithm>

#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using testing::ElementsAre;

class Editing : public Story { };

std::vector<int> images(const OpenDialog& dialog)
{
    std::vector<int> shown;
    for (const ShownRow& row : dialog.rows())
        shown.push_back(row.image);
    return shown;
}

} // namespace

TEST_F(Editing, TypingMakesEveryNewNameAtOnce)
{
    OpenDialog dialog(module, made({u"IMG_0012.jpg", u"IMG_0013.jpg"}));
    dialog.type_into(part(0), u"trip_");
    EXPECT_THAT(dialog.rows(),
                ElementsAre(ShownRow{u"IMG_0012.jpg", u"trip_0012.jpg", ready_image},
                            ShownRow{u"IMG_0013.jpg", u"trip_0013.jpg", ready_image}));
    dialog.type_into(part(0), u"IMG_");
    EXPECT_THAT(images(dialog), ElementsAre(unchanged_image, unchanged_image));
}

TEST_F(Editing, AFaultyNameShowsItsPicture)
{
    folder.make_file(u"taken.txt");
    OpenDialog dialog(module, made({u"a.txt", u"b.txt"}));
    put_on_clipboard(u"taken\nfree\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return images(dialog) == std::vector{existing_name_image, ready_image}; }));
    put_on_clipboard(u"same\nSAME\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return images(dialog) == std::vector{same_name_image, same_name_image}; }));
}

TEST_F(Editing, AnEmptyNameShowsItsPicture)
{
    OpenDialog dialog(module, made({u"only"}));
    dialog.type_into(part(0), u"");
    EXPECT_THAT(images(dialog), ElementsAre(empty_image));
}

TEST_F(Editing, ForbiddenTextMakesEveryNameInvalid)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.type_into(part(0), u"a?");
    EXPECT_THAT(images(dialog), ElementsAre(invalid_image, invalid_image));
}

TEST_F(Editing, AllowingExtensionChangesShowsTheExtension)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.press_and_expect(IDC_ALLOW_EXTENSION_CHANGES, {u"IMG_", u"#", u".jpg"});
    EXPECT_TRUE(dialog.is_checked(IDC_ALLOW_EXTENSION_CHANGES));
    dialog.type_into(part(1), u".jpeg");
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"IMG_1.jpeg", u"IMG_2.jpeg"));
}

TEST_F(Editing, NumbersTakenAsTextBecomeWild)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.press_and_expect(IDC_NUMBERS_AS_TEXT, {u"IMG_", u"*", u""});
}

TEST_F(Editing, TypedTextGoesOverToTheOtherPattern)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.type_into(part(0), u"trip_");
    dialog.press_and_expect(IDC_NUMBERS_AS_TEXT, {u"trip_", u"*", u""});
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"trip_1.jpg", u"trip_2.jpg"));
}

TEST_F(Editing, TheBoxesAreRememberedFromOneRunToTheNext)
{
    const std::vector<std::u16string> paths = made({u"IMG_1.jpg", u"IMG_2.jpg"});
    {
        OpenDialog dialog(module, paths);
        EXPECT_FALSE(dialog.is_checked(IDC_NUMBERS_AS_TEXT));
        dialog.press(IDC_NUMBERS_AS_TEXT);
        EXPECT_TRUE(driver::wait_until([&] { return dialog.is_checked(IDC_NUMBERS_AS_TEXT); }));
        dialog.cancel();
    }
    OpenDialog dialog(module, paths);
    EXPECT_TRUE(dialog.is_checked(IDC_NUMBERS_AS_TEXT));
    EXPECT_FALSE(dialog.is_checked(IDC_ALLOW_EXTENSION_CHANGES));
}

TEST_F(Editing, BoxesWithoutEffectAreGreyed)
{
    OpenDialog dialog(module, made({u"alpha", u"beta"}));
    EXPECT_FALSE(dialog.is_enabled(IDC_ALLOW_EXTENSION_CHANGES));
    EXPECT_FALSE(dialog.is_enabled(IDC_NUMBERS_AS_TEXT));
}

TEST_F(Editing, ResetBringsTheFirstPatternBack)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.type_into(part(0), u"trip_");
    dialog.press_and_expect(IDC_RESET, {u"IMG_", u"#", u""});
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"IMG_1.jpg", u"IMG_2.jpg"));
}

TEST_F(Editing, CopyPutsOneNameOnEachLine)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    dialog.type_into(part(0), u"trip_");
    dialog.press(IDC_COPY_NAMES);
    EXPECT_EQ(dialog.take_message(), information(u"The filenames have been copied to the clipboard."));
    EXPECT_EQ(clipboard_text(), u"trip_1.jpg\ntrip_2.jpg\n");
}

TEST_F(Editing, PastedNamesTakeThePatternOutOfUseUntilReset)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    paste(dialog, u"first\r\nsecond\r\n", {u"first.jpg", u"second.jpg"});
    EXPECT_TRUE(driver::wait_until([&] { return !dialog.is_enabled(IDC_ALLOW_EXTENSION_CHANGES); }));
    EXPECT_FALSE(dialog.is_enabled(IDC_NUMBERS_AS_TEXT));
    for (const HWND control : driver::row_controls(dialog.handle()))
        EXPECT_FALSE(IsWindowEnabled(control));
    EXPECT_TRUE(IsWindowEnabled(dialog.focus())) << "the keyboard would be dead";

    dialog.press(IDC_RESET);
    EXPECT_TRUE(driver::wait_until([&] {
        return std::ranges::all_of(driver::row_controls(dialog.handle()),
                                   [](HWND c) { return IsWindowEnabled(c) != 0; });
    }));
    EXPECT_TRUE(dialog.is_enabled(IDC_ALLOW_EXTENSION_CHANGES));
    EXPECT_TRUE(dialog.is_enabled(IDC_NUMBERS_AS_TEXT));
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"IMG_1.jpg", u"IMG_2.jpg"));
}

TEST_F(Editing, PastingTooFewLinesIsRefusedWithBothCounts)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    put_on_clipboard(u"one\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_EQ(dialog.take_message(),
              warning(u"The text on the clipboard must contain one line for each filename.\n\n"
                      u"Number of files to rename: 2\nNumber of lines on clipboard: 1"));
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"IMG_1.jpg", u"IMG_2.jpg"));
}

TEST_F(Editing, PastingForbiddenCharactersIsRefused)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    put_on_clipboard(u"one\ntw|o\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_EQ(dialog.take_message(),
              warning(u"The text on the clipboard cannot be used to name the files, since it contains one of these "
                      u"characters which are not allowed in filenames:\n\\ / : * ? \" < > |"));
}

TEST_F(Editing, AClipboardThatIsInUseIsLeftAloneWithoutAWord)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    put_on_clipboard(u"one\ntwo\n");
    {
        const UsedClipboard used;
        driver::ask(dialog.control(IDC_COPY_NAMES), BM_CLICK);
        driver::ask(dialog.control(IDC_PASTE_NAMES), BM_CLICK);
    }
    EXPECT_EQ(clipboard_text(), u"one\ntwo\n");
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"IMG_1.jpg", u"IMG_2.jpg"));
    dialog.cancel(); // which a message would prevent
}

TEST_F(Editing, AClipboardWithoutTextIsPastedWithoutAWord)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    empty_clipboard();
    driver::ask(dialog.control(IDC_PASTE_NAMES), BM_CLICK);
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"IMG_1.jpg", u"IMG_2.jpg"));
    dialog.cancel();
}

TEST_F(Editing, ALongFirstLineIsRefusedAndALongLaterOneJudged)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    const std::u16string long_line(256, u'x');
    put_on_clipboard(long_line + u"\nshort\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_EQ(dialog.take_message(),
              warning(u"The text on the clipboard cannot be used to name the files, since at least one line is longer "
                      u"than the maximum filename length allowed by Windows (255 characters)."));
    put_on_clipboard(u"short\n" + long_line + u"\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return images(dialog) == std::vector{ready_image, invalid_image}; }));
}

TEST_F(Editing, AnyProgramCanUseTheClipboardWhileAMessageIsShown)
{
    OpenDialog dialog(module, made({u"IMG_1.jpg", u"IMG_2.jpg"}));
    put_on_clipboard(u"one\n");
    dialog.press(IDC_PASTE_NAMES);
    EXPECT_TRUE(driver::wait_until([&] { return IsWindowEnabled(dialog.handle()) == FALSE; }));
    put_on_clipboard(u"one\ntwo\n");
    static_cast<void>(dialog.take_message());
    dialog.press(IDC_PASTE_NAMES);
    expect_names(dialog, {u"one.jpg", u"two.jpg"});
}
