#include "platform/interruption.h"

#include <windows.h>

#include <atomic>

namespace multirename {

namespace {

std::atomic<bool> wanted = false;

// The system calls this on a thread of its own. When a window is closed, or the user logs off, the process ends as soon
// as this returns, so it does not: the system waits a few seconds for the program to end by itself.
BOOL WINAPI note(DWORD event)
{
    wanted = true;
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

} // namespace

Interruption::Interruption()
{
    wanted = false;
    SetConsoleCtrlHandler(note, TRUE);
}

Interruption::~Interruption() { SetConsoleCtrlHandler(note, FALSE); }

bool Interruption::is_wanted() const noexcept { return wanted; }

} // namespace multirename
