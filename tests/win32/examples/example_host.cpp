#include "examples/example_host.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "driver/dialog_driver.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "win32/launcher/program_paths.h"

namespace {

using driver::ask;

constexpr int label_or_list_id = 100;
constexpr int rename_id = 101;

struct Search {
    std::u16string_view title;
    HWND found = nullptr;
};

BOOL CALLBACK compare(HWND window, LPARAM l)
{
    auto& search = *reinterpret_cast<Search*>(l);
    if (IsWindowVisible(window) != FALSE && driver::text_of(window) == search.title)
        search.found = window;
    return search.found == nullptr ? TRUE : FALSE;
}

HWND awaited_window(std::u16string_view title, DWORD thread)
{
    Search search{title};
    const bool came = driver::wait_until([&] {
        EnumThreadWindows(thread, &compare, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    });
    EXPECT_TRUE(came) << "no window \"" << multirename::to_bytes(title) << "\" came";
    return search.found;
}

std::u16string item_text(HWND list, WPARAM item)
{
    std::wstring text(static_cast<std::size_t>(ask(list, LB_GETTEXTLEN, item)) + 1, L'\0');
    const LRESULT length = ask(list, LB_GETTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    return multirename::from_wide({text.data(), static_cast<std::size_t>(length)});
}

} // namespace

ExampleHost::ExampleHost(std::u16string_view title, const LaunchedProgram::Start& start) :
    program_(start), window_(awaited_window(title, program_.thread()))
{
}

bool ExampleHost::can_rename() const { return IsWindowEnabled(GetDlgItem(window_, rename_id)) != FALSE; }

std::u16string ExampleHost::label() const { return driver::text_of(GetDlgItem(window_, label_or_list_id)); }

std::vector<std::u16string> ExampleHost::listed_names() const
{
    const HWND list = GetDlgItem(window_, label_or_list_id);
    const auto count = static_cast<WPARAM>(ask(list, LB_GETCOUNT));
    std::vector<std::u16string> names;
    for (WPARAM item = 0; item < count; ++item)
        names.push_back(item_text(list, item));
    return names;
}

void ExampleHost::select(const std::vector<std::u16string>& names) const
{
    const std::vector<std::u16string> listed = listed_names();
    for (std::size_t item = 0; item < listed.size(); ++item) {
        const bool selected = std::ranges::find(names, listed[item]) != names.end();
        ask(GetDlgItem(window_, label_or_list_id), LB_SETSEL, selected ? TRUE : FALSE, static_cast<LPARAM>(item));
    }
}

void ExampleHost::press_rename() const { EXPECT_TRUE(driver::press(GetDlgItem(window_, rename_id))); }

void ExampleHost::wait_until_back() const
{
    // The host's window takes input again before the call has come back: only then does it answer the next message.
    EXPECT_TRUE(driver::wait_until([this] { return takes_input(); })) << "the host's window stayed disabled";
    EXPECT_TRUE(
        driver::wait_until([this] { return driver::find_dialog(u"Multi Rename", program_.thread()) == nullptr; }));
    EXPECT_TRUE(driver::wait_until_active(window_));
    ask(window_, WM_NULL);
}

std::string ExampleHost::take_message(std::u16string_view title) const
{
    const HWND box = awaited_window(title, program_.thread());
    const std::u16string text = driver::text_of(driver::message_part(box, driver::MessagePart::Text));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(driver::wait_until([box] { return IsWindow(box) == FALSE; })) << "the message box stayed";
    return multirename::to_bytes(text);
}

void ExampleHost::close() const
{
    PostMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_EQ(program_.exit_status(), 0U);
}

std::u16string path_beside_tests(std::u16string_view name) { return multirename::program_folder().append(name); }
