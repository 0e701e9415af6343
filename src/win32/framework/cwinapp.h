#pragma once

#include <windows.h>

#include <atomic>

namespace multirename {

/// The one object that stands for the module while it is loaded. Derive from it and make one global instance; the
/// loader calls the two operations below.
class CWinApp {
public:
    CWinApp() noexcept;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    /// When the module has been loaded; false refuses to be. May not load libraries or make windows.
    virtual bool InitInstance() { return true; }

    /// Before the module is unloaded; its result is the module's last word and means nothing to the loader.
    virtual int ExitInstance() { return 0; }

    /// Show the wait cursor, counted: it goes when each beginning has had its end. Any thread with windows may call
    /// them; where two wait at once, the cursor of the second may stay as it is.
    void BeginWaitCursor() noexcept;
    void EndWaitCursor() noexcept;

private:
    std::atomic<int> waits_ = 0;
    std::atomic<HCURSOR> cursor_before_ = nullptr;
};

/// The module's application object; there must be one.
[[nodiscard]] CWinApp& application() noexcept;

/// Shows the wait cursor for as long as it lives.
class WaitCursor {
public:
    WaitCursor() noexcept { application().BeginWaitCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { application().EndWaitCursor(); }
};

} // namespace multirename
