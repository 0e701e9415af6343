#pragma once

#include <windows.h>

#include "multirename.h"

/// The module, loaded from beside this program, as a host would load it. What it remembers goes when it is unloaded.
class Module {
public:
    Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module();

    [[nodiscard]] HMODULE handle() const noexcept { return library_; }
    [[nodiscard]] decltype(&run_multirename) run() const noexcept { return run_; }

private:
    HMODULE library_;
    decltype(&run_multirename) run_;
};
