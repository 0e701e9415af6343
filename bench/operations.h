#pragma once

#include <span>
#include <string_view>

#include "listing.h"

namespace multirename {

/// Something that is timed on one listing. What is not part of it, making what it needs and throwing away what it
/// made, is not timed.
struct Operation {
    std::string_view name;
    bool is_baseline = false; ///< what others are compared with; not part of the product
    /// Does it once and gives the seconds that it took; 0 when it does not apply to these names. Throws
    /// std::logic_error when what came out is not right.
    double (*run)(Listing& listing) = nullptr;
};

[[nodiscard]] std::span<const Operation> operations();

} // namespace multirename
