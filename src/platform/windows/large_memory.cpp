// Large pages need a right here that programs do not have.

#include "platform/large_memory.h"

#include <new>

namespace multirename {

void* allocate_memory(std::size_t bytes) { return ::operator new(bytes); }

void free_memory(void* memory, std::size_t /*bytes*/) noexcept { ::operator delete(memory); }

} // namespace multirename
