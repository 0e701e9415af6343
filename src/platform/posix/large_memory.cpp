#include "platform/large_memory.h"

#include <sys/mman.h>

#include <new>

namespace multirename {

namespace {

constexpr std::size_t large_page = std::size_t{2} << 20U;

} // namespace

void* allocate_memory(std::size_t bytes)
{
    if (bytes < large_page)
        return ::operator new(bytes);
    void* const memory = ::operator new (bytes, std::align_val_t{large_page});
    // Only whole pages: what is behind them would take a large one for a few bytes. A system that will not, need not.
    madvise(memory, bytes / large_page * large_page, MADV_HUGEPAGE);
    return memory;
}

void free_memory(void* memory, std::size_t bytes) noexcept
{
    if (bytes < large_page)
        ::operator delete(memory);
    else
        ::operator delete (memory, std::align_val_t{large_page});
}

} // namespace multirename
