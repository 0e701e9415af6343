#include "platform/console.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <memory>

#include "platform/unique_handle.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/grown_text.h"
#include "platform/windows/wide.h"
#include "text/wtf8.h"

namespace multirename {

// A console takes and gives characters; files and pipes take and give bytes. Commands run in cmd, which takes the text
// between the outermost quotation marks as it is. Only "%" has a meaning even between quotation marks, so the path that
// a command works on does not stand in the text: a variable of the environment holds it, and what is put in for a
// variable is not looked through once more.

namespace {

constexpr std::size_t columns_of_old_consoles = 80;
constexpr const wchar_t* file_variable = L"MULTIRENAME_FILE";

bool is_console(HANDLE file)
{
    DWORD mode = 0;
    return GetConsoleMode(file, &mode) != FALSE;
}

bool show(HANDLE console, std::string_view text)
{
    constexpr std::size_t largest_piece = 8192; // older consoles refuse texts of many thousand characters
    const std::wstring wide = to_wide(from_wtf8(text));
    for (std::wstring_view left = wide; !left.empty();) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(left.size(), largest_piece));
        if (WriteConsoleW(console, left.data(), size, &written, nullptr) == FALSE)
            return false;
        left.remove_prefix(written);
    }
    return true;
}

bool has_reader_gone(DWORD error) { return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA; }

bool write_to(DWORD stream, std::string_view text)
{
    const HANDLE file = GetStdHandle(stream);
    if (file == nullptr || file == INVALID_HANDLE_VALUE)
        return false;
    if (is_console(file))
        return show(file, text);
    return write_all(file, text) || has_reader_gone(GetLastError());
}

// Lines that are typed, up to one that begins with Ctrl-Z.
std::string read_typed(HANDLE console)
{
    constexpr wchar_t end_of_input = 0x1A;
    std::wstring typed;
    std::array<wchar_t, 8192> line{};
    DWORD length = 0;
    while (ReadConsoleW(console, line.data(), static_cast<DWORD>(line.size()), &length, nullptr) != FALSE &&
           length != 0 && line.front() != end_of_input)
        typed.append(line.data(), length);
    return to_wtf8(from_wide(typed));
}

struct ProcessTraits {
    static HANDLE none() noexcept { return nullptr; }
    static void close(HANDLE process) noexcept { CloseHandle(process); }
};
using UniqueProcess = UniqueHandle<ProcessTraits>;

BOOL WINAPI leave_to_command(DWORD event) { return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT ? TRUE : FALSE; }

// While a command has the console, keys that end a program are not meant for this one.
class Patience {
public:
    Patience() { SetConsoleCtrlHandler(leave_to_command, TRUE); }
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;
    ~Patience() { SetConsoleCtrlHandler(leave_to_command, FALSE); }
};

UniqueProcess start(const std::wstring& command, HANDLE input)
{
    const std::wstring shell =
        grown_text([](wchar_t* text, DWORD size) { return GetSystemDirectoryW(text, size); }) + L"\\cmd.exe";
    std::wstring line = L"cmd.exe /d /v:off /s /c \"" + command + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input;
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    // The shell runs what the working folder holds in place of what it was asked for, unless told so. There lie the
    // files to be renamed, from wherever they came.
    SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");
    PROCESS_INFORMATION started{};
    if (CreateProcessW(shell.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &started) ==
        FALSE)
        return UniqueProcess();
    CloseHandle(started.hThread);
    return UniqueProcess(started.hProcess);
}

std::optional<int> exit_status(HANDLE process)
{
    DWORD status = 0;
    if (WaitForSingleObject(process, INFINITE) != WAIT_OBJECT_0 || GetExitCodeProcess(process, &status) == FALSE)
        return std::nullopt;
    return static_cast<int>(status);
}

struct InputPipe {
    UniqueFile read_end; ///< for the command
    UniqueFile write_end;
};

// Only the end for the command may reach it: it waits for input until nobody is left who could write some.
std::optional<InputPipe> make_input_pipe()
{
    HANDLE read_end = nullptr;
    HANDLE write_end = nullptr;
    if (CreatePipe(&read_end, &write_end, nullptr, 0) == FALSE)
        return std::nullopt;
    InputPipe pipe{UniqueFile(read_end), UniqueFile(write_end)};
    if (SetHandleInformation(read_end, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) == FALSE)
        return std::nullopt;
    return pipe;
}

class WindowsConsole final : public Console {
public:
    bool write(std::string_view text) override { return write_to(STD_OUTPUT_HANDLE, text); }
    void write_error(std::string_view text) override { write_to(STD_ERROR_HANDLE, text); }

    std::string read_input() override
    {
        const HANDLE file = GetStdHandle(STD_INPUT_HANDLE);
        if (is_console(file))
            return read_typed(file);
        std::string input;
        read_all(file, input);
        return input;
    }

    bool output_is_terminal() override { return is_console(GetStdHandle(STD_OUTPUT_HANDLE)); }
    bool errors_are_terminal() override { return is_console(GetStdHandle(STD_ERROR_HANDLE)); }

    std::size_t columns() override
    {
        CONSOLE_SCREEN_BUFFER_INFO screen{};
        if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &screen) == FALSE ||
            screen.srWindow.Right < screen.srWindow.Left)
            return columns_of_old_consoles;
        return static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left) + 1;
    }

    bool pipe_to(const std::string& command, std::string_view text) override
    {
        std::optional<InputPipe> pipe = make_input_pipe();
        if (!pipe)
            return false;
        const Patience patience;
        const UniqueProcess process = start(to_wide(from_wtf8(command)), pipe->read_end.get());
        if (!process)
            return false;
        pipe->read_end = UniqueFile();
        write_all(pipe->write_end.get(), text); // who reads may have seen enough before the end
        pipe->write_end = UniqueFile();
        WaitForSingleObject(process.get(), INFINITE);
        return true;
    }

    std::optional<int> run_on_file(const std::string& command, const std::string& native_path) override
    {
        const Patience patience;
        SetEnvironmentVariableW(file_variable, to_wide(from_wtf8(native_path)).c_str());
        const std::wstring line = to_wide(from_wtf8(command)) + L" \"%" + file_variable + L"%\"";
        const UniqueProcess process = start(line, GetStdHandle(STD_INPUT_HANDLE));
        SetEnvironmentVariableW(file_variable, nullptr);
        return process ? exit_status(process.get()) : std::nullopt;
    }

    std::optional<std::string> variable(const char* name) override
    {
        const std::wstring wide_name = to_wide(from_wtf8(name));
        const std::wstring value = grown_text(
            [&wide_name](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(wide_name.c_str(), text, size); });
        return value.empty() ? std::nullopt : std::optional<std::string>(to_wtf8(from_wide(value)));
    }
};

struct Range {
    char32_t first;
    char32_t last;
};

// Scripts and signs of East Asia, and the pictures beyond U+FFFF. What the system tells of single characters leaves out
// the syllables of Korean and others.
constexpr Range wide_ranges[] = {{0x1100, 0x115F}, {0x2E80, 0x303E},   {0x3041, 0xA4CF},  {0xA960, 0xA97C},
                                 {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},  {0xFF01, 0xFF60},
                                 {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFF}};

bool is_wide(char32_t character)
{
    return std::ranges::any_of(
        wide_ranges, [character](const Range& range) { return character >= range.first && character <= range.last; });
}

WORD type_of(DWORD kind, char32_t character)
{
    const auto unit = static_cast<wchar_t>(character);
    WORD type = 0;
    return GetStringTypeW(kind, &unit, 1, &type) != FALSE ? type : WORD{0};
}

// Characters that begin or end something, a line or a message, rather than show anything.
bool is_control(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character <= 0x9F) || character == 0x2028 || character == 0x2029;
}

// Letters with an accent count as non-spacing too; only what is no letter stands on the character before it. What joins
// characters or turns their direction counts as a control character, and so does the soft hyphen, which shows.
bool takes_no_column(char32_t character)
{
    const WORD type = type_of(CT_CTYPE3, character);
    const WORD kind = type_of(CT_CTYPE1, character);
    return ((type & C3_NONSPACING) != 0 && (type & C3_ALPHA) == 0) ||
        ((kind & C1_CNTRL) != 0 && (kind & C1_PUNCT) == 0);
}

} // namespace

Console& system_console()
{
    static WindowsConsole console;
    return console;
}

std::optional<std::size_t> columns_of(char32_t character)
{
    constexpr char32_t last_of_one_unit = 0xFFFF;
    constexpr char32_t last_of_all = 0x10FFFF;
    const bool is_half = character >= 0xD800 && character <= 0xDFFF;
    if (is_half || is_control(character) || character > last_of_all)
        return std::nullopt;
    if (character <= last_of_one_unit && takes_no_column(character))
        return 0;
    return is_wide(character) ? 2 : 1;
}

void use_locale_of_user() { std::setlocale(LC_ALL, ""); }

std::vector<std::string> command_line_words(int, char**)
{
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                                &LocalFree);
    std::vector<std::string> native;
    for (int i = 1; i < count; ++i)
        native.push_back(to_wtf8(from_wide(words.get()[i])));
    return native;
}

} // namespace multirename
