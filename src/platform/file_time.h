#pragma once

#include <cstdint>

namespace multirename {

/// A moment in units of 100 ns since 1601-01-01 00:00 UTC; 0 also says that the moment is not known.
using FileTime = std::uint64_t;

} // namespace multirename
