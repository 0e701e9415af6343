// The dialogs without a mouse and without sight: the order of the tabs, access keys, what a screen reader says.

#define INITGUID // the identifiers are defined here, by the header below

#include <windows.h>

#include <oleacc.h>

#include <map>

#include "platform/windows/wide.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::from_wide;
using testing::ElementsAre;

class Accessibility : public Story {
protected:
    [[nodiscard]] std::vector<std::u16string> files() const { return made({u"a 1 one.txt", u"a 2 six.txt"}); }
};

std::vector<int> tab_order(HWND dialog)
{
    std::vector<int> ids;
    HWND control = GetNextDlgTabItem(dialog, nullptr, FALSE);
    const HWND first = control;
    do {
        ids.push_back(GetDlgCtrlID(control));
        control = GetNextDlgTabItem(dialog, control, FALSE);
    } while (control != first && ids.size() < 100);
    return ids;
}

/// How often each letter is an access key among the dialog's controls.
std::map<char16_t, int> access_keys(HWND dialog)
{
    std::map<char16_t, int> keys;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t name[16] = {};
        GetClassNameW(child, name, 16);
        if (std::wstring_view(name) != L"Button" && std::wstring_view(name) != L"Static")
            continue;
        const std::u16string text = driver::text_of(child);
        const std::size_t mark = text.find(u'&');
        if (mark != std::u16string::npos && mark + 1 < text.size())
            ++keys[static_cast<char16_t>(std::towlower(static_cast<wint_t>(text[mark + 1])))];
    }
    return keys;
}

std::u16string letters(const std::map<char16_t, int>& keys)
{
    std::u16string all;
    for (const auto& [letter, count] : keys) {
        EXPECT_EQ(count, 1) << static_cast<char>(letter) << " stands for several controls";
        all.push_back(letter);
    }
    return all;
}

std::u16string spoken_name(HWND control)
{
    IAccessible* object = nullptr;
    void** const place = reinterpret_cast<void**>(&object);
    const HRESULT got = AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, place);
    if (FAILED(got)) {
        ADD_FAILURE() << "no accessible object: " << std::hex << got;
        return {};
    }
    VARIANT self = {};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR name = nullptr;
    object->get_accName(self, &name);
    const std::u16string text = name != nullptr ? from_wide(name) : std::u16string();
    SysFreeString(name);
    object->Release();
    return text;
}

} // namespace

TEST_F(Accessibility, TabGoesFromControlToControlInReadingOrder)
{
    const OpenDialog dialog(module, files());
    EXPECT_THAT(tab_order(dialog.handle()),
                ElementsAre(IDC_ALLOW_EXTENSION_CHANGES, IDC_NUMBERS_AS_TEXT, IDC_PART_EDIT, IDC_PART_BUTTON,
                            IDC_PART_EDIT, IDC_PART_BUTTON, IDC_PART_EDIT, IDC_RESET, IDC_COPY_NAMES, IDC_PASTE_NAMES,
                            IDC_NAMES_LIST, IDOK, IDCANCEL));
}

TEST_F(Accessibility, TheOrderIsTheSameAfterTheRowWasMadeAnew)
{
    const OpenDialog dialog(module, files());
    const std::vector<std::u16string> labels = dialog.pattern();
    const std::vector<int> before = tab_order(dialog.handle());
    dialog.press(IDC_NUMBERS_AS_TEXT);
    EXPECT_TRUE(driver::wait_until([&] { return dialog.pattern() != labels; }));
    dialog.press_and_expect(IDC_NUMBERS_AS_TEXT, labels);
    EXPECT_EQ(tab_order(dialog.handle()), before);
}

TEST_F(Accessibility, TheTabKeyMovesTheFocus)
{
    const OpenDialog dialog(module, files());
    const HWND first = driver::part_edits(dialog.handle()).front();
    ASSERT_EQ(dialog.focus(), first);
    PostMessageW(first, WM_KEYDOWN, VK_TAB, 1);
    EXPECT_TRUE(driver::wait_until([&] { return dialog.focus() == dialog.part_button(0); }));
}

TEST_F(Accessibility, AccessKeysOfTheDialogsDoNotClash)
{
    const OpenDialog dialog(module, files());
    EXPECT_EQ(letters(access_keys(dialog.handle())), u"cenprsu");
    const PartDialog number = dialog.click_part(0, u"Change Number");
    EXPECT_EQ(letters(access_keys(GetParent(number.control(IDOK)))), u"eglmnrsx");
    number.close_with(IDCANCEL);
    const PartDialog wild = dialog.click_part(1, u"Change Wild");
    EXPECT_EQ(letters(access_keys(GetParent(wild.control(IDOK)))), u"cstx");
    wild.close_with(IDCANCEL);
}

TEST_F(Accessibility, AnAccessKeyReachesTheList)
{
    const OpenDialog dialog(module, files());
    driver::wait_until_active(dialog.list());
    PostMessageW(dialog.focus(), WM_SYSCHAR, u'n', 1 << 29);
    EXPECT_TRUE(driver::wait_until([&] { return dialog.focus() == dialog.list(); }));
}

TEST_F(Accessibility, ALabelStandsBeforeTheList)
{
    const OpenDialog dialog(module, files());
    const HWND label = GetWindow(dialog.list(), GW_HWNDPREV);
    EXPECT_EQ(driver::text_of(label), u"&Names:");
    EXPECT_EQ(driver::ask(label, WM_GETDLGCODE), DLGC_STATIC);
}

TEST_F(Accessibility, ALabelStandsBeforeEveryPart)
{
    const OpenDialog dialog(module, files());
    std::vector<std::u16string> labels;
    for (const HWND control : driver::row_controls(dialog.handle()))
        labels.push_back(driver::text_of(GetWindow(control, GW_HWNDPREV)));
    EXPECT_THAT(labels, ElementsAre(u"Text part 1", u"Number part 1", u"Text part 2", u"Wild part 1", u"Text part 3"));
}

TEST_F(Accessibility, AScreenReaderNamesTheTextParts)
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
        const OpenDialog dialog(module, files());
        std::vector<std::u16string> names;
        for (const HWND edit : driver::part_edits(dialog.handle()))
            names.push_back(spoken_name(edit));
        EXPECT_THAT(names, ElementsAre(u"Text part 1", u"Text part 2", u"Text part 3"));
    }
    CoUninitialize();
}
