#pragma once

#include <linux/filter.h>

#include <optional>
#include <vector>

namespace multirename {

/// Calls that a program is to find refused by the system, as on file systems and kernels that lack them. Each holds the
/// errno that the call fails with, from 1 to 4095; the rest works as ever.
struct RefusedCalls {
    std::optional<int> renameat2_with_flags = {}; ///< renameat2 unless its flags are 0
    std::optional<int> link = {}; ///< link and linkat
};

/// The filter that refuses these calls to 64-bit programs; empty when none is refused.
[[nodiscard]] std::vector<sock_filter> filter_of(const RefusedCalls& calls);

/// Puts a filter that is not empty over this process, those that it starts and what it executes, for good; it can gain
/// no privileges by executing from then on. Allocates nothing, so it can follow a fork. False, with errno, on failure.
[[nodiscard]] bool install_filter(const std::vector<sock_filter>& filter) noexcept;

} // namespace multirename
