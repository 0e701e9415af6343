#pragma once

#include <windows.h>

#include <vector>

#include "win32/framework/handles.h"

namespace multirename {

/// The dots per inch at which one window is shown. Lengths given at 96 are brought to it by `scaled` of run/dpi.h.
class ScreenDpi {
public:
    /// Is told when the window has come to a screen of another resolution.
    class ScreenDpiWatcher {
    public:
        virtual void dpi_changed(int old_dpi, int new_dpi) = 0;

    protected:
        ~ScreenDpiWatcher() = default;
    };

    /// Asks the system anew and tells the watchers when the answer is another one. Systems that know nothing of single
    /// windows' resolutions are asked once, for the screen's.
    void update(HWND window);

    [[nodiscard]] int dpi() const noexcept { return dpi_; }

    /// The watcher must outlive the object.
    void watch(ScreenDpiWatcher& watcher) { watchers_.push_back(&watcher); }

private:
    using WindowDpi = UINT(WINAPI*)(HWND);
    void resolve();

    int dpi_ = 96;
    bool is_resolved_ = false;
    UniqueLibrary library_;
    WindowDpi window_dpi_ = nullptr; // in `library_`
    std::vector<ScreenDpiWatcher*> watchers_;
};

} // namespace multirename
