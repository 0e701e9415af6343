// What code with stack protection asks its runtime for. The compiler's own runtime has a cryptography provider make the
// guard, which loads further libraries by their names while the loader is busy with this one. The guard here is made of
// what only this process has: its moment, its numbers and where the system has put its stack and its code.

#include <windows.h>

#include <cstdint>

namespace {

[[noreturn]] void end_at_once() noexcept
{
    // To the system, not to handlers: whoever has overwritten the stack may have overwritten them too.
    while (true)
        __asm__ volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
}

// Spreads each bit of a number over all others, and different numbers stay different.
constexpr std::uint64_t spread(std::uint64_t number) noexcept
{
    number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31);
}

} // namespace

// The compiler fixes these names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
std::uint64_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() { end_at_once(); }

/// What the checked forms of memcpy and the like end in.
[[noreturn]] void __chk_fail() { end_at_once(); }
}

namespace {

// Before every other constructor, and unprotected itself: the guard changes under its feet.
__attribute__((constructor(101), no_stack_protector)) void make_guard() noexcept
{
    FILETIME moment{};
    GetSystemTimeAsFileTime(&moment);
    LARGE_INTEGER count{};
    QueryPerformanceCounter(&count);
    const std::uint64_t parts[] = {
        std::uint64_t{moment.dwHighDateTime} << 32 | moment.dwLowDateTime,
        static_cast<std::uint64_t>(count.QuadPart),
        std::uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId(),
        reinterpret_cast<std::uintptr_t>(&moment),
        reinterpret_cast<std::uintptr_t>(&make_guard),
    };
    std::uint64_t guard = 0;
    for (const std::uint64_t part : parts)
        guard = spread(guard ^ part);
    __stack_chk_guard = guard;
}

} // namespace
// NOLINTEND(bugprone-reserved-identifier)
