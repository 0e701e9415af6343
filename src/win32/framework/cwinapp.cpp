#include "win32/framework/cwinapp.h"

#include <cassert>

namespace multirename {

namespace {

CWinApp* the_application = nullptr;

} // namespace

CWinApp::CWinApp() noexcept
{
    assert(the_application == nullptr);
    the_application = this;
}

CWinApp::~CWinApp() { the_application = nullptr; }

void CWinApp::BeginWaitCursor() noexcept
{
    if (waits_++ == 0)
        cursor_before_ = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

void CWinApp::EndWaitCursor() noexcept
{
    const int left = --waits_;
    assert(left >= 0);
    if (left == 0)
        SetCursor(cursor_before_);
}

CWinApp& application() noexcept
{
    assert(the_application != nullptr);
    return *the_application;
}

} // namespace multirename

// The loader's entry of the module. It holds the loader's lock, so no more is done here than the application object
// promises.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    using multirename::application;
    if (reason == DLL_PROCESS_ATTACH)
        return application().InitInstance() ? TRUE : FALSE;
    if (reason == DLL_PROCESS_DETACH)
        application().ExitInstance();
    return TRUE;
}
