#pragma once

#include <windows.h>

#include <string>

#include "win32/framework/handles.h"

namespace multirename {

/// The module that this code is linked into: where its resources are, whatever program has loaded it.
[[nodiscard]] HINSTANCE module_instance() noexcept;

/// Enters the module from a program that loaded it, and leaves it again on every way out.
///
/// In between, the module's own manifest (resource 2) decides which common controls are used, whatever the program
/// declares; they are registered as well. Guards may be nested. Belongs to the thread that made it.
class ModuleStateGuard {
public:
    ModuleStateGuard() noexcept;
    ModuleStateGuard(const ModuleStateGuard&) = delete;
    ModuleStateGuard& operator=(const ModuleStateGuard&) = delete;
    ~ModuleStateGuard();

private:
    UniqueActivationContext context_;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

/// The text with this number in the module's string table; empty when there is none.
[[nodiscard]] std::u16string load_text(UINT id);

/// The icon with this number in the module, at the size that fits best; none when it cannot be had.
[[nodiscard]] UniqueIcon load_icon(WORD id, SIZE size) noexcept;

/// Bitmaps of the module, added in the order of their numbers from `first` to `last`, with their alpha channel.
[[nodiscard]] UniqueImageList load_images(WORD first, WORD last, SIZE size) noexcept;

} // namespace multirename
