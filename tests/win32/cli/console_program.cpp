#include "cli/console_program.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <atomic>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"

using multirename::to_wide;
using multirename::UniqueFile;

namespace {

// The words in quotes, as the runtime takes them apart again.
std::wstring command_line(const std::vector<std::u16string>& words)
{
    std::wstring line = L"multirename.exe";
    for (const std::u16string& word : words) {
        line += L" \"";
        std::size_t backslashes = 0;
        for (const wchar_t unit : to_wide(word)) {
            if (unit == L'"')
                line.append(backslashes + 1, L'\\');
            backslashes = unit == L'\\' ? backslashes + 1 : 0;
            line.push_back(unit);
        }
        line.append(backslashes, L'\\').push_back(L'"');
    }
    return line;
}

// A file for a standard stream of the program, which is gone when it is closed.
UniqueFile stream_file()
{
    static std::atomic<unsigned> count = 0;
    std::array<wchar_t, MAX_PATH> folder{};
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    const std::wstring path = folder.data() +
        (L"multirename_stream_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(count++));
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return UniqueFile(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited, CREATE_ALWAYS,
                                  FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

std::string content_of(const UniqueFile& file)
{
    SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN);
    std::string content;
    std::array<char, 4096> piece{};
    DWORD length = 0;
    while (ReadFile(file.get(), piece.data(), static_cast<DWORD>(piece.size()), &length, nullptr) != FALSE &&
           length > 0)
        content.append(piece.data(), length);
    return content;
}

} // namespace

std::u16string console_program_path()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::u16string tests = multirename::from_wide(path.data());
    return tests.substr(0, tests.rfind(u'\\') + 1) + u"multirename.exe";
}

ConsoleResult run_console_program(const ConsoleRun& run)
{
    const UniqueFile input = stream_file();
    const UniqueFile output = stream_file();
    const UniqueFile errors = stream_file();
    DWORD written = 0;
    WriteFile(input.get(), run.input.data(), static_cast<DWORD>(run.input.size()), &written, nullptr);
    SetFilePointer(input.get(), 0, nullptr, FILE_BEGIN);
    for (const auto& [name, value] : run.environment)
        SetEnvironmentVariableW(to_wide(name).c_str(), to_wide(value).c_str());

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.get();
    start.hStdOutput = output.get();
    start.hStdError = errors.get();
    PROCESS_INFORMATION process{};
    std::wstring line = command_line(run.words);
    const std::wstring folder = to_wide(run.folder);
    const std::wstring program = to_wide(run.program.empty() ? console_program_path() : run.program);
    const BOOL started = CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        folder.empty() ? nullptr : folder.c_str(), &start, &process);
    for (const auto& [name, value] : run.environment)
        SetEnvironmentVariableW(to_wide(name).c_str(), nullptr);
    EXPECT_TRUE(started) << GetLastError();
    if (!started)
        return {};
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return {status, content_of(output), content_of(errors)};
}
