#include "support/refused_calls.h"

#include <linux/audit.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cstddef>
#include <cstdint>

// The filter is a row of blocks, one for each refused call. Each loads what it looks at itself, and falls through to
// the next when it does not fit; behind the last one, everything is allowed.

namespace multirename {

namespace {

using Filter = std::vector<sock_filter>;

sock_filter load(std::size_t offset) { return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset)); }

sock_filter jump_if_equal(std::uint32_t value, std::uint8_t skip_if_equal, std::uint8_t skip_otherwise)
{
    return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, skip_if_equal, skip_otherwise);
}

sock_filter answer(std::uint32_t value) { return BPF_STMT(BPF_RET | BPF_K, value); }

sock_filter fail_with(int error)
{
    return answer(SECCOMP_RET_ERRNO | (static_cast<std::uint32_t>(error) & SECCOMP_RET_DATA));
}

// The flags are an unsigned int, the lower half of the argument's 64 bits; the kernel looks at nothing else either.
void refuse_renameat2_with_flags(Filter& filter, int error)
{
    constexpr std::size_t flags = offsetof(seccomp_data, args) + 4 * sizeof(std::uint64_t);
    filter.insert(filter.end(),
                  {load(offsetof(seccomp_data, nr)), jump_if_equal(SYS_renameat2, 0, 3), load(flags),
                   jump_if_equal(0, 1, 0), fail_with(error)});
}

void refuse_links(Filter& filter, int error)
{
    filter.insert(filter.end(),
                  {load(offsetof(seccomp_data, nr)), jump_if_equal(SYS_link, 1, 0), jump_if_equal(SYS_linkat, 0, 1),
                   fail_with(error)});
}

} // namespace

std::vector<sock_filter> filter_of(const RefusedCalls& calls)
{
    if (!calls.renameat2_with_flags && !calls.link)
        return {};
    // The numbers of calls mean something else in programs for other processors.
    Filter filter = {load(offsetof(seccomp_data, arch)), jump_if_equal(AUDIT_ARCH_X86_64, 1, 0),
                     answer(SECCOMP_RET_ALLOW)};
    if (calls.renameat2_with_flags)
        refuse_renameat2_with_flags(filter, *calls.renameat2_with_flags);
    if (calls.link)
        refuse_links(filter, *calls.link);
    filter.push_back(answer(SECCOMP_RET_ALLOW));
    return filter;
}

bool install_filter(const std::vector<sock_filter>& filter) noexcept
{
    // The kernel reads the filter only, though its record has no const.
    const sock_fprog program = {static_cast<unsigned short>(filter.size()), const_cast<sock_filter*>(filter.data())};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

} // namespace multirename
