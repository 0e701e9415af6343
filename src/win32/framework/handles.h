#pragma once

#include <windows.h>

#include <commctrl.h>

#include "platform/unique_handle.h"

namespace multirename {

struct GdiObjectTraits {
    static HGDIOBJ none() noexcept { return nullptr; }
    static void close(HGDIOBJ object) noexcept { DeleteObject(object); }
};
using UniqueGdiObject = UniqueHandle<GdiObjectTraits>;

struct FontTraits {
    static HFONT none() noexcept { return nullptr; }
    static void close(HFONT font) noexcept { DeleteObject(font); }
};
using UniqueFont = UniqueHandle<FontTraits>;

struct IconTraits {
    static HICON none() noexcept { return nullptr; }
    static void close(HICON icon) noexcept { DestroyIcon(icon); }
};
using UniqueIcon = UniqueHandle<IconTraits>;

struct MenuTraits {
    static HMENU none() noexcept { return nullptr; }
    static void close(HMENU menu) noexcept { DestroyMenu(menu); }
};
using UniqueMenu = UniqueHandle<MenuTraits>;

struct ImageListTraits {
    static HIMAGELIST none() noexcept { return nullptr; }
    static void close(HIMAGELIST images) noexcept { ImageList_Destroy(images); }
};
using UniqueImageList = UniqueHandle<ImageListTraits>;

struct WindowTraits {
    static HWND none() noexcept { return nullptr; }
    static void close(HWND window) noexcept { DestroyWindow(window); }
};
using UniqueWindow = UniqueHandle<WindowTraits>;

struct LibraryTraits {
    static HMODULE none() noexcept { return nullptr; }
    static void close(HMODULE library) noexcept { FreeLibrary(library); }
};
using UniqueLibrary = UniqueHandle<LibraryTraits>;

struct GlobalTraits {
    static HGLOBAL none() noexcept { return nullptr; }
    static void close(HGLOBAL block) noexcept { GlobalFree(block); }
};
using UniqueGlobal = UniqueHandle<GlobalTraits>;

struct HookTraits {
    static HHOOK none() noexcept { return nullptr; }
    static void close(HHOOK hook) noexcept { UnhookWindowsHookEx(hook); }
};
using UniqueHook = UniqueHandle<HookTraits>;

struct ActivationContextTraits {
    static HANDLE none() noexcept { return INVALID_HANDLE_VALUE; } // NOLINT(performance-no-int-to-ptr): Windows' own
    static void close(HANDLE context) noexcept { ReleaseActCtx(context); }
};
using UniqueActivationContext = UniqueHandle<ActivationContextTraits>;

/// The device context of a window for as long as the object lives.
class WindowDeviceContext {
public:
    explicit WindowDeviceContext(HWND window) noexcept : window_(window), context_(GetDC(window)) { }
    WindowDeviceContext(const WindowDeviceContext&) = delete;
    WindowDeviceContext& operator=(const WindowDeviceContext&) = delete;
    ~WindowDeviceContext()
    {
        if (context_ != nullptr)
            ReleaseDC(window_, context_);
    }
    [[nodiscard]] HDC get() const noexcept { return context_; }

private:
    HWND window_;
    HDC context_;
};

/// Keeps an object selected into a device context for as long as it lives.
class SelectedObject {
public:
    SelectedObject(HDC context, HGDIOBJ object) noexcept : context_(context), previous_(SelectObject(context, object))
    {
    }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject() { SelectObject(context_, previous_); }

private:
    HDC context_;
    HGDIOBJ previous_;
};

} // namespace multirename
