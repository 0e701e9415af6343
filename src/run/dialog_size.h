#pragma once

#include <optional>

#include "settings/registry.h"

namespace multirename {

/// The dialog's outer size in pixels.
struct DialogSize {
    int width = 0;
    int height = 0;
    bool operator==(const DialogSize&) const = default;
};

/// The size that the last run left, brought to `dpi`; nothing when either length is missing or zero.
[[nodiscard]] std::optional<DialogSize> remembered_size(const Registry& settings, int dpi);

/// Remembers the size for the next run, for a screen of any resolution. A store that refuses is passed over.
void remember_size(Registry& settings, DialogSize size, int dpi);

} // namespace multirename
