#pragma once

#include <cstddef>

namespace multirename {

// Mistakes for tests to make, in a process that is to end by them.

/// Writes beyond the end of a buffer on the stack.
std::size_t fill_too_far();

/// Copies more into a buffer than it holds.
char copy_too_much();

/// Reads an item behind the last one of a vector.
int read_behind_the_last();

} // namespace multirename
