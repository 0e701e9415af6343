#include "launcher/launched_program.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

#include "driver/dialog_driver.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "win32/launcher/program_paths.h"
#include "win32/res/resource.h"

namespace {

using multirename::to_wide;
using multirename::UniqueFile;

constexpr std::u16string_view dialog_title = u"Multi Rename";
constexpr std::u16string_view file_dialog_title = u"Choose the files to rename";
constexpr auto bound = static_cast<DWORD>(std::chrono::milliseconds(driver::patience).count());

// The form that CommandLineToArgvW takes apart again: backslashes count only in front of a quotation mark.
std::wstring in_quotes(std::u16string_view word)
{
    std::wstring text = L"\"" + to_wide(word);
    text.append(word.size() - 1 - word.find_last_not_of(u'\\'), L'\\');
    return text + L"\"";
}

std::wstring command_line(const std::u16string& program, const std::vector<std::u16string>& words)
{
    std::wstring line = in_quotes(program);
    for (const std::u16string& word : words)
        line += L" " + in_quotes(word);
    return line;
}

bool is_rename_dialog(HWND window) { return window != nullptr && GetDlgItem(window, IDC_NAMES_LIST) != nullptr; }

HWND message_box(DWORD thread)
{
    const HWND box = driver::find_dialog(dialog_title, thread);
    return is_rename_dialog(box) ? nullptr : box;
}

struct Pipe {
    UniqueFile reading;
    UniqueFile writing;
};

Pipe pipe_for_child()
{
    SECURITY_ATTRIBUTES inherited = {};
    inherited.nLength = sizeof inherited;
    inherited.bInheritHandle = TRUE;
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (CreatePipe(&reading, &writing, &inherited, 1 << 16) == FALSE)
        throw std::runtime_error("no pipe for the program's output");
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    return {UniqueFile(reading), UniqueFile(writing)};
}

} // namespace

LaunchedProgram::LaunchedProgram(const Start& start)
{
    Pipe pipe = pipe_for_child();
    output_ = std::move(pipe.reading);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = pipe.writing.get();
    const std::u16string program = start.program.empty() ? launcher_path() : start.program;
    const std::wstring folder = to_wide(start.working_folder);
    std::wstring line = command_line(program, start.words);
    PROCESS_INFORMATION started = {};
    if (CreateProcessW(to_wide(program).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &startup, &started) == FALSE)
        throw std::runtime_error("multirename-gui.exe cannot be started from beside the tests");
    CloseHandle(started.hThread);
    process_ = UniqueFile(started.hProcess);
    thread_ = started.dwThreadId;
}

LaunchedProgram::~LaunchedProgram()
{
    if (has_ended())
        return;
    TerminateProcess(process_.get(), 99);
    WaitForSingleObject(process_.get(), bound);
}

bool LaunchedProgram::has_ended() const { return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0; }

template <class Find>
HWND LaunchedProgram::awaited(Find find, const char* what) const
{
    HWND window = nullptr;
    driver::wait_until([&] { return (window = find()) != nullptr || has_ended(); });
    EXPECT_NE(window, nullptr) << what << " did not come";
    return window;
}

HWND LaunchedProgram::rename_dialog() const
{
    const auto find = [this] {
        const HWND dialog = driver::find_dialog(dialog_title, thread_);
        return is_rename_dialog(dialog) ? dialog : nullptr;
    };
    return awaited(find, "the dialog");
}

HWND LaunchedProgram::file_dialog() const
{
    return awaited([this] { return driver::find_dialog(file_dialog_title, thread_); }, "the file dialog");
}

std::string LaunchedProgram::take_message(int button) const
{
    const HWND box = awaited([this] { return message_box(thread_); }, "a message box");
    if (box == nullptr)
        return {};
    const std::u16string text = driver::text_of(driver::message_part(box, driver::MessagePart::Text));
    EXPECT_NE(driver::message_part(box, driver::MessagePart::Icon), nullptr);
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    EXPECT_TRUE(driver::wait_until([box] { return IsWindow(box) == FALSE; })) << "the message box stayed";
    return multirename::to_bytes(text);
}

void LaunchedProgram::rename_with_prefix(std::u16string_view prefix) const
{
    const HWND dialog = rename_dialog();
    ASSERT_TRUE(driver::wait_until([dialog] { return !driver::part_edits(dialog).empty(); }));
    EXPECT_TRUE(driver::type_in_front(driver::part_edits(dialog).front(), prefix));
    EXPECT_TRUE(driver::press(GetDlgItem(dialog, IDOK)));
}

void LaunchedProgram::cancel_rename_dialog() const
{
    EXPECT_TRUE(driver::press(GetDlgItem(rename_dialog(), IDCANCEL)));
}

DWORD LaunchedProgram::exit_status() const
{
    EXPECT_EQ(WaitForSingleObject(process_.get(), bound), WAIT_OBJECT_0) << "the program did not end";
    DWORD status = 0;
    GetExitCodeProcess(process_.get(), &status);
    return status;
}

std::string LaunchedProgram::output() const
{
    EXPECT_EQ(WaitForSingleObject(process_.get(), bound), WAIT_OBJECT_0) << "the program did not end";
    std::string text;
    std::array<char, 4096> piece = {};
    DWORD length = 0;
    while (ReadFile(output_.get(), piece.data(), static_cast<DWORD>(piece.size()), &length, nullptr) != FALSE)
        text.append(piece.data(), length);
    return text;
}

std::u16string launcher_path() { return multirename::program_folder() + u"multirename-gui.exe"; }
