#pragma once

#include <cstddef>
#include <span>

#include "rename/rename_all.h"

namespace multirename {

/// Takes the plan of a rename and does nothing with it.
class NoRename final : public RenameProgress {
public:
    void announce() override { }
    bool is_cancelled() override { return false; }
    void rename(OwnerWindow, std::span<const Filename* const> entries) override { count = entries.size(); }

    std::size_t count = 0; ///< of the entries that were to be renamed
};

} // namespace multirename
