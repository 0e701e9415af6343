#include "win32/dialog/screen_dpi.h"

#include <bit>

namespace multirename {

void ScreenDpi::resolve()
{
    is_resolved_ = true;
    library_ = UniqueLibrary(LoadLibraryW(L"User32.dll"));
    if (library_)
        window_dpi_ = std::bit_cast<WindowDpi>(GetProcAddress(library_.get(), "GetDpiForWindow"));
    if (window_dpi_ != nullptr)
        return;
    library_ = UniqueLibrary();
    const WindowDeviceContext screen(nullptr);
    dpi_ = GetDeviceCaps(screen.get(), LOGPIXELSY);
}

void ScreenDpi::update(HWND window)
{
    if (!is_resolved_)
        resolve();
    if (window_dpi_ == nullptr)
        return;
    const int old_dpi = dpi_;
    const int new_dpi = static_cast<int>(window_dpi_(window));
    if (new_dpi == old_dpi || new_dpi == 0)
        return;
    dpi_ = new_dpi;
    for (ScreenDpiWatcher* watcher : watchers_)
        watcher->dpi_changed(old_dpi, new_dpi);
}

} // namespace multirename
