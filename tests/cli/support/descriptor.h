#pragma once

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/unique_handle.h"

namespace multirename {

struct DescriptorTraits {
    [[nodiscard]] static constexpr int none() noexcept { return -1; }
    static void close(int descriptor) noexcept { ::close(descriptor); }
};

using Descriptor = UniqueHandle<DescriptorTraits>;

/// Passes on what a system call gave; throws std::system_error with errno and `what` when that is -1.
template <class Result>
Result checked(Result result, const char* what)
{
    if (result == -1)
        throw std::system_error(errno, std::system_category(), what);
    return result;
}

} // namespace multirename
