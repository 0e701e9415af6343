#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/windows/file_handle.h"
#include "platform/windows/grown_text.h"

namespace multirename {

/// The command that runs one of this program's disabled tests.
[[nodiscard]] inline std::wstring command_of_test(const std::wstring& name)
{
    const std::wstring program =
        grown_text([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
    return L"\"" + program + L"\" --gtest_brief=1 --gtest_also_run_disabled_tests --gtest_filter=" + name;
}

/// The exit status of a disabled test that was run to its end in a process of its own. Not 0, which is also that of a
/// process that keys have ended.
inline constexpr DWORD went_well = 77;

/// The last line of such a test.
inline void end_process_of_test()
{
    if (!testing::Test::HasFailure())
        ExitProcess(went_well);
}

/// Runs one of this program's disabled tests in a process with a console of its own, because keys reach every process
/// of a console, and gives its exit status.
[[nodiscard]] inline DWORD status_in_own_console(const std::wstring& name)
{
    std::wstring command = command_of_test(name);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                       &started) == FALSE)
        return GetLastError();
    const UniqueFile process(started.hProcess);
    const UniqueFile thread(started.hThread);
    WaitForSingleObject(process.get(), INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(process.get(), &status);
    return status;
}

} // namespace multirename
